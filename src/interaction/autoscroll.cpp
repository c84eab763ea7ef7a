#include "interaction/autoscroll.h"

#include <algorithm>
#include <cmath>

#include "host/host.h"
#include "instance/prseq.h"
#include "interaction/pointer.h"
#include "interaction/view_axis.h"

namespace tq {

namespace {

/// How far a place lies before (below 0) or after a stretch; 0 within.
double beyond(double place, double begin, double length) {
    if (place < begin) return place - begin;
    return place >= begin + length ? place - begin - length : 0;
}

int side(double place, double begin, double length) {
    return place < begin ? -1 : place >= begin + length ? 1 : 0;
}

Outside outside_of(const Prseq& object, Point at) {
    if (object.gesture->autoscroll == Autoscroll::Both)
        return TQ_Prseq_Mouse_DraggedOutsideMainDisplayRect(object.maindisplay.rect, at);
    if (object.gesture->autoscroll == Autoscroll::Horizontal)
        return TQ_Prseq_Mouse_DraggedOutsideTimeDisplayRect(object.layout[Part::TimeDisplay], at);
    return {};
}

/// A tenth of a main division, or a row.
void prseq_scrollbarclock_dragOutsideMaindisplay_start(Prseq& object, const Outside& outside) {
    constexpr double part = 10;
    clock_fdelay(*object.gesture->repeat, outside.interval());
    if (outside.right)
        scroll_axis(object, horizontal_axis, outside.right * horizontal_axis.step(object) / part);
    if (outside.down) scroll_axis(object, vertical_axis, outside.down * vertical_axis.step(object));
}

}  // namespace

double Outside::interval() const {
    constexpr double longest = 1000;
    return std::min(longest, longest / std::max(1., std::trunc(distance)));
}

Outside TQ_Prseq_Mouse_DraggedOutsideMainDisplayRect(const Rect& rect, Point at) {
    return {
        side(at.x, rect.x, rect.width), side(at.y, rect.y, rect.height),
        std::max(std::abs(beyond(at.x, rect.x, rect.width)), std::abs(beyond(at.y, rect.y, rect.height)))};
}

Outside TQ_Prseq_Mouse_DraggedOutsideTimeDisplayRect(const Rect& rect, Point at) {
    return {side(at.x, rect.x, rect.width), 0, std::abs(beyond(at.x, rect.x, rect.width))};
}

void autoscroll(Prseq& object, Point at, unsigned modifiers) {
    const Outside outside = outside_of(object, at);
    if (object.gesture->autoscroll == Autoscroll::None) return;
    if (!outside) return object.gesture->repeat.reset();
    object.gesture->repeat =
        std::make_unique<Clock>(object.host().scheduler, object, [&object, outside, at, modifiers] {
            prseq_scrollbarclock_dragOutsideMaindisplay_start(object, outside);
            object.gesture->step(object, pointer_at(object, at.x, at.y, modifiers));
            jbox_redraw(object);
        });
    prseq_scrollbarclock_dragOutsideMaindisplay_start(object, outside);
}

}  // namespace tq
