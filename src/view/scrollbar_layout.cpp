#include "view/scrollbar_layout.h"

#include <algorithm>
#include <cmath>

#include "view/scrollbar.h"

namespace tq {

namespace {

constexpr double zoombox_length = 100, arrows_length = 32, shortest_knob = 20, zoomknob_margin = 10;

/// A stretch along the bar, over its whole thickness.
Rect along(const TQScrollbar& bar, double start, double length) {
    const Rect& r = bar.rect;
    return bar.orientation == TQScrollbar::Orientation::Horizontal
               ? Rect{r.x + start, r.y, length, bar.thickness}
               : Rect{r.x, r.y + start, bar.thickness, length};
}

bool calculate_knob_existence(TQScrollbar& bar) {
    if (bar.zoom == TQScrollbar::Zoom::None) return bar.totalpagesize >= bar.selectionpagesize;
    TQScrollbar_CalculateTotalPageSize(bar, bar.zoomvalue);
    if (bar.zoomvalue > bar.minimumzoom) return true;
    bar.selectionpagesize = bar.totalpagesize;
    bar.zoomunityvalue = 0;
    return false;
}

struct Stretch {
    double start, length;
};

/// Lays the components out and says where the zoom box and the scroll box are along the bar.
std::pair<Stretch, Stretch> calculate_components(TQScrollbar& bar, double length) {
    const double Z = bar.zoom == TQScrollbar::Zoom::None ? 0 : zoombox_length;
    const double A = bar.hasarrows && bar.knobexists ? arrows_length : 0;
    const bool zoom_first = bar.zoom == TQScrollbar::Zoom::AtStart;
    const Stretch zoom{zoom_first ? 0 : length - Z, Z};
    const Stretch scroll{zoom_first ? Z : 0, length - Z - A};
    const double arrows = scroll.start + scroll.length;
    bar.zoombox = along(bar, zoom.start, Z);
    bar.scrollbox = along(bar, scroll.start, scroll.length);
    bar.arrows = along(bar, arrows, A);
    bar.arrow0 = along(bar, arrows, A / 2);
    bar.arrow1 = along(bar, arrows + A / 2, A / 2);
    return {zoom, scroll};
}

void calculate_knob(TQScrollbar& bar, const Stretch& scrollbox) {
    const double share = bar.totalpagesize > 0 ? bar.selectionpagesize / bar.totalpagesize : 1;
    bar.knoblength = std::max(share * scrollbox.length, shortest_knob);
    bar.knobsize = std::max(0., std::min(bar.knoblength, scrollbox.length));
    bar.knobrange = scrollbox.length - bar.knobsize;
    bar.scrollvalue = TQScrollbar_ScrollUnityValueToScrollValue(bar, bar.scrollunityvalue);
    bar.knobposition = bar.scrollunityvalue * bar.knobrange;
    bar.knob = along(bar, scrollbox.start + bar.knobposition, bar.knobsize);
}

void calculate_zoom_knob(TQScrollbar& bar, const Stretch& zoombox) {
    bar.zoomknobminimum = zoombox.start + zoomknob_margin;
    bar.zoomknobmaximum = zoombox.start + zoombox.length - zoomknob_margin - bar.zoomknobsize;
    bar.zoomknobrange = bar.zoomknobmaximum - bar.zoomknobminimum;
    const double unity = std::clamp(TQScrollbar_ZoomValueToZoomUnityValue(bar, bar.zoomvalue), 0., 1.);
    bar.zoomknobposition =
        bar.zoomknobminimum + std::pow(unity, 1 / bar.zoomcurveexponent) * bar.zoomknobrange;
}

}  // namespace

void TQScrollbar_MakeCalculations(TQScrollbar& bar, const Rect& rect) {
    bar.rect = {0, 0, rect.width, rect.height};
    bar.knobexists = calculate_knob_existence(bar);
    const bool horizontal = bar.orientation == TQScrollbar::Orientation::Horizontal;
    auto [zoombox, scrollbox] = calculate_components(bar, horizontal ? rect.width : rect.height);
    calculate_knob(bar, scrollbox);
    if (bar.zoom != TQScrollbar::Zoom::None) calculate_zoom_knob(bar, zoombox);
}

}  // namespace tq
