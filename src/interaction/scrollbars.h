// Presses in the scrollbars of the main display.
#pragma once

#include "instance/gesture.h"

namespace tq {

/// Page areas and arrows scroll, knobs are dragged until the release; with shift held, a hundredth of the
/// way. Each scroll and zoom is reported.
void press_horscrollbar(Prseq& object, const Pointer& press);
void press_vertscrollbar(Prseq& object, const Pointer& press);

}  // namespace tq
