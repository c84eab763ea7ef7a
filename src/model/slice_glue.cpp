// The two edits that turn events into other events: one into two, and two into one.
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
    for (size_t i = 2; i < points.size();) {
        const BpfPoint &r = points[i - 2], &q = points[i - 1], &p = points[i];
        if (TQ_Utilities_PointOnLine(r.x, r.y, p.x, p.y, q.x, q.y))
            points.erase(points.begin() + static_cast<long>(i) - 1);
        else
            ++i;
    }
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
    double start = std::min(first.start, second.start);
    double span = std::max(first.end(), second.end()) - start;
    EventRef glued = TQ_Prseq_Events_DuplicateEvent(object, first);
    TQ_Prseq_Events_ResizeEvent(*glued, span, 0);
    EventRef tail = TQ_Prseq_Events_DuplicateEvent(object, second);
    TQ_Prseq_Events_SetEventStart(*tail, start);
    TQ_Prseq_Events_ResizeEvent(*tail, span, second.start - start);
    for (const BpfRef& bpf : tail->bpfs) {
        Bpf* joined = TQ_Prseq_Events_GetBpfWithGivenName(*glued, bpf->name());
        if (!joined) continue;
        joined->points.insert(joined->points.end(), bpf->points.begin(), bpf->points.end());
        sort_bpf_points(joined->points);
        end_at_one(joined->points);
        simplify(joined->points);
    }
    return glued;
}

}  // namespace tq
