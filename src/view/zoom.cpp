#include "view/zoom.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "instance/change.h"
#include "instance/prseq.h"
#include "model/timeline.h"
#include "view/maindisplay.h"
#include "view/reports.h"
#include "view/scrollbar.h"
#include "view/synchronise.h"

namespace tq {

namespace {

double held(double unity) { return std::isnan(unity) ? 0 : std::clamp(unity, 0., 1.); }

struct Axis {
    double Prseq::*value;
    TQScrollbar Prseq::*bar;
};
constexpr Axis horizontal_zoom{&Prseq::horizontalzoom, &Prseq::horscrollbar};
constexpr Axis vertical_zoom{&Prseq::verticalzoom, &Prseq::vertscrollbar};
constexpr Axis horizontal_scroll{&Prseq::horizontalscroll, &Prseq::horscrollbar};
constexpr Axis vertical_scroll{&Prseq::verticalscroll, &Prseq::vertscrollbar};

void set(Prseq& object, const Axis& axis, void (*setter)(TQScrollbar&, double), double unity) {
    object.*axis.value = held(unity);
    setter(object.*axis.bar, object.*axis.value);
    synchronise_view(object);
}

}  // namespace

void prseq_vertzoom(Prseq& object, double unity) {
    set(object, vertical_zoom, TQScrollbar_SetZoomUnityValue, unity);
    prseq_show(object, Change::VerticalView);
}

void prseq_horzoom(Prseq& object, double unity) {
    set(object, horizontal_zoom, TQScrollbar_SetZoomUnityValue, unity);
    prseq_show(object, Change::HorizontalView);
}

void prseq_vertscroll(Prseq& object, double unity) {
    set(object, vertical_scroll, TQScrollbar_SetScrollUnityValue, unity);
    prseq_show(object, Change::VerticalView);
}

void prseq_horscroll(Prseq& object, double unity) {
    set(object, horizontal_scroll, TQScrollbar_SetScrollUnityValue, unity);
    prseq_show(object, Change::HorizontalView);
}

ZoomScroll TQ_Prseq_Zoom_GetZoomScrollObjectNow(const Prseq& object) {
    const TQScrollbar &hs = object.horscrollbar, &vs = object.vertscrollbar;
    return {hs.zoomunityvalue, vs.zoomunityvalue, hs.scrollunityvalue, vs.scrollunityvalue};
}

void TQ_Prseq_Zoom_ZoomToGivenZoomAndScroll(Prseq& object, const ZoomScroll& view) {
    set(object, horizontal_zoom, TQScrollbar_SetZoomUnityValue, view.horizontalzoom);
    set(object, horizontal_scroll, TQScrollbar_SetScrollUnityValue, view.horizontalscroll);
    set(object, vertical_zoom, TQScrollbar_SetZoomUnityValue, view.verticalzoom);
    set(object, vertical_scroll, TQScrollbar_SetScrollUnityValue, view.verticalscroll);
    prseq_show(object, Change::HorizontalView);
    prseq_show(object, Change::VerticalView);
}

void prseq_resize_maxtime(Prseq& object, double ms) {
    extend_timeline(object, ms);
    object.timelinelengthasked = true;
    settle_timeline_length(object);
}

void settle_timeline_length(Prseq& object) {
    if (object.maindisplay.horizontalzoomcoefficient !=
        TQ_Prseq_Maindisplay_ZoomCoefficientHorizontal(object.timelinelength)) {
        synchronise_view(object);
        TQ_Prseq_Output_ZoomHor(object);
        TQ_Prseq_Output_ScrollHor(object);
        prseq_show(object, Change::TimelineLength);
    }
    if (std::exchange(object.timelinelengthasked, false)) TQ_Prseq_Output_Maxtime(object);
}

}  // namespace tq
