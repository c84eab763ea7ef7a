#include "view/sector.h"

#include <algorithm>
#include <cmath>

#include "instance/geometry.h"
#include "instance/prseq.h"
#include "view/scrollbar.h"

namespace tq {

namespace {

constexpr double row_height_at_zoom_1 = 8;

/// A scrollbar as it would be at a zoom. Its own zoom is taken as it is: after the box was resized, the zoom
/// value may be another than the one its unity value stands for.
TQScrollbar at_zoom(TQScrollbar bar, double zoomunity) {
    if (zoomunity != bar.zoomunityvalue) TQScrollbar_SetZoomUnityValue(bar, zoomunity);
    TQScrollbar_CalculateTotalPageSize(bar, bar.zoomvalue);
    return bar;
}

double ratio_or_zero(double a, double b) { return b == 0 ? 0 : a / b; }

struct Axis {
    double zoom, scroll;
};

Axis vertical_axis(TQScrollbar vs, const Sector& sector) {
    double wanted = vs.selectionpagesize / (sector.span * row_height_at_zoom_1);
    double unity = std::clamp(TQScrollbar_ZoomValueToZoomUnityValue(vs, wanted), 0., 1.);
    double zoom = TQScrollbar_ZoomUnityValueToZoomValue(vs, unity);
    double total = TQScrollbar_CalculateTotalPageSize(vs, zoom);
    double below_top = (sector.toppitch + 1) * zoom * row_height_at_zoom_1;
    return {unity, ratio_or_zero(total - below_top, total - vs.selectionpagesize)};
}

Axis horizontal_axis(const TQScrollbar& hs, const Sector& sector, double timelinelength) {
    double total = hs.selectionpagesize * timelinelength / sector.duration;
    if (!std::isfinite(total))
        return {1, sector.start / timelinelength};  // what shorter and shorter ones come to
    double unity = TQScrollbar_ZoomValueToZoomUnityValue(hs, TQScrollbar_CalculateZoom(hs, total));
    return {std::clamp(unity, 0., 1.),
            ratio_or_zero(total * sector.start / timelinelength, total - hs.selectionpagesize)};
}

}  // namespace

Sector TQ_Prseq_Zoom_CalculateSectorForGivenZoomAndScroll(const Prseq& object, const ZoomScroll& view) {
    const TQScrollbar hs = at_zoom(object.horscrollbar, view.horizontalzoom);
    const TQScrollbar vs = at_zoom(object.vertscrollbar, view.verticalzoom);
    const double row = row_height_at_zoom_1 * vs.zoomvalue;
    const double above = TQScrollbar_ScrollUnityValueToScrollValue(vs, view.verticalscroll);
    const double left = TQScrollbar_ScrollUnityValueToScrollValue(hs, view.horizontalscroll);
    return {.start = object.timelinelength * left / hs.totalpagesize,
            .toppitch = (vs.totalpagesize - above) / row - 1,
            .duration = object.timelinelength * hs.selectionpagesize / hs.totalpagesize,
            .span = vs.selectionpagesize / row};
}

ZoomScroll TQ_Prseq_Zoom_CalculateZoomAndScrollValuesForGivenSector(const Prseq& object,
                                                                    const Sector& sector) {
    const Axis vertical = vertical_axis(object.vertscrollbar, sector);
    const Axis horizontal = horizontal_axis(object.horscrollbar, sector, object.timelinelength);
    return {horizontal.zoom, vertical.zoom, horizontal.scroll, vertical.scroll};
}

Sector TQ_Prseq_Zoom_MakeSector(double start, double end, double toppitch, double bottompitch) {
    return {start, toppitch, end - start, 1 + (toppitch - bottompitch)};
}

Sector sector_between(const Sector& from, const Sector& to, double position) {
    auto between = [position](double a, double b) { return scale(position, 0, 1, a, b); };
    return {between(from.start, to.start), between(from.toppitch, to.toppitch),
            between(from.duration, to.duration), between(from.span, to.span)};
}

}  // namespace tq
