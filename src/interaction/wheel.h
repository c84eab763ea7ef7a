// The wheel over the main display.
#pragma once

#include "interaction/parts.h"

namespace tq {

/// Scrolls the main display, by one main division or one row a unit.
void scroll_maindisplay(Prseq& object, WheelTurn turn);

}  // namespace tq
