#include "interaction/select_mode.h"

#include <algorithm>

#include "host/modifiers.h"
#include "instance/prseq.h"
#include "interaction/cursors.h"
#include "interaction/hit_test.h"
#include "interaction/marquee_gesture.h"
#include "interaction/move_gesture.h"
#include "interaction/resize_gesture.h"
#include "model/selection.h"
#include "model/tracks.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

constexpr double edge_grip = 3;  // pixels

/// Inside of the start, but on both sides of the end. Events that are to keep a middle have half of their
/// width there.
Edge edge_at(const Prseq& object, const Rect& rect, double x) {
    constexpr double part = 0.25;
    const double right = rect.x + rect.width,
                 inside = object.keep_middle ? std::min(edge_grip, rect.width * part) : edge_grip;
    if (x >= rect.x && x <= rect.x + inside) return Edge::Start;
    return x >= right - inside && x <= right + edge_grip ? Edge::End : Edge::Inside;
}

void select_clicked(Prseq& object, Event& event, bool toggle) {
    if (toggle) return event.track->events.select(event, !event.selected);
    if (event.selected) return;
    deselect_all_events(object);
    event.track->events.select(event, true);
}

}  // namespace

void press_in_select_mode(Prseq& object, const Pointer& press) {
    const bool shift = press.modifiers & modifier_shift;
    const EventRef event = event_or_end_under(object, press, edge_grip);
    if (!event) {
        if (!shift) deselect_all_events(object);
        list_selected_events(object);
        object.gesture = marquee_gesture(object, press);
        return;
    }
    select_clicked(object, *event, shift);
    list_selected_events(object);
    if (!event->selected) return;  // there is nothing to drag
    const Edge edge = edge_at(object, TQ_Prseq_Events_Rect(object, *event), event_space(object, press).x);
    if (edge == Edge::Inside)
        object.gesture = move_gesture(object, event, press);
    else
        object.gesture = resize_gesture(object, event, edge);
}

void hover_in_select_mode(Prseq& object, const Pointer& at) {
    const EventRef event = event_or_end_under(object, at, edge_grip);
    const Edge edge = event ? edge_at(object, TQ_Prseq_Events_Rect(object, *event), event_space(object, at).x)
                            : Edge::Inside;
    TQ_Prseq_SetMouseCursorFromIcon(object, edge == Edge::Start ? CursorResizeLeft
                                            : edge == Edge::End ? CursorResizeRight
                                                                : CursorArrow);
}

}  // namespace tq
