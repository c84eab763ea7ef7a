#include "model/select_where.h"

#include <vector>

#include "instance/change.h"
#include "instance/prseq.h"
#include "model/selection.h"
#include "model/tracks.h"

namespace tq {

namespace {

EventList* selectable_events(const Prseq& object) {
    Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    return track && track->visible ? &track->events : nullptr;
}

std::vector<Event*> found(const EventList& events, const EventsWhere& where) {
    std::vector<Event*> found;
    const auto take = [&](Event& event) {
        if (where.takes(event)) found.push_back(&event);
    };
    if (where.quality == EventsWhere::Quality::Time)
        events.touching(where.low, where.high, take);
    else
        events.for_each(take);
    return found;
}

void thin_out(EventList& events, const EventsWhere& where, bool kept) {
    const std::vector<Event*> selected = events.selected();
    for (Event* event : selected)
        if (where.takes(*event) != kept) events.select(*event, false);
}

void add(EventList& events, const std::vector<Event*>& more) {
    for (Event* event : more) events.select(*event, true);
}

void selection_changed(Prseq& object) {
    list_selected_events(object);
    prseq_show(object, Change::Events);
}

}  // namespace

bool EventsWhere::takes(const Event& event) const {
    const auto lies_within = [this](double value) { return value >= low && value <= high; };
    switch (quality) {
        case Quality::Pitch:
            return lies_within(event.pitch);
        case Quality::Velocity:
            return lies_within(event.velocity);
        case Quality::Time:
            return event.start >= low && event.start < high;
        case Quality::Label:
            return event.label == label;
    }
    return false;
}

void select_where(Prseq& object, const EventsWhere& where, SelectHow how) {
    EventList* events = selectable_events(object);
    if (!events) return;
    switch (how) {
        case SelectHow::Only:
            deselect_all_events(object);
            [[fallthrough]];
        case SelectHow::Add:
            add(*events, found(*events, where));
            break;
        case SelectHow::Remove:
        case SelectHow::Within:
            thin_out(*events, where, how == SelectHow::Within);
    }
    selection_changed(object);
}

void select_events(Prseq& object, std::span<Event* const> events, SelectHow how) {
    if (how == SelectHow::Only) deselect_all_events(object);
    for (Event* event : events)
        if (how == SelectHow::Remove || event->track->visible)
            event->track->events.select(*event, how != SelectHow::Remove);
    selection_changed(object);
}

void select_all_starting(Prseq& object, double from, double to) {
    constexpr double rounding = 1e-3;  // ms: computed times of lines are off by less
    const EventsWhere where{EventsWhere::Quality::Time, from - rounding, to - rounding};
    deselect_all_events(object);
    for (const TrackRef& track : object.tracks)
        if (track->visible) add(track->events, found(track->events, where));
    selection_changed(object);
}

void invert_selection(Prseq& object) {
    EventList* events = selectable_events(object);
    if (!events) return;
    std::vector<Event*> others;
    events->for_each([&](Event& event) {
        if (!event.selected) others.push_back(&event);
    });
    events->deselect_all();
    add(*events, others);
    selection_changed(object);
}

}  // namespace tq
