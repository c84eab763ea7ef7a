// Which events playback comes to next, track by track and over all tracks.
#pragma once

namespace tq {

struct Prseq;
struct Track;

/// Every track's next event becomes its first one at or after `position` ms; a negative position changes
/// nothing.
void TQ_Prseq_Tracks_FindFirstEventAfterPositionOnEachTrack(Prseq& object, double position);
/// The same for one track.
void find_first_event_after(Track& track, double position);
/// The track's next event becomes the first one behind the place where it stood when it was chosen, or none:
/// what has been moved since makes nothing come twice.
void TQ_Prseq_Tracks_FindNextScheduledEventOnTrack(Prseq& object, long index);
/// The document's next event becomes the earliest of the tracks' next events; the track of the lowest index
/// wins.
void TQ_Prseq_Tracks_FindNextScheduledEventFromAllTracks(Prseq& object);
/// Every track's first event at or after the loop's start and last one before its end.
void TQ_Prseq_Tracks_FindLoopStartAndEndEventsOnEachTrack(Prseq& object);

}  // namespace tq
