// Selecting points of the edited curve by dragging over them.
#pragma once

#include "instance/gesture.h"

namespace tq {

struct Prseq;

/// Selects the points that are dragged over; with shift it toggles them.
void press_in_select_bpf_mode(Prseq& object, const Pointer& press);

}  // namespace tq
