#include "edits/arrangement.h"

#include <algorithm>
#include <vector>

#include "edits/event_changes.h"
#include "history/edit.h"
#include "history/recorders.h"
#include "instance/prseq.h"
#include "model/bars.h"
#include "model/events.h"
#include "model/tracks.h"

namespace tq {

namespace {

struct Range {
    double start, end;  ///< ms
    double length() const { return end - start; }
    /// Computed times of lines are off by less.
    bool holds(const Event& event) const {
        constexpr double rounding = 1e-3;
        return event.start >= start - rounding && event.start < end - rounding;
    }
};

Range loop_of(const Prseq& object) {
    const auto [start, end] = std::minmax(object.cycle.start, object.cycle.end);
    return {start, end};
}

class Arrangement {
 public:
    explicit Arrangement(Prseq& object) : object_(object), edit_(object, Change::Events) {}

    /// Those that start in a range come later, by so many ms.
    void move(const Range& range, double later) {
        for_each(range, [&](Event& event) {
            times_.push_back({&event, std::max(kept_time(object_, event.start + later), 0.), event.duration});
        });
    }
    void copy(const Range& range, double later) {
        for_each(range, [&](Event& event) {
            EventRef copy = TQ_Prseq_Events_DuplicateEvent(object_, event);
            copy->start = kept_time(object_, event.start + later);
            came_.push_back({std::move(copy), event.track});
        });
    }
    void remove(const Range& range) {
        for_each(range, [&](Event& event) { went_.push_back(&event); });
    }

    void make(const char* name) {
        if (times_.empty() && came_.empty() && went_.empty()) return edit_.nothing();
        ArrangedBefore before{.times = retime(object_, times_), .went = placed_events(went_), .came = came_};
        TQ_Prseq_Tracks_DeleteEventReferences(object_, went_);
        for (const PlacedEvent& come : came_) TQ_Prseq_Tracks_InsertEvent(object_, *come.track, come.event);
        record_arrangement(edit_, name, std::move(before));
    }

 private:
    template <typename Visit>
    void for_each(const Range& range, Visit visit) {
        for (const TrackRef& track : object_.tracks)
            track->events.touching(range.start, range.end, [&](Event& event) {
                if (range.holds(event)) visit(event);
            });
    }

    Prseq& object_;
    Edit edit_;
    std::vector<EventTimes> times_;
    std::vector<PlacedEvent> came_;
    std::vector<EventRef> went_;
};

Range behind(const Range& loop) { return {loop.end, longest_timeline}; }

}  // namespace

void repeat_loop(Prseq& object) {
    const Range loop = loop_of(object);
    Arrangement song(object);
    song.copy(loop, loop.length());
    if (loop.length() > 0) song.move(behind(loop), loop.length());
    song.make("Repeat Loop");
}

void insert_loop(Prseq& object) {
    const Range loop = loop_of(object);
    Arrangement song(object);
    if (loop.length() > 0) song.move({loop.start, longest_timeline}, loop.length());
    song.make("Insert Time");
}

void delete_loop(Prseq& object) {
    const Range loop = loop_of(object);
    Arrangement song(object);
    song.remove(loop);
    if (loop.length() > 0) song.move(behind(loop), -loop.length());
    song.make("Delete Time");
}

void swap_loop(Prseq& object) {
    const Range loop = loop_of(object), next{loop.end, loop.end + loop.length()};
    Arrangement song(object);
    song.move(loop, loop.length());
    song.move(next, -loop.length());
    song.make("Swap Loop");
}

}  // namespace tq
