#include "interaction/wheel.h"

#include "instance/prseq.h"
#include "interaction/view_axis.h"
#include "view/scrollbar.h"
#include "view/trackdisplay.h"

namespace tq {

namespace {

constexpr double wheel_unit = 0.039062;

}  // namespace

void scroll_maindisplay(Prseq& object, WheelTurn turn) {
    if (turn.dx != 0) {
        scroll_axis(object, horizontal_axis, -turn.dx / wheel_unit * horizontal_axis.step(object));
    } else if (turn.dy != 0) {
        scroll_axis(object, vertical_axis, -turn.dy / wheel_unit * vertical_axis.step(object));
    }
}

void scroll_trackdisplay(Prseq& object, WheelTurn turn) {
    TQScrollbar bar = trackdisplay_of(object).scrollbar;
    if (turn.dy == 0 || !bar.knobexists) return;
    TQScrollbar_Scroll(bar, -turn.dy / wheel_unit * track_row_height);
    object.trackscrollbar = bar;
    prseq_show(object, Change::TrackDisplay);
}

}  // namespace tq
