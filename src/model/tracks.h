// The document's track list and what is in the tracks. A track that does not exist makes a call do nothing.
#pragma once

#include "instance/track.h"

namespace tq {

struct Prseq;

/// None when there is no track at the index.
Track* track_at(const Prseq& object, long index);
Track* TQ_Prseq_Tracks_GetActiveTrack(const Prseq& object);

/// A new track with the document's default colours; not in the list yet.
TrackRef TQ_Prseq_Tracks_MakeTrack(const Prseq& object, Symbol name, bool visible, bool mute, bool solo);
/// Appends the track and returns its index. Deselects the active track's events; which track is active is
/// left to the caller.
long TQ_Prseq_Tracks_AddTrack(Prseq& object, TrackRef track);
/// Inserts the track at an index (held within the list) and makes it the active track.
void TQ_Prseq_Tracks_InsertTrack(Prseq& object, TrackRef track, long index);
/// Takes the track out of the list; whoever refers to it keeps it whole. The active track is left to the
/// caller.
void TQ_Prseq_Tracks_DeleteTrackReference(Prseq& object, long index);
void TQ_Prseq_Tracks_DeleteAllTracksAndFree(Prseq& object);

/// Makes a track the active one: nothing of the one before stays selected, its curves are not edited any
/// more, and the new one is reported. False when there is no such track.
bool prseq_do_set_activetrack(Prseq& object, long index);

void TQ_Prseq_Tracks_SetMute(Prseq& object, long index, bool mute);
void TQ_Prseq_Tracks_SetSolo(Prseq& object, long index, bool solo);
void TQ_Prseq_Tracks_SetVisible(Prseq& object, long index, bool visible);
void TQ_Prseq_Tracks_SetDestination(Prseq& object, long index, Symbol destination);
void TQ_Prseq_Tracks_SetDiscardNoteOutput(Prseq& object, long index, bool discard);
void TQ_Prseq_Tracks_SetDiscardDefaultPitchBpfOutput(Prseq& object, long index, bool discard);
/// The hue, and the five colours that follow from it.
void TQ_Prseq_Tracks_SetColorFromHSL(Prseq& object, long index, double hue, double saturation,
                                     double luminosity);
/// The active track's colours from a hue and the document's saturation and luminosity; reports them.
void TQ_Prseq_Tracks_SetColor(Prseq& object, double hue);

/// Puts the event in its place in start order, activates the track's active curve in it and extends the
/// timeline to cover it. False when there is no such track.
bool TQ_Prseq_Tracks_InsertEvent(Prseq& object, long index, EventRef event);
/// The same for a track of the document.
void TQ_Prseq_Tracks_InsertEvent(Prseq& object, Track& track, EventRef event);
/// Takes the event out of its track without letting go of it.
void TQ_Prseq_Tracks_DeleteEventReferenceFromTrack(Prseq& object, Event& event);
/// The same for many events, of any tracks, at once.
void TQ_Prseq_Tracks_DeleteEventReferences(Prseq& object, const std::vector<EventRef>& events);
/// Fills an empty track of the document with many events at once; as inserting each.
void TQ_Prseq_Tracks_InsertAllEvents(Prseq& object, Track& track, std::vector<EventRef> events);
/// When the event that starts last ends, in ms; 0 without events. An earlier event may last longer.
double TQ_Prseq_Tracks_FindLastEventsEnd(const Track* track);
/// The event of exactly the same pitch that starts next after `event`, by less than the timeline's length.
Event* TQ_Prseq_Tracks_FindNextEventWithSamePitchOnTrack(const Prseq& object, const Track& track,
                                                         const Event& event);

}  // namespace tq
