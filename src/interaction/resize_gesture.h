// Dragging the start or the end of the selected events.
#pragma once

#include <memory>

#include "instance/event.h"
#include "instance/gesture.h"

namespace tq {

enum class Edge { Inside, Start, End };

/// Made by a press on an edge of a selected event of the active track. The others change by as much as it
/// does; the other edge of each stays, and none becomes shorter than 1 ms.
std::unique_ptr<Gesture> resize_gesture(Prseq& object, EventRef clicked, Edge edge);

}  // namespace tq
