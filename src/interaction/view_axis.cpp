#include "interaction/view_axis.h"

#include "instance/prseq.h"
#include "view/reports.h"
#include "view/scrollbar.h"
#include "view/synchronise.h"

namespace tq {

namespace {

double main_division(const Prseq& object) { return object.maindisplay.bigbarsize; }
double row(const Prseq& object) { return object.maindisplay.rowheight; }

}  // namespace

const ViewAxis horizontal_axis{Part::HorScrollbar,        &Geometry::horscrollbar, &Prseq::horizontalzoom,
                               &Prseq::horizontalscroll,  main_division,           TQ_Prseq_Output_ZoomHor,
                               TQ_Prseq_Output_ScrollHor, Change::HorizontalView};
const ViewAxis vertical_axis{
    Part::VertScrollbar,      &Geometry::vertscrollbar,   &Prseq::verticalzoom, &Prseq::verticalscroll, row,
    TQ_Prseq_Output_ZoomVert, TQ_Prseq_Output_ScrollVert, Change::VerticalView};

void scroll_axis(Prseq& object, const ViewAxis& axis, double pixels) {
    TQScrollbar_Scroll(object.*axis.bar, pixels);
    axis_scrolled(object, axis);
}

void axis_scrolled(Prseq& object, const ViewAxis& axis) {
    object.*axis.scroll = (object.*axis.bar).scrollunityvalue;
    synchronise_view(object);
    axis.report_scroll(object);
    prseq_show(object, axis.change);
}

void axis_zoomed(Prseq& object, const ViewAxis& axis) {
    object.*axis.zoom = (object.*axis.bar).zoomunityvalue;
    synchronise_view(object);
    axis.report_zoom(object);
    prseq_show(object, axis.change);
}

}  // namespace tq
