// What the track list looks like.
#pragma once

#include "host/graphics.h"

namespace tq {

struct Prseq;

/// Rows of names, eyes and speakers under their titles, and the list's scrollbar.
void TQ_Prseq_Trackdisplay_Draw(const Prseq& object, Graphics& g);

}  // namespace tq
