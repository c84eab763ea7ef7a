#include "view/mousewheel.h"

#include "playback/output.h"
#include "shell/change.h"
#include "shell/prseq.h"
#include "view/layout.h"
#include "view/scrollbar.h"
#include "view/synchronise.h"

namespace tq {

namespace {

constexpr double wheel_unit = 0.039062;

void scroll_horizontally(Prseq& object, double units) {
    TQScrollbar_Scroll(object.horscrollbar, -units * object.maindisplay.bigbarsize);
    object.horizontalscroll = object.horscrollbar.scrollunityvalue;
    TQ_Prseq_Output_ScrollHor(object);
    prseq_show(object, Change::HorizontalView);
}

void scroll_vertically(Prseq& object, double units) {
    TQScrollbar_Scroll(object.vertscrollbar, -units * object.maindisplay.rowheight);
    object.verticalscroll = object.vertscrollbar.scrollunityvalue;
    TQ_Prseq_Output_ScrollVert(object);
    prseq_show(object, Change::VerticalView);
}

}  // namespace

void prseq_mousewheel(Prseq& object, double x, double y, long, double dx, double dy) {
    if (whichpartisthemouse(object, x, y) != Part::MainDisplay) return;
    synchronise_view(object);
    if (dx != 0) {
        scroll_horizontally(object, dx / wheel_unit);
    } else if (dy != 0) {
        scroll_vertically(object, dy / wheel_unit);
    }
}

}  // namespace tq
