#include "interaction/insert_gesture.h"

#include <fmt/printf.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "edits/event_edits.h"
#include "history/edit.h"
#include "history/undoredo.h"
#include "instance/prseq.h"
#include "interaction/pointer.h"
#include "model/bars.h"
#include "model/events.h"
#include "model/selection.h"
#include "model/timeline.h"

namespace tq {

namespace {

constexpr double shortest = 1;  // ms

/// To the grid of the ruler: beats, or parts of the main divisions. Where there is no bar, nothing is near.
double snapped_start(const Prseq& object, double ms) {
    const bool in_bars = object.timedisplaytype == static_cast<long>(TimeDisplayType::BarsBeats);
    if (!object.snaptime || !in_bars || divides_beats(object)) return Snap(object).time(ms);
    const double beat = TQ_Prseq_Meter_CalculateSnappedNotePosition(object.meter, ms);
    return beat >= 0 ? beat : ms;
}

void tell(Prseq& object, const Event& event, const Pointer& at) {
    show_tiptool(object, at,
                 fmt::sprintf("Start: %.2f ms\nDuration: %.2f ms\nPitch: %.2f", event.start, event.duration,
                              event.pitch));
}

/// What is clicked lasts a step of the grid.
void last(Prseq& object, const EventRef& event, double ms) {
    Edit edit(object, Edit::MoreOfLastItem{});
    const std::array times{EventTimes{event, event->start, std::max(ms, shortest)}};
    TQ_Prseq_Events_SetEventsTimes(times);
}

class InsertGesture final : public Gesture {
 public:
    explicit InsertGesture(EventRef event) : event_(std::move(event)) {}

    void step(Prseq& object, const Pointer& to) override {
        if (!event_->track || !event_->track->visible) return;
        Edit edit(object, Edit::MoreOfLastItem{});
        const double duration = std::max(to.ms - event_->start, shortest);
        event_->pitch = pitch_to_insert(object, to);
        const std::array times{EventTimes{event_, event_->start,
                                          std::max(Snap(object).length(event_->start, duration), shortest)}};
        TQ_Prseq_Events_SetEventsTimes(times);
        cover_event(object, *event_);
        tell(object, *event_, to);
    }

    /// The insertion stands in the history already.
    void commit(Prseq&) override {}
    void rollback(Prseq& object) override { take_back_last_item(object); }

 private:
    EventRef event_;
};

}  // namespace

double start_to_insert(const Prseq& object, const Pointer& pointer) {
    const double at = snapped_start(object, pointer.ms);
    return object.snaptime && object.meter.followstempo ? at : std::trunc(at);
}

std::unique_ptr<Gesture> insert_gesture(Prseq& object, const Pointer& press) {
    deselect_all_events(object);
    EventRef event = insert_event(object, start_to_insert(object, press), pitch_to_insert(object, press));
    if (const std::optional<double> step = Snap(object).step(event->start)) last(object, event, *step);
    tell(object, *event, press);
    return std::make_unique<InsertGesture>(std::move(event));
}

}  // namespace tq
