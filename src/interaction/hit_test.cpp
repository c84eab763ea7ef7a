#include "interaction/hit_test.h"

#include "instance/geometry.h"
#include "instance/prseq.h"
#include "model/tracks.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

constexpr double parameter_grip = 5, dragged_grip = parameter_grip + 10;  // pixels right of the left edge

/// Time at a display x.
double time_at(const Prseq& object, double x) {
    const MainDisplay& md = object.maindisplay;
    return TQ_Prseq_Maindisplay_CalculatePositionFromMouse(object, md, x + md.horizontalscroll);
}

/// The first event of a track that begins between two display x's and that `hit` takes.
template <typename Hit>
Event* first_beginning(const Prseq& object, const Track& track, double from, double to, Hit hit) {
    if (!track.visible) return nullptr;
    const double end = time_at(object, to + 1);  // a pixel more on both sides: `hit` decides
    Event* event = track.events.first_at_or_after(time_at(object, from - 1));
    while (event && event->start <= end && !hit(TQ_Prseq_Events_Rect(object, *event)))
        event = track.events.next(*event);
    return event && event->start <= end ? event : nullptr;
}

}  // namespace

Point event_space(const Prseq& object, const Pointer& pointer) {
    const MainDisplay& md = object.maindisplay;
    return {pointer.at.x - md.rect.x, pointer.at.y - md.rect.y + md.verticalscroll};
}

std::vector<Event*> events_touching(const Prseq& object, const Track& track, const Rect& area) {
    std::vector<Event*> found;
    // No event is narrower than some pixels, however short it is.
    const double from = time_at(object, area.x - minimum_event_width - 1),
                 to = time_at(object, area.x + area.width + 1);
    track.events.touching(from, to, [&](Event& event) {
        if (TQRectsIntersect(TQ_Prseq_Events_Rect(object, event), area)) found.push_back(&event);
    });
    return found;
}

Event* TQ_Prseq_Tracks_GetClickedEventInTrack(const Prseq& object, const Track& track, double x, double y) {
    if (!track.visible) return nullptr;
    std::vector<Event*> hit = events_touching(object, track, {x, y, 0, 0});
    return hit.empty() ? nullptr : hit.front();
}

long TQ_Prseq_Tracks_GetClickedEventIndexInTrack(const Prseq& object, const Track& track, double x,
                                                 double y) {
    const Event* event = TQ_Prseq_Tracks_GetClickedEventInTrack(object, track, x, y);
    return event ? track.events.index_of(*event) : -1;
}

EventRef event_under(const Prseq& object, const Pointer& pointer) {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    const Point at = event_space(object, pointer);
    return track ? TQ_Prseq_Tracks_GetClickedEventInTrack(object, *track, at.x, at.y) : nullptr;
}

EventRef event_or_end_under(const Prseq& object, const Pointer& pointer, double grip) {
    if (EventRef event = event_under(object, pointer)) return event;
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (!track || !track->visible) return nullptr;
    const Point at = event_space(object, pointer);
    const std::vector<Event*> ends = events_touching(object, *track, {at.x - grip, at.y, grip, 0});
    return ends.empty() ? nullptr : ends.front();
}

Event* TQ_Prseq_Tracks_GetClickedParameterEventInTrack(const Prseq& object, const Track& track, double x,
                                                       double y) {
    if (!(y >= 0 && y <= object.layout[Part::ParameterDisplay].height)) return nullptr;
    return first_beginning(object, track, x - parameter_grip, x,
                           [x](const Rect& rect) { return rect.x <= x && x <= rect.x + parameter_grip; });
}

Event* TQ_Prseq_Tracks_GetDraggedParameterEventInTrack(const Prseq& object, const Track& track, double x,
                                                       double) {
    return first_beginning(object, track, x - dragged_grip, x,
                           [x](const Rect& rect) { return rect.x <= x && x < rect.x + dragged_grip; });
}

std::vector<Event*> events_of_bar(const Prseq& object, const Track& track, double x) {
    constexpr double together = 1e-3;  // ms: computed times of lines are off by less
    std::vector<Event*> events;
    const Event* last = track.visible ? track.events.last_before(time_at(object, x + 1)) : nullptr;
    if (!last || TQ_Prseq_Events_Rect(object, *last).x + parameter_grip < x) return events;
    for (Event* event = track.events.first_at_or_after(last->start - together);
         event && event->start <= last->start; event = track.events.next(*event))
        events.push_back(event);
    return events;
}

}  // namespace tq
