#include "edits/event_changes.h"

#include <algorithm>
#include <utility>

#include "history/edit.h"
#include "instance/prseq.h"
#include "model/bpfs.h"
#include "model/events.h"
#include "model/selected_events.h"
#include "model/track_info.h"

namespace tq {

std::vector<UndoEventSnapshot> retime(Prseq& object, const std::vector<EventTimes>& times) {
    std::vector<UndoEventSnapshot> before;
    before.reserve(times.size());
    for (const EventTimes& t : times) before.push_back(undo_snapshot(*t.event));
    write_event_times(object, times);
    for (const UndoEventSnapshot& s : before)
        if (s.duration != s.event->duration) fit_buffer_range(s);
    return before;
}

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

void EventChanges::new_curves(Prseq& object, Track& track, const BpfTypeValues& values) {
    const RemovedBpfType none{nullptr, std::ssize(track.bpftypes), track.activebpfindex, {}};
    BpfTypeRef type = TQ_Prseq_Tracks_AddBpfTypeToTrack(object, track.index, values.name, values.minimum,
                                                        values.maximum, values.default_);
    came_.push_back({&track, none});
    came_.back().type.type = std::move(type);
}

void EventChanges::make(Edit& edit, const EditName& name) {
    if (empty()) return edit.nothing();
    EventsBefore before;
    before.times = retime(edit.object(), times_);
    for (const ValueChange& change : velocities_) change.event->velocity = change.next;
    exchange_points(curves_);
    const size_t count = std::max({times_.size(), velocities_.size(), curves_.size()});
    before.velocities = std::move(velocities_);
    before.curves = std::move(curves_);
    before.came = std::move(came_);
    if (!before.came.empty()) {
        TQ_Prseq_Tracks_OutputTrackInfo(edit.object());
        prseq_show(edit.object(), Change::Types);
    }
    record_changed_events(edit, count == 1 ? name.one : name.many, std::move(before));
}

}  // namespace tq
