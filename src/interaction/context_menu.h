// The menus of the right button.
#pragma once

#include "instance/gesture.h"

namespace tq {

struct Prseq;

/// A right press in the main display: the mouse modes, and what can be done with the selection. An event
/// under the pointer is selected before; where curves are edited it is deselected.
void TQ_Prseq_Mouse_ClickRightMaindisplay(Prseq& object, const Pointer& press);
/// In the parameter display: which parameter is shown.
void TQ_Prseq_Mouse_ClickRightParameterdisplay(Prseq& object, const Pointer& press);

}  // namespace tq
