// The events that a gesture drags: what they were at the press.
#pragma once

#include <vector>

#include "history/edit.h"
#include "instance/prseq.h"
#include "instance/snapshot.h"
#include "model/selected_events.h"

namespace tq {

/// The rectangle of the document that events take, and how far it can be moved.
struct DraggedExtent {
    double first_start = 0, end = 0;         ///< ms
    double low_pitch = 0, high_pitch = 131;  ///< semitones

    /// What of a way in ms can be gone: nothing begins before 0.
    double held_later(double ms) const;
    /// The same in semitones: no pitch leaves the editor's, or leaves it farther.
    double held_higher(double semitones) const;
};

/// The selected events, of all visible tracks, as they were. An event that leaves the document meanwhile is
/// left alone from then on.
class DraggedEvents {
 public:
    /// What a step gives an event.
    struct Values {
        double start, duration;  ///< ms
        double pitch;
    };
    explicit DraggedEvents(Prseq& object);
    /// Drags these instead.
    void take(const std::vector<EventRef>& events) { snapshots_ = undo_snapshots(events); }

    size_t size() const { return snapshots_.size(); }
    const std::vector<UndoEventSnapshot>& snapshots() const { return snapshots_; }
    /// Of the snapshots.
    DraggedExtent extent() const;
    /// The snapshots of those that are still on a track.
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
        write_event_times(object, times);
        changed_ = true;
    }
    void restore();
    /// After durations were written: a range of a buffer ends with its event, or where it ended when the
    /// event is long enough.
    void fit_buffer_ranges();

 private:
    static bool is_here(const UndoEventSnapshot& s) { return s.event->track; }

    std::vector<UndoEventSnapshot> snapshots_;
    BeforeSteps before_;
    bool changed_ = false;
};

}  // namespace tq
