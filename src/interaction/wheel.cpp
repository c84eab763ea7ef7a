#include "interaction/wheel.h"

#include "instance/prseq.h"
#include "view/reports.h"
#include "view/scrollbar.h"
#include "view/synchronise.h"

namespace tq {

namespace {

constexpr double wheel_unit = 0.039062;

void scroll_horizontally(Prseq& object, double units) {
    TQScrollbar_Scroll(object.horscrollbar, -units * object.maindisplay.bigbarsize);
    object.horizontalscroll = object.horscrollbar.scrollunityvalue;
    synchronise_view(object);
    TQ_Prseq_Output_ScrollHor(object);
    prseq_show(object, Change::HorizontalView);
}

void scroll_vertically(Prseq& object, double units) {
    TQScrollbar_Scroll(object.vertscrollbar, -units * object.maindisplay.rowheight);
    object.verticalscroll = object.vertscrollbar.scrollunityvalue;
    synchronise_view(object);
    TQ_Prseq_Output_ScrollVert(object);
    prseq_show(object, Change::VerticalView);
}

}  // namespace

void scroll_maindisplay(Prseq& object, WheelTurn turn) {
    if (turn.dx != 0) {
        scroll_horizontally(object, turn.dx / wheel_unit);
    } else if (turn.dy != 0) {
        scroll_vertically(object, turn.dy / wheel_unit);
    }
}

}  // namespace tq
