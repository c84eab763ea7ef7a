// What a press and a drag do in a scrollbar.
#pragma once

#include "instance/view_records.h"

namespace tq {

enum class ScrollbarResult {
    Nothing,
    ClickedInArrowBox0,
    ClickedInArrowBox1,
    ClickedInZoomBox,
    ClickedInScrollbarBoxInsideKnob,
    ClickedInScrollbarBoxOutsideKnobLower,
    ClickedInScrollbarBoxOutsideKnobHigher,
    DraggedInScrollbarBox,
    DraggedInZoomBox
};

/// A press, or with `down` false the release, at a point relative to the scrollbar's part. A press beside the
/// zoom knob moves it there; what pages and arrows do is left to the owner.
ScrollbarResult TQScrollbar_Click(TQScrollbar& bar, double x, double y, bool down);
/// Moves what the press has grabbed to a point; the scroll or the zoom value follows.
ScrollbarResult TQScrollbar_Drag(TQScrollbar& bar, double x, double y);

}  // namespace tq
