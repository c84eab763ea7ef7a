// Choosing what an event plays of its buffer, by dragging over the event.
#pragma once

#include "instance/gesture.h"

namespace tq {

struct Prseq;

/// Selects the event, and grabs the end of its range when the pointer is at or after where that is drawn, or
/// else the start.
void press_in_buffer_mode(Prseq& object, const Pointer& press);
void hover_in_buffer_mode(Prseq& object, const Pointer& at);

}  // namespace tq
