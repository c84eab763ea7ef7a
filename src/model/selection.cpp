#include "model/selection.h"

#include <algorithm>

#include "instance/prseq.h"
#include "model/selected_events.h"
#include "model/tracks.h"

namespace tq {

namespace {

Track* visible_track(const Prseq& object, long index) {
    Track* track = track_at(object, index);
    return track && track->visible ? track : nullptr;
}

Event* event_at(const Prseq& object, long track, long index) {
    const Track* holder = track_at(object, track);
    return holder && index >= 0 ? holder->events.at(static_cast<size_t>(index)) : nullptr;
}

void deselect(Event& event) {
    if (event.track) event.track->events.select(event, false);
}

bool is_before(const Event* a, const Event* b) {
    return a->start != b->start ? a->start < b->start : a->id < b->id;
}

/// The selected events in the track's order: sorted when they are few, else found on a walk.
std::vector<EventRef> selected_in_order(const Track& track) {
    std::vector<EventRef> list;
    std::vector<Event*> selected = track.events.selected();
    list.reserve(selected.size());
    if (track.events.is_few(selected.size())) {
        std::sort(selected.begin(), selected.end(), is_before);
        list.assign(selected.begin(), selected.end());
    } else if (!selected.empty()) {
        track.events.for_each([&](Event& event) {
            if (event.selected) list.emplace_back(&event);
        });
    }
    return list;
}

}  // namespace

void TQ_Prseq_Tracks_SelectEvent(Prseq& object, long track, long index) {
    if (Event* event = event_at(object, track, index)) TQ_Prseq_Tracks_SelectEvent2(object, *event);
}

void TQ_Prseq_Tracks_DeselectEvent(Prseq& object, long track, long index) {
    if (Event* event = event_at(object, track, index)) deselect(*event);
}

void TQ_Prseq_Tracks_SelectAllEvents(Prseq& object, long index) {
    if (Track* track = visible_track(object, index)) track->events.select_all();
}

void TQ_Prseq_Tracks_DeselectAllEventsInTrack(Prseq& object, long index) {
    if (Track* track = track_at(object, index)) track->events.deselect_all();
}

void deselect_all_events(Prseq& object) {
    for (const TrackRef& track : object.tracks) track->events.deselect_all();
}

void select_all_tracks(Prseq& object) {
    for (const TrackRef& track : object.tracks) TQ_Prseq_Tracks_SelectAllEvents(object, track->index);
}

long TQ_Prseq_Tracks_GetEventSelection(const Prseq& object, long track, long index) {
    const Event* event = event_at(object, track, index);
    return event ? long{event->selected} : -1;
}

void TQ_Prseq_Tracks_SelectEvent2(Prseq&, Event& event) {
    if (event.track && event.track->visible) event.track->events.select(event, true);
}

void TQ_Prseq_Tracks_DeselectEvent2(Event& event, Prseq&) { deselect(event); }

void TQ_Prseq_Tracks_SelectEventsFromLinkedList(Prseq& object, const std::vector<EventRef>& events) {
    for (const EventRef& event : events) TQ_Prseq_Tracks_SelectEvent2(object, *event);
}

size_t TQ_Prseq_Tracks_MakeLinkedListFromAllSelectedEvents(Prseq& object, long index) {
    const Track* track = visible_track(object, index);
    object.selection = track ? selected_in_order(*track) : std::vector<EventRef>();
    return object.selection.size();
}

size_t list_selected_events(Prseq& object) {
    return TQ_Prseq_Tracks_MakeLinkedListFromAllSelectedEvents(object, object.activetrack);
}

bool has_selected_events(const Prseq& object) {
    return std::ranges::any_of(object.tracks, [](const TrackRef& track) {
        return track->visible && !track->events.selected().empty();
    });
}

std::vector<EventRef> all_selected_events(const Prseq& object) {
    std::vector<EventRef> all;
    for (const TrackRef& track : object.tracks) {
        if (!track->visible || track->events.selected().empty()) continue;
        std::vector<EventRef> list = selected_in_order(*track);
        if (all.empty())
            all = std::move(list);
        else
            all.insert(all.end(), list.begin(), list.end());
    }
    return all;
}

}  // namespace tq
