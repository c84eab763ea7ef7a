// The wheel over the main display and over the track list.
#pragma once

#include "interaction/parts.h"

namespace tq {

/// Scrolls the main display, by one main division or one row a unit.
void scroll_maindisplay(Prseq& object, WheelTurn turn);
/// Scrolls the list, by one row a unit.
void scroll_trackdisplay(Prseq& object, WheelTurn turn);

}  // namespace tq
