#include "model/playback_search.h"

#include "instance/prseq.h"
#include "model/tracks.h"

namespace tq {

namespace {

void choose(Track& track, Event* next) {
    track.nextevent = next;
    if (next) track.nextplace = {next->start, next->id};
}

}  // namespace

void find_first_event_after(Track& track, double position) {
    choose(track, position == 0 ? track.events.first() : track.events.first_at_or_after(position));
}

void TQ_Prseq_Tracks_FindFirstEventAfterPositionOnEachTrack(Prseq& object, double position) {
    if (position < 0) return;
    for (const TrackRef& track : object.tracks) find_first_event_after(*track, position);
}

void TQ_Prseq_Tracks_FindNextScheduledEventOnTrack(Prseq& object, long index) {
    Track* track = track_at(object, index);
    if (track && track->nextevent) choose(*track, track->events.first_after(track->nextplace));
}

void TQ_Prseq_Tracks_FindNextScheduledEventFromAllTracks(Prseq& object) {
    object.nextevent = nullptr;
    object.nextevent_track = nullptr;
    for (const TrackRef& track : object.tracks) {
        if (!track->nextevent ||
            (object.nextevent && track->nextplace.start >= object.nextevent_track->nextplace.start))
            continue;
        object.nextevent = track->nextevent;
        object.nextevent_track = track;
    }
}

void TQ_Prseq_Tracks_FindLoopStartAndEndEventsOnEachTrack(Prseq& object) {
    double start = object.cycle.start, end = object.cycle.end;
    for (const TrackRef& track : object.tracks) {
        const EventList& events = track->events;
        if (start >= 0) track->loopstartevent = start == 0 ? events.first() : events.first_at_or_after(start);
        if (end >= 0) track->loopendevent = end == 0 ? nullptr : events.last_before(end);
    }
}

}  // namespace tq
