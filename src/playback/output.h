// What the box tells the patch of its events and of itself.
#pragma once

#include "host/atom.h"

namespace tq {

struct Event;
struct Prseq;
struct Track;

/// Sends the document's next event, if the box is playing and the event's track is not muted.
void TQ_Prseq_Output_EventOutputWhilePlaying(Prseq& object);
/// Appends the event's components as they are sent while playing.
void TQ_Prseq_Output_BuildEventForOutputWhilePlaying(const Track& track, const Event& event, Atoms& atoms);
/// Message "dump_selected": all selected events of the active track.
void prseq_dump_selected(Prseq& object);
void TQ_Prseq_Output_OutputSelectedEvents(Prseq& object);
void TQ_Prseq_Output_BuildEventForOutputWhenSelected(const Event& event, Atoms& atoms);
/// Tells every track's receiver that playback stopped.
void TQ_Prseq_Output_Stop(Prseq& object);

/// The same to the tracks from an index on, while playing: these are about to get other indices, or to go,
/// and a stop that comes later would not reach what sounds of them now.
void stop_tracks_from(Prseq& object, long first);

// system info; more of it is in view/reports.h
void TQ_Prseq_Output_Cycle(Prseq& object);
void TQ_Prseq_Output_CycleRange(Prseq& object);
/// The position report, in ticks.
void TQ_Prseq_Output_Position(Prseq& object, double ticks);

}  // namespace tq
