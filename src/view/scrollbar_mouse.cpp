#include "view/scrollbar_mouse.h"

#include <algorithm>
#include <cmath>

#include "instance/geometry.h"
#include "view/scrollbar.h"

namespace tq {

namespace {

using Bar = TQScrollbar;
using enum ScrollbarResult;

bool horizontal(const Bar& bar) { return bar.orientation == Bar::Orientation::Horizontal; }
double along(const Bar& bar, double x, double y) { return horizontal(bar) ? x : y; }
double start_of(const Bar& bar, const Rect& rect) { return along(bar, rect.x, rect.y); }

void set_zoom_from_knob(Bar& bar, double position) {
    if (!(bar.zoomknobrange > 0)) return;
    bar.zoomknobposition = std::max(bar.zoomknobminimum, std::min(position, bar.zoomknobmaximum));
    const double u =
        std::pow((bar.zoomknobposition - bar.zoomknobminimum) / bar.zoomknobrange, bar.zoomcurveexponent);
    TQScrollbar_SetZoomValue(bar, TQScrollbar_ZoomUnityValueToZoomValue(bar, u));
}

ScrollbarResult press_scroll_box(Bar& bar, double x, double y) {
    if (!bar.knobexists) return Nothing;
    const double point = along(bar, x, y);
    if (TQRectContainsPoint(bar.knob, x, y)) {
        bar.grab = Bar::Grab::Knob;
        bar.graboffset = point - start_of(bar, bar.knob);
        return ClickedInScrollbarBoxInsideKnob;
    }
    return bar.knobposition > point - start_of(bar, bar.scrollbox) ? ClickedInScrollbarBoxOutsideKnobLower
                                                                   : ClickedInScrollbarBoxOutsideKnobHigher;
}

ScrollbarResult press_arrows(Bar& bar, double x, double y) {
    const bool first = TQRectContainsPoint(bar.arrow0, x, y);
    bar.grab = first ? Bar::Grab::Arrow0 : Bar::Grab::Arrow1;
    return first ? ClickedInArrowBox0 : ClickedInArrowBox1;
}

ScrollbarResult press_zoom_box(Bar& bar, double point) {
    const bool on_knob = point >= bar.zoomknobposition && point <= bar.zoomknobposition + bar.zoomknobsize;
    bar.grab = Bar::Grab::ZoomKnob;
    bar.graboffset = on_knob ? point - bar.zoomknobposition : bar.zoomknobsize / 2;
    if (!on_knob) set_zoom_from_knob(bar, point - bar.graboffset);
    return ClickedInZoomBox;
}

}  // namespace

ScrollbarResult TQScrollbar_Click(Bar& bar, double x, double y, bool down) {
    bar.grab = Bar::Grab::Nothing;
    if (!down) return Nothing;
    if (TQRectContainsPoint(bar.scrollbox, x, y)) return press_scroll_box(bar, x, y);
    if (bar.hasarrows && bar.knobexists && TQRectContainsPoint(bar.arrows, x, y))
        return press_arrows(bar, x, y);
    if (bar.zoom != Bar::Zoom::None && TQRectContainsPoint(bar.zoombox, x, y))
        return press_zoom_box(bar, along(bar, x, y));
    return Nothing;
}

ScrollbarResult TQScrollbar_Drag(Bar& bar, double x, double y) {
    const double start = along(bar, x, y) - bar.graboffset;
    if (bar.grab == Bar::Grab::ZoomKnob) {
        set_zoom_from_knob(bar, start);
        return DraggedInZoomBox;
    }
    if (bar.grab != Bar::Grab::Knob) return Nothing;
    if (bar.knobrange > 0)
        TQScrollbar_SetScrollUnityValue(bar, (start - start_of(bar, bar.scrollbox)) / bar.knobrange);
    return DraggedInScrollbarBox;
}

}  // namespace tq
