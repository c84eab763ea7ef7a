// What an edit makes of many events.
#pragma once

#include <vector>

#include "history/recorders.h"
#include "instance/event_list.h"

namespace tq {

/// An edit's texts in the history: of one event, and of any other number.
struct EditName {
    const char *one, *many;
};

constexpr double shortest_event = 1;       ///< ms: what edits leave of an event at least
constexpr double longest_timeline = 1e12;  ///< ms, about thirty years

/// Gives events other times, within an edit; buffer ranges follow. What they were before.
std::vector<UndoEventSnapshot> retime(Prseq& object, const std::vector<EventTimes>& times);

/// Other times, velocities and curves for events, gathered first and done at once. What an event is already
/// is no change.
class EventChanges {
 public:
    /// In ms. No start is brought below 0.
    void times(Event& event, double start, double duration);
    /// Held in 0 to 127.
    void velocity(Event& event, double velocity);
    /// Of one of the event's curves.
    void points(Event& event, Bpf& bpf, BpfPoints points);

    /// Gives a track, which has no curves of that name, and its events new ones, at once; they go with the
    /// step.
    void new_curves(Prseq& object, Track& track, const BpfTypeValues& values);

    /// Does all of it as one step of the history; none when there is nothing to do.
    void make(Edit& edit, const EditName& name);

 private:
    bool empty() const { return times_.empty() && velocities_.empty() && curves_.empty() && came_.empty(); }

    std::vector<EventTimes> times_;
    std::vector<ValueChange> velocities_;
    std::vector<EventsBefore::Curve> curves_;
    std::vector<EventsBefore::CameType> came_;
};

}  // namespace tq
