// Where the components of a scrollbar are.
#pragma once

#include "instance/view_records.h"

namespace tq {

/// Page size, knob and components of a scrollbar in `rect` (its part of the box). At the least zoom
/// everything is visible: there is no knob, and the arrows vanish.
void TQScrollbar_MakeCalculations(TQScrollbar& bar, const Rect& rect);

}  // namespace tq
