#include "interaction/parameter_gesture.h"

#include <fmt/printf.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_set>

#include "history/edit.h"
#include "history/recorders.h"
#include "host/modifiers.h"
#include "instance/geometry.h"
#include "instance/prseq.h"
#include "instance/utilities.h"
#include "interaction/hit_test.h"
#include "model/parameters.h"
#include "model/tracks.h"
#include "view/tiptool.h"

namespace tq {

namespace {

Point in_lane(const Prseq& object, const Pointer& pointer) {
    const Rect& lane = object.layout[Part::ParameterDisplay];
    return {pointer.at.x - lane.x, pointer.at.y - lane.y};
}

/// 1 at the lane's top and above, 0 at its bottom and below.
double unity_at(const Prseq& object, Point point) {
    const double height = object.layout[Part::ParameterDisplay].height;
    return std::clamp((height - point.y) / height, 0., 1.);
}

class ParameterGesture final : public Gesture {
 public:
    ParameterGesture(Prseq& object, Track& track)
        : track_(&track),
          parameter_(track.displayedparameter),
          covered_(track.events.size()),
          before_(before_steps(object)) {}

    void press(Prseq& object, const Pointer& at) {
        const Point point = in_lane(object, at);
        if (object.lane_by_time) return press_by_time(object, at);
        grabbed_ = TQ_Prseq_Tracks_GetClickedParameterEventInTrack(object, *track_, point.x, point.y);
        if (!grabbed_) return;
        Edit edit(object, Edit::Step{Change::ParameterDisplay});
        set(object, grabbed_, at);
    }

    void step(Prseq& object, const Pointer& to) override {
        if (object.lane_by_time) return step_by_time(object, to);
        const EventRef event =
            to.modifiers & modifier_shift ? grabbed_ : event_at(object, in_lane(object, to));
        if (!event || event->track != track_.get()) return;
        Edit edit(object, Edit::Step{Change::ParameterDisplay});
        set(object, event, to);
        if (last_ && last_->track == track_.get()) fill(*event, *last_);
        last_ = event;
    }

    /// Also when no event was hit: a press in the lane is one step of the history.
    void commit(Prseq& object) override {
        std::erase_if(changes_, [this](const ValueChange& c) { return c.event->track != track_.get(); });
        for (ValueChange& change : changes_) change.next = event_value(*change.event, parameter_);
        Edit edit(object, Edit::EndOfSteps{before_});
        TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsParameter(edit, std::move(changes_), parameter_,
                                                                covered_);
    }

    void rollback(Prseq& object) override {
        Edit edit(object, Edit::Step{Change::ParameterDisplay});
        for (const ValueChange& change : changes_)
            set_event_value(*change.event, parameter_, change.previous);
        edit.taken_back(before_);
    }

 private:
    /// Where the pointer has drawn: ms and unity.
    struct Drawn {
        double ms, unity;
    };

    void press_by_time(Prseq& object, const Pointer& at) {
        const Point point = in_lane(object, at);
        if (point.y < 0) return;
        take_bar(object, point);
        drawn_ = Drawn{at.ms, unity_at(object, point)};
        Edit edit(object, Edit::Step{Change::ParameterDisplay});
        for (const EventRef& event : bar_) set(object, event, at);
    }

    /// On the straight line from where the pointer was: what begins on the way, and the bar under it. With
    /// shift held, the bar that was pressed alone.
    void step_by_time(Prseq& object, const Pointer& to) {
        Edit edit(object, Edit::Step{Change::ParameterDisplay});
        if (!(to.modifiers & modifier_shift)) {
            const Point point = in_lane(object, to);
            const Drawn now{to.ms, unity_at(object, point)};
            if (track_->visible && drawn_) draw_between(*drawn_, now);
            drawn_ = now;
            take_bar(object, point);
        }
        for (const EventRef& event : bar_)
            if (event->track == track_.get()) set(object, event, to);
    }

    void take_bar(const Prseq& object, Point point) {
        const std::vector<Event*> bar = events_of_bar(object, *track_, point.x);
        bar_.assign(bar.begin(), bar.end());
    }

    void draw_between(const Drawn& from, const Drawn& to) {
        const auto [first, last] = std::minmax(from.ms, to.ms);
        Event* event = track_->events.first_at_or_after(first);
        for (; event && event->start <= last; event = track_->events.next(*event)) {
            const double way = to.ms == from.ms ? 1 : (event->start - from.ms) / (to.ms - from.ms);
            remember(event);
            TQ_Prseq_Parameters_CalculateEventParameterValue(*track_, *event,
                                                             std::lerp(from.unity, to.unity, way));
        }
    }

    EventRef event_at(const Prseq& object, Point point) const {
        return TQ_Prseq_Tracks_GetDraggedParameterEventInTrack(object, *track_, point.x, point.y);
    }

    void set(Prseq& object, const EventRef& event, const Pointer& at) {
        remember(event);
        const double unity = unity_at(object, in_lane(object, at));
        const double value = TQ_Prseq_Parameters_CalculateEventParameterValue(*track_, *event, unity);
        TQ_Prseq_Tiptool_Set(object, fmt::sprintf("%.2f", value), at.at.x, at.at.y,
                             object.layout[Part::ParameterDisplay]);
    }

    /// The events between two get values on the straight line between theirs.
    void fill(const Event& one, const Event& other) {
        const auto range = parameter_range(*track_, parameter_);
        if (!range) return;
        double i = static_cast<double>(track_->events.index_of(one)),
               j = static_cast<double>(track_->events.index_of(other));
        const double from = event_value(one, parameter_), to = event_value(other, parameter_);
        const Event& first = i < j ? one : other;
        const double end = std::max(i, j);
        Event* event = track_->events.next(first);
        for (double k = std::min(i, j) + 1; k < end; ++k, event = track_->events.next(*event)) {
            remember(event);
            set_event_value(*event, parameter_, on_steps(linearInterpolation(k, i, j, from, to), *range));
        }
    }

    static double on_steps(double value, const ParameterRange& range) {
        if (range.steps < 2) return value;
        const double unity = TQ_Utilities_RoundValueWithSteps(range.unity(value), 1, range.steps);
        return scale(unity, 0, 1, range.minimum, range.maximum);
    }

    /// What the event was when the gesture came to it for the first time.
    void remember(const EventRef& event) {
        if (!seen_.insert(event.get()).second) return;
        changes_.push_back({event, event_value(*event, parameter_), 0});
    }

    TrackRef track_;
    Symbol parameter_;
    size_t covered_;  ///< the events that the step of the history is about
    BeforeSteps before_;
    EventRef grabbed_, last_;
    std::vector<EventRef> bar_;  ///< where the lane is drawn by time: what was set last
    std::optional<Drawn> drawn_;
    std::vector<ValueChange> changes_;
    std::unordered_set<const Event*> seen_;
};

}  // namespace

std::unique_ptr<Gesture> parameter_gesture(Prseq& object, const Pointer& press) {
    Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (!track) return nullptr;
    auto gesture = std::make_unique<ParameterGesture>(object, *track);
    gesture->press(object, press);
    return gesture;
}

}  // namespace tq
