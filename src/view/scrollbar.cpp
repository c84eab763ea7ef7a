#include "view/scrollbar.h"

#include <algorithm>

namespace tq {

TQScrollbar TQScrollbar_Create(TQScrollbar::Orientation orientation, bool hasarrows, TQScrollbar::Zoom zoom) {
    TQScrollbar bar;
    bar.orientation = orientation;
    bar.hasarrows = hasarrows;
    bar.zoom = zoom;
    return bar;
}

double TQScrollbar_Scale(double v, double a, double b, double c, double d) {
    return a == b ? c : (d - c) * (v - a) / (b - a) + c;
}

double TQScrollbar_ZoomUnityValueToZoomValue(const TQScrollbar& bar, double unity) {
    return TQScrollbar_Scale(unity, 0, 1, bar.minimumzoom, bar.maximumzoom);
}

double TQScrollbar_ZoomValueToZoomUnityValue(const TQScrollbar& bar, double zoom) {
    return TQScrollbar_Scale(zoom, bar.minimumzoom, bar.maximumzoom, 0, 1);
}

double TQScrollbar_CalculateTotalPageSize(TQScrollbar& bar, double zoom) {
    return bar.totalpagesize = TQScrollbar_Scale(zoom, bar.minimumzoom, bar.maximumzoom,
                                                 bar.selectionpagesize, bar.maximumpagesize);
}

double TQScrollbar_CalculateZoom(const TQScrollbar& bar, double totalpagesize) {
    return TQScrollbar_Scale(totalpagesize, bar.selectionpagesize, bar.maximumpagesize, bar.minimumzoom,
                             bar.maximumzoom);
}

double TQScrollbar_ScrollUnityValueToScrollValue(const TQScrollbar& bar, double unity) {
    return unity * (bar.totalpagesize - bar.selectionpagesize);
}

double TQScrollbar_ScrollValueToScrollUnityValue(const TQScrollbar& bar, double value) {
    return TQScrollbar_Scale(value, 0, bar.totalpagesize - bar.selectionpagesize, 0, 1);
}

void TQScrollbar_SetZoomUnityValue(TQScrollbar& bar, double unity) {
    bar.zoomunityvalue = std::clamp(unity, 0., 1.);
    bar.zoomvalue = TQScrollbar_ZoomUnityValueToZoomValue(bar, bar.zoomunityvalue);
}

void TQScrollbar_SetScrollUnityValue(TQScrollbar& bar, double unity) {
    bar.scrollunityvalue = std::clamp(unity, 0., 1.);
    bar.scrollvalue = TQScrollbar_ScrollUnityValueToScrollValue(bar, bar.scrollunityvalue);
}

void TQScrollbar_Scroll(TQScrollbar& bar, double pixels) {
    double room = bar.totalpagesize - bar.selectionpagesize;
    if (room > 0) TQScrollbar_SetScrollUnityValue(bar, bar.scrollunityvalue + pixels / room);
}

void TQScrollbar_SetZoomValue(TQScrollbar& bar, double zoom) {
    bar.zoomvalue = std::max(bar.minimumzoom, std::min(zoom, bar.maximumzoom));
    bar.zoomunityvalue = TQScrollbar_ZoomValueToZoomUnityValue(bar, bar.zoomvalue);
}

void TQScrollbar_SetMinMaxZoomValue(TQScrollbar& bar, double minimum, double maximum) {
    bar.minimumzoom = minimum;
    bar.maximumzoom = maximum;
    bar.zoomvalue = std::max(minimum, std::min(bar.zoomvalue, maximum));
}

}  // namespace tq
