// What the ruler looks like.
#pragma once

#include "host/graphics.h"

namespace tq {

struct Prseq;

/// The loop's bar, ticks, and times or bars.
void draw_timedisplay(const Prseq& object, Graphics& g);

}  // namespace tq
