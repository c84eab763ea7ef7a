// The events that a gesture drags: what they were at the press.
#pragma once

#include <vector>

#include "history/edit.h"
#include "instance/prseq.h"
#include "instance/snapshot.h"

namespace tq {

/// The selected events of the active track as they were. An event that leaves that track meanwhile is left
/// alone from then on.
class DraggedEvents {
 public:
    /// What a step gives an event.
    struct Values {
        double start, duration;  ///< ms
        double pitch;
    };
    explicit DraggedEvents(Prseq& object);
    /// Drags what is selected now instead.
    void take(Prseq& object);

    size_t size() const { return snapshots_.size(); }
    const std::vector<UndoEventSnapshot>& snapshots() const { return snapshots_; }
    /// The snapshots of those that are still on their track.
    std::vector<UndoEventSnapshot> in_document() const;
    const BeforeSteps& before() const { return before_; }
    Edit::EndOfSteps end() const { return {before_}; }
    /// Whether anything was written.
    bool changed() const { return changed_; }

    /// Gives each event the start, duration and pitch that `after` makes of its snapshot.
    template <typename After>
    void write(Prseq& object, After after) {
        std::vector<EventTimes> times;
        times.reserve(snapshots_.size());
        for (const UndoEventSnapshot& s : snapshots_) {
            if (!is_here(s)) continue;
            const Values values = after(s);
            times.push_back({s.event, values.start, values.duration});
            s.event->pitch = values.pitch;
        }
        write_times(object, times);
        changed_ = true;
    }
    void restore();

 private:
    bool is_here(const UndoEventSnapshot& s) const { return s.event->track == track_.get(); }
    void write_times(Prseq& object, const std::vector<EventTimes>& times);

    TrackRef track_;
    std::vector<UndoEventSnapshot> snapshots_;
    BeforeSteps before_;
    bool changed_ = false;
};

}  // namespace tq
