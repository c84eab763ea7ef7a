#include "model/tracks.h"

#include <algorithm>

#include "instance/change.h"
#include "instance/colors.h"
#include "instance/prseq.h"
#include "instance/utilities.h"
#include "model/bpfs.h"
#include "model/selection.h"
#include "model/timeline.h"
#include "model/track_info.h"

namespace tq {

namespace {

/// Numbers the tracks from `first` on, after the list has changed there.
void number_tracks(Prseq& object, long first) {
    for (size_t i = static_cast<size_t>(first); i < object.tracks.size(); ++i)
        object.tracks[i]->index = static_cast<long>(i);
}

void index_events(Prseq& object, const Track& track) {
    track.events.for_each([&](Event& event) { object.events_by_id.add(event); });
}

template <typename Value>
void set_field(Prseq& object, long index, Value Track::*field, Value value) {
    if (Track* track = track_at(object, index)) track->*field = value;
}

}  // namespace

Track* track_at(const Prseq& object, long index) {
    bool exists = index >= 0 && index < static_cast<long>(object.tracks.size());
    return exists ? object.tracks[static_cast<size_t>(index)].get() : nullptr;
}

Track* TQ_Prseq_Tracks_GetActiveTrack(const Prseq& object) { return track_at(object, object.activetrack); }

TrackRef TQ_Prseq_Tracks_MakeTrack(const Prseq& object, Symbol name, bool visible, bool mute, bool solo) {
    const auto& palette = object.defaults.palette;
    TrackRef track = make_ref<Track>();
    track->name = cut_text(name.text(), 255);
    track->visible = visible;
    track->mute = mute;
    track->solo = solo;
    track->hue = object.defaults.hue;
    track->color = palette[0];
    track->inactivecolor = palette[1];
    track->framecolor = palette[3];
    track->parametercolor = palette[4];
    track->selectedcolor = palette[5];
    return track;
}

long TQ_Prseq_Tracks_AddTrack(Prseq& object, TrackRef track) {
    deselect_all_events(object);
    track->index = static_cast<long>(object.tracks.size());
    index_events(object, *track);
    object.tracks.push_back(std::move(track));
    return static_cast<long>(object.tracks.size()) - 1;
}

void TQ_Prseq_Tracks_InsertTrack(Prseq& object, TrackRef track, long index) {
    deselect_all_events(object);
    index = std::clamp(index, 0L, static_cast<long>(object.tracks.size()));
    index_events(object, *track);
    object.tracks.insert(object.tracks.begin() + index, std::move(track));
    number_tracks(object, index);
    object.activetrack = index;
}

void TQ_Prseq_Tracks_DeleteTrackReference(Prseq& object, long index) {
    TrackRef track = track_at(object, index);
    if (!track) return;
    track->events.for_each([&](Event& event) { object.events_by_id.remove(event); });
    object.tracks.erase(object.tracks.begin() + index);
    track->index = -1;
    number_tracks(object, index);
}

void TQ_Prseq_Tracks_DeleteAllTracksAndFree(Prseq& object) {
    for (const TrackRef& track : object.tracks) track->index = -1;
    object.events_by_id.clear();
    object.tracks.clear();
}

bool prseq_do_set_activetrack(Prseq& object, long index) {
    const Track* track = track_at(object, index);
    if (!track) return false;
    deselect_all_events(object);
    object.bpfeditingevent = nullptr;
    object.activetrack = index;
    TQ_Prseq_Tracks_OutputTrackActive(object);
    TQ_Prseq_Tracks_OutputParameterInfo(object, *track);
    TQ_Prseq_Tracks_OutputBpfInfo(object, *track);
    prseq_show(object, Change::Tracks);
    return true;
}

void TQ_Prseq_Tracks_SetMute(Prseq& object, long index, bool mute) {
    set_field(object, index, &Track::mute, mute);
}

void TQ_Prseq_Tracks_SetSolo(Prseq& object, long index, bool solo) {
    set_field(object, index, &Track::solo, solo);
}

void TQ_Prseq_Tracks_SetVisible(Prseq& object, long index, bool visible) {
    set_field(object, index, &Track::visible, visible);
}

void TQ_Prseq_Tracks_SetDestination(Prseq& object, long index, Symbol destination) {
    set_field(object, index, &Track::destination, destination);
}

void TQ_Prseq_Tracks_SetDiscardNoteOutput(Prseq& object, long index, bool discard) {
    set_field(object, index, &Track::discardnoteoutput, discard);
}

void TQ_Prseq_Tracks_SetDiscardDefaultPitchBpfOutput(Prseq& object, long index, bool discard) {
    set_field(object, index, &Track::discarddefaultpitchbpfoutput, discard);
}

void TQ_Prseq_Tracks_SetColorFromHSL(Prseq& object, long index, double hue, double saturation,
                                     double luminosity) {
    Track* track = track_at(object, index);
    if (!track) return;
    const auto& palette = object.defaults.palette;
    track->hue = hue;
    track->color = rgb2rgba(hsl2rgb(hue, saturation, luminosity), palette[0].alpha);
    track->inactivecolor = rgb2rgba(hsl2rgb(hue, saturation, 0.9), palette[1].alpha);
    track->framecolor = rgb2rgba(hsl2rgb(hue, saturation, 0.3), palette[3].alpha);
    track->parametercolor = rgb2rgba(hsl2rgb(hue, 0.4, 0.8), palette[4].alpha);
    track->selectedcolor = rgb2rgba(hsl2rgb(hue, 0.4, 0.5), palette[5].alpha);
}

void TQ_Prseq_Tracks_SetColor(Prseq& object, double hue) {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (!track) return;
    TQ_Prseq_Tracks_SetColorFromHSL(object, track->index, hue, object.defaults.saturation,
                                    object.defaults.luminosity);
    TQ_Prseq_Tracks_OutputTrackColor(object, *track);
    TQ_Prseq_Tracks_OutputDone(object);
}

bool TQ_Prseq_Tracks_InsertEvent(Prseq& object, long index, EventRef event) {
    Track* track = track_at(object, index);
    if (track) TQ_Prseq_Tracks_InsertEvent(object, *track, std::move(event));
    return track != nullptr;
}

void TQ_Prseq_Tracks_InsertEvent(Prseq& object, Track& track, EventRef event) {
    activate_bpf_of_track(track, *event);
    object.events_by_id.add(*event);
    Event& inserted = *event;
    track.events.insert(std::move(event), track);
    cover_event(object, inserted);
}

void TQ_Prseq_Tracks_InsertAllEvents(Prseq& object, Track& track, std::vector<EventRef> events) {
    for (const EventRef& event : events) {
        activate_bpf_of_track(track, *event);
        object.events_by_id.add(*event);
    }
    track.events.assign(std::move(events), track);
    extend_timeline(object, track.events.latest_end());
    object.timelinelengthasked = true;
}

void TQ_Prseq_Tracks_DeleteEventReferenceFromTrack(Prseq& object, Event& event) {
    if (!event.track) return;
    object.events_by_id.remove(event);
    event.track->events.erase(event);
}

void TQ_Prseq_Tracks_DeleteEventReferences(Prseq& object, const std::vector<EventRef>& events) {
    std::vector<Track*> thinned;
    for (const EventRef& event : events) {
        Track* track = event->track;
        if (!track) continue;
        object.events_by_id.remove(*event);
        if (track->events.is_few(events.size())) {
            track->events.erase(*event);
        } else {  // many of the track's: marked now, swept out together
            event->track = nullptr;
            if (std::find(thinned.begin(), thinned.end(), track) == thinned.end()) thinned.push_back(track);
        }
    }
    for (Track* track : thinned) track->events.sweep();
}

double TQ_Prseq_Tracks_FindLastEventsEnd(const Track* track) {
    const Event* last = track ? track->events.last() : nullptr;
    return last ? last->end() : 0;
}

Event* TQ_Prseq_Tracks_FindNextEventWithSamePitchOnTrack(const Prseq& object, const Track& track,
                                                         const Event& event) {
    Event* next = track.events.find_from(event.start, [&](const Event& other) {
        return other.start > event.start && other.pitch == event.pitch;
    });
    return next && next->start - event.start < object.timelinelength ? next : nullptr;
}

}  // namespace tq
