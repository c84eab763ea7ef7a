// The two edits that turn events into other events: one into two, and two into one.
#include "model/slice_glue.h"

#include <algorithm>

#include "instance/geometry.h"
#include "instance/prseq.h"
#include "model/bpfs.h"
#include "model/events.h"

namespace tq {

namespace {

constexpr double shortest_slice = 10;  // ms

void slice_buffer_range(const Event& event, Event& left, Event& right) {
    if (!event.linked) return;
    BufferRange& l = left.make_link();
    if (left.duration > l.end - l.start) {  // the range is over before the cut
        right.linked.reset();
        return;
    }
    l.end = l.start + left.duration;
    right.make_link().start = l.end;
}

double y_between(const BpfPoint& a, const BpfPoint& b, double x) {
    return a.x == b.x ? b.y : linearInterpolation(x, a.x, b.x, a.y, b.y);
}

/// The curve up to the cut: points keep their time, the first beyond 1 is moved onto the line at 1.
void keep_left_of_cut(BpfPoints& points, double stretch) {
    for (BpfPoint& point : points) point.x *= stretch;
    auto beyond = std::find_if(points.begin() + 1, points.end(), [](const BpfPoint& p) { return p.x >= 1; });
    if (beyond == points.end()) beyond = points.end() - 1;
    *beyond = {1, y_between(beyond[-1], *beyond, 1)};
    points.erase(beyond + 1, points.end());
}

/// The curve from the cut on: points keep their time, the last before 0 is moved onto the line at 0.
void keep_right_of_cut(BpfPoints& points, double stretch) {
    double shift = points.back().x * stretch - 1;
    for (BpfPoint& point : points) point.x = point.x * stretch - shift;
    points.back().x = 1;
    auto after = std::find_if(points.begin() + 1, points.end(), [](const BpfPoint& p) { return p.x >= 0; });
    if (after == points.end()) after = points.end() - 1;
    after[-1] = {0, y_between(after[-1], *after, 0)};
    points.erase(points.begin(), after - 1);
}

/// What was computed to end at 1 may have missed it by a rounding error.
void end_at_one(BpfPoints& points) {
    for (BpfPoint& point : points) point.x = std::min(point.x, 1.);
    points.back().x = 1;
}

/// Takes away points that lie exactly on the line between their neighbours.
void simplify(BpfPoints& points) {
    size_t kept = 0;
    for (const BpfPoint p : points) {
        const bool straight =
            kept >= 2 && TQ_Utilities_PointOnLine(points[kept - 2].x, points[kept - 2].y, p.x, p.y,
                                                  points[kept - 1].x, points[kept - 1].y);
        if (straight) --kept;
        points[kept++] = p;
    }
    points.erase(points.begin() + static_cast<long>(kept), points.end());
}

/// Appends the curves of a copy of an event, over the time of what they are glued to.
void append_curves(Prseq& object, const Event& event, Event& glued) {
    const EventRef tail = TQ_Prseq_Events_DuplicateEvent(object, event);
    TQ_Prseq_Events_SetEventStart(*tail, glued.start);
    TQ_Prseq_Events_ResizeEvent(*tail, glued.duration, event.start - glued.start);
    for (const BpfRef& bpf : tail->bpfs)
        if (Bpf* joined = TQ_Prseq_Events_GetBpfWithGivenName(glued, bpf->name()))
            joined->points.insert(joined->points.end(), bpf->points.begin(), bpf->points.end());
}

}  // namespace

std::optional<Slices> TQ_Prseq_Events_SliceEvent(Prseq& object, const Event& event, double position) {
    if (position < event.start + shortest_slice || position >= event.end()) return {};
    Slices slices{TQ_Prseq_Events_DuplicateEvent(object, event),
                  TQ_Prseq_Events_DuplicateEvent(object, event)};
    double left_duration = position - event.start, right_duration = event.duration - left_duration;
    TQ_Prseq_Events_SetEventTimes(*slices.left, event.start, left_duration);
    TQ_Prseq_Events_SetEventTimes(*slices.right, position, right_duration);
    slice_buffer_range(event, *slices.left, *slices.right);
    for (const BpfRef& bpf : slices.left->bpfs) keep_left_of_cut(bpf->points, event.duration / left_duration);
    for (const BpfRef& bpf : slices.right->bpfs)
        keep_right_of_cut(bpf->points, event.duration / right_duration);
    return slices;
}

EventRef TQ_Prseq_Events_GlueEvents(Prseq& object, const Event& first, const Event& second) {
    const Event* const both[] = {&first, &second};
    return glue_events(object, both);
}

EventRef glue_events(Prseq& object, std::span<const Event* const> events) {
    EventRef glued = TQ_Prseq_Events_DuplicateEvent(object, *events.front());
    double end = glued->end();
    for (const Event* event : events) end = std::max(end, event->end());
    TQ_Prseq_Events_ResizeEvent(*glued, end - glued->start, 0);
    for (const Event* event : events.subspan(1)) append_curves(object, *event, *glued);
    for (const BpfRef& bpf : glued->bpfs) {
        sort_bpf_points(bpf->points);
        end_at_one(bpf->points);
        simplify(bpf->points);
    }
    return glued;
}

}  // namespace tq
