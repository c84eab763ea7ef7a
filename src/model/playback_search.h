// Which events playback comes to next, track by track and over all tracks.
#pragma once

namespace tq {

struct Prseq;

/// Every track's next event becomes its first one at or after `position` ms; a negative position changes
/// nothing.
void TQ_Prseq_Tracks_FindFirstEventAfterPositionOnEachTrack(Prseq& object, double position);
/// The track's next event becomes the one after it, or none.
void TQ_Prseq_Tracks_FindNextScheduledEventOnTrack(Prseq& object, long index);
/// The document's next event becomes the earliest of the tracks' next events; the track of the lowest index
/// wins.
void TQ_Prseq_Tracks_FindNextScheduledEventFromAllTracks(Prseq& object);
/// Every track's first event at or after the loop's start and last one before its end.
void TQ_Prseq_Tracks_FindLoopStartAndEndEventsOnEachTrack(Prseq& object);

}  // namespace tq
