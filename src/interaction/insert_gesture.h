// Drawing events: a press makes one, the drag gives it its duration and pitch.
#pragma once

#include <memory>

#include "instance/gesture.h"

namespace tq {

struct Prseq;

/// Where an event begins that is drawn at the pointer, in ms: on the line of the grid that is meant.
double start_to_insert(const Prseq& object, const Pointer& pointer);
/// Makes the event, in a track "Untitled" when the document has none.
std::unique_ptr<Gesture> insert_gesture(Prseq& object, const Pointer& press);

}  // namespace tq
