// A document played once through, as fast as the machine can.
#pragma once

#include "app/patch/session.h"

namespace tq {

/// When the last event of all ends, in ms.
double end_of_events(const Prseq& box);
/// Plays the document from its beginning until its last event is over; what leaves the box does so at its
/// logical times.
void play_through(Session& session);

}  // namespace tq
