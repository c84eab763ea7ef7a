// The document's tempo and bars, as a MIDI file says them.
#pragma once

#include "app/midi/part.h"

namespace tq {

struct Prseq;

/// The transport's tempo, and a time signature for each bar region: the one whose bar lasts as long at that
/// tempo (4/8 on the document's grid is 4/4 at 120 beats a minute). When there is none for one of them, all
/// stand as they are, bar by bar.
PartMeter meter_of(const Prseq& object);

}  // namespace tq
