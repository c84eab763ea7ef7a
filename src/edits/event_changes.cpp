#include "edits/event_changes.h"

#include <algorithm>
#include <utility>

#include "history/edit.h"
#include "instance/prseq.h"
#include "model/events.h"
#include "model/selected_events.h"

namespace tq {

void EventChanges::times(Event& event, double start, double duration) {
    start = std::max(start, std::min(event.start, 0.));
    if (start != event.start || duration != event.duration) times_.push_back({&event, start, duration});
}

void EventChanges::velocity(Event& event, double velocity) {
    constexpr double loudest = 127;
    velocity = std::clamp(velocity, 0., loudest);
    if (velocity != event.velocity) velocities_.push_back({&event, event.velocity, velocity});
}

void EventChanges::points(Event& event, Bpf& bpf, BpfPoints points) {
    if (points != bpf.points) curves_.push_back({{&event, &bpf}, std::move(points)});
}

std::vector<UndoEventSnapshot> EventChanges::write_times(Prseq& object) const {
    std::vector<UndoEventSnapshot> before;
    before.reserve(times_.size());
    for (const EventTimes& t : times_) before.push_back(undo_snapshot(*t.event));
    write_event_times(object, times_);
    for (const UndoEventSnapshot& s : before)
        if (s.duration != s.event->duration) fit_buffer_range(s);
    return before;
}

/// What they were is kept in their place.
void EventChanges::exchange_points() {
    for (auto& [curve, points] : curves_) {
        std::swap(curve.bpf->points, points);
        TQ_Prseq_Events_LookAgain(*curve.event);
    }
}

void EventChanges::make(Edit& edit, const EditName& name) {
    if (empty()) return edit.nothing();
    EventsBefore before;
    before.times = write_times(edit.object());
    for (const ValueChange& change : velocities_) change.event->velocity = change.next;
    exchange_points();
    const size_t count = std::max({times_.size(), velocities_.size(), curves_.size()});
    before.velocities = std::move(velocities_);
    before.curves = std::move(curves_);
    record_changed_events(edit, count == 1 ? name.one : name.many, std::move(before));
}

}  // namespace tq
