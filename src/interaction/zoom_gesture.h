// Zooming with the mouse: a click zooms in or out, a drag zooms to what it covers.
#pragma once

#include <memory>

#include "instance/gesture.h"

namespace tq {

std::unique_ptr<Gesture> zoom_gesture(const Pointer& press);

}  // namespace tq
