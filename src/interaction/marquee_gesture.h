// The marquee: the rectangle that selects what it touches.
#pragma once

#include <memory>

#include "instance/gesture.h"

namespace tq {

/// Made by a press beside the events of the active track. The corner of the press stays on its spot of the
/// document. With shift, what is touched is selected when it was not at the press, and everything else is as
/// it was then.
std::unique_ptr<Gesture> marquee_gesture(Prseq& object, const Pointer& press);

}  // namespace tq
