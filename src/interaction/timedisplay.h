// What the mouse does in the ruler.
#pragma once

#include "instance/gesture.h"

namespace tq {

/// In the loop's bar: drags its start, its end, or the whole of it. Beside it: the play position goes with
/// the pointer.
void press_timedisplay(Prseq& object, const Pointer& press);
/// The cursor shows what of the loop a press would take hold of.
void hover_timedisplay(Prseq& object, const Pointer& at);

}  // namespace tq
