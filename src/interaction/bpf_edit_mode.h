// Drawing curves: adding, deleting and dragging the points of the edited curve.
#pragma once

#include "instance/gesture.h"

namespace tq {

struct Prseq;

/// Beside all points a press adds one; on a point it selects and grabs it, with shift it deletes it. With
/// option it chooses the event whose curves are edited.
void press_in_edit_bpf_mode(Prseq& object, const Pointer& press);
/// The point under the pointer becomes the current one.
void hover_in_edit_bpf_mode(Prseq& object, const Pointer& at);

/// The option press of both modes for curves: whether it was one.
bool choose_edited_event(Prseq& object, const Pointer& press);

}  // namespace tq
