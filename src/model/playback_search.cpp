#include "model/playback_search.h"

#include "model/tracks.h"
#include "shell/prseq.h"

namespace tq {

void TQ_Prseq_Tracks_FindFirstEventAfterPositionOnEachTrack(Prseq& object, double position) {
    if (position < 0) return;
    for (const TrackRef& track : object.tracks)
        track->nextevent = position == 0 ? track->events.first() : track->events.first_at_or_after(position);
}

void TQ_Prseq_Tracks_FindNextScheduledEventOnTrack(Prseq& object, long index) {
    Track* track = track_at(object, index);
    if (track && track->nextevent) track->nextevent = track->events.next(*track->nextevent);
}

void TQ_Prseq_Tracks_FindNextScheduledEventFromAllTracks(Prseq& object) {
    object.nextevent = nullptr;
    object.nextevent_track = nullptr;
    for (const TrackRef& track : object.tracks) {
        if (!track->nextevent || (object.nextevent && track->nextevent->start >= object.nextevent->start))
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
