// Painting values in the parameter display.
#pragma once

#include <memory>

#include "instance/gesture.h"

namespace tq {

/// Made by a press in the parameter display; sets the value of the event whose bar was hit. A drag sets those
/// of the events that it comes over, and fills in the events between two of them on a straight line; with
/// shift it stays with the event of the press. None without an active track.
std::unique_ptr<Gesture> parameter_gesture(Prseq& object, const Pointer& press);

}  // namespace tq
