// Following the transport: starting, stopping, reaching events, looping.
#pragma once

namespace tq {

class Itm;
struct Prseq;
struct Track;

/// Message "int": 1 or more starts at the transport's position, 0 stops, less than 0 does nothing.
void prseq_int(Prseq& object, long start);
/// Message "position": moves the play position to `ms` (held within the timeline) and reports it in ticks.
void prseq_position(Prseq& object, double ms);
/// The transport's tempo, 1 to 10000 beats a minute; bars that follow it do. The play position keeps its
/// place in beats, so it is at another ms.
void change_transport_tempo(Prseq& object, double bpm);
/// The loop's start and end in ms, held within the timeline; the start may lie after the end.
void set_cycle_range(Prseq& object, double start, double end);
/// The start alone; the loop's end stays armed, or not, as it is.
void set_cycle_start(Prseq& object, double start);

void TQ_Prseq_Time_StartStopPlayer(Prseq& object, long start);
/// Schedules from a position in ms.
void TQ_Prseq_Time_ScheduleFirstEvent(Prseq& object, double ms);
/// A track has come into the list while something may be playing: it plays from now on, and nothing that it
/// missed.
void schedule_track_that_came(Prseq& object, Track& track);
/// Arms the time object for the document's next event.
void TQ_Prseq_Time_ScheduleEvent(Prseq& object);
/// The transport has reached the document's next event: sends it and arms the one after it.
void TQ_Prseq_Time_EventCatched(Prseq& object);
void TQ_Prseq_Time_ScheduleNextEvent(Prseq& object);
void TQ_Prseq_Time_ScheduleLoopEnd(Prseq& object);
/// The transport has reached the loop's end.
void TQ_Prseq_Time_LoopEndCatched(Prseq& object);
/// Another transport is followed from now on; playback stops before it.
void TQ_Prseq_Time_FollowTransport(Prseq& object, Itm& transport);
/// The periodic clock: moves the line cursor and stops at the timeline's end.
void TQ_Prseq_Time_Runningtime(Prseq& object);
void TQ_Prseq_Time_StopRunningtime(Prseq& object);

}  // namespace tq
