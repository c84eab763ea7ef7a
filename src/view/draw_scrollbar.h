// What a scrollbar looks like.
#pragma once

#include "host/graphics.h"
#include "instance/view_records.h"

namespace tq {

/// Page area, knob, arrows and zoom box, where TQScrollbar_MakeCalculations has laid them out.
void TQScrollbar_Draw(const TQScrollbar& bar, Graphics& g);

}  // namespace tq
