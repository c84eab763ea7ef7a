// Dragging the selected events, or with option copies of them.
#pragma once

#include <memory>

#include "instance/gesture.h"
#include "instance/track.h"

namespace tq {

/// Made by a press on a selected event of the active track. One event goes with the pointer, several within
/// the range of times and pitches as a whole; on the grids that are on.
std::unique_ptr<Gesture> move_gesture(Prseq& object, EventRef clicked, const Pointer& press);

}  // namespace tq
