// Drawing events: a press makes one, the drag gives it its duration and pitch.
#pragma once

#include <memory>

#include "instance/gesture.h"

namespace tq {

struct Prseq;

/// Makes the event, in a track "Untitled" when the document has none.
std::unique_ptr<Gesture> insert_gesture(Prseq& object, const Pointer& press);

}  // namespace tq
