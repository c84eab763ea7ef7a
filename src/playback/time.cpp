#include "playback/time.h"

#include <algorithm>

#include "host/defer.h"
#include "instance/prseq.h"
#include "model/bars.h"
#include "model/playback_search.h"
#include "playback/linecursor.h"
#include "playback/output.h"
#include "view/linecursor.h"

namespace tq {

namespace {

double transport_ms(const Prseq& object) {
    return itm_tickstoms(*object.transport, itm_getticks(*object.transport));
}

void start_player(Prseq& object) {
    object.playing = true;
    double position = transport_ms(object);
    time_setvalue(object.runningtime, 0);
    itm_resume(*object.transport);
    time_schedule(object.runningtime);
    TQ_Prseq_Time_ScheduleFirstEvent(object, position);
    if (object.cycle.active) schedule_fdefer(object, TQ_Prseq_Time_ScheduleLoopEnd);
}

}  // namespace

void prseq_int(Prseq& object, long start) { TQ_Prseq_Time_StartStopPlayer(object, start); }

void TQ_Prseq_Time_StartStopPlayer(Prseq& object, long start) {
    if (start >= 1) {
        start_player(object);
    } else if (start == 0) {
        object.playing = false;
        TQ_Prseq_Time_StopRunningtime(object);
    }
}

void prseq_position(Prseq& object, double ms) {
    ms = std::clamp(ms, 0.0, object.timelinelength);
    TQ_Prseq_Output_Position(object, itm_mstoticks(*object.transport, ms));
    TQ_Prseq_LineCursor_SetLineCursorPositionInMsAndRedraw(object, ms);
    TQ_Prseq_Time_ScheduleFirstEvent(object, ms);
    TQ_Prseq_LineCursor_SetHorizontalScrollFromLineCursorPosition(object);
    jbox_redraw(object);
}

void change_transport_tempo(Prseq& object, double bpm) {
    const double beat = itm_gettempo(*object.transport) / bpm;
    itm_settempo(*object.transport, bpm);
    follow_tempo(object);
    object.linecursor.position = std::min(object.linecursor.position * beat, object.timelinelength);
    prseq_show(object, Change::LineCursor);
}

void set_cycle_range(Prseq& object, double start, double end) {
    object.cycle.end = std::min(object.timelinelength, end);
    schedule_fdefer(object, TQ_Prseq_Time_ScheduleLoopEnd);
    set_cycle_start(object, start);
}

void set_cycle_start(Prseq& object, double start) {
    object.cycle.start = std::max(0.0, start);
    TQ_Prseq_Tracks_FindLoopStartAndEndEventsOnEachTrack(object);
}

void TQ_Prseq_Time_ScheduleFirstEvent(Prseq& object, double ms) {
    // What is still armed was meant for another event.
    time_stop(object.eventtargettime);
    TQ_Prseq_Tracks_FindFirstEventAfterPositionOnEachTrack(object, ms);
    TQ_Prseq_Tracks_FindNextScheduledEventFromAllTracks(object);
    if (object.nextevent && object.playing) schedule_fdefer(object, TQ_Prseq_Time_ScheduleEvent);
}

void schedule_track_that_came(Prseq& object, Track& track) {
    if (!object.playing) return;
    find_first_event_after(track, transport_ms(object));
    TQ_Prseq_Tracks_FindNextScheduledEventFromAllTracks(object);
    time_stop(object.eventtargettime);
    if (object.nextevent) schedule_fdefer(object, TQ_Prseq_Time_ScheduleEvent);
}

void TQ_Prseq_Time_ScheduleEvent(Prseq& object) {
    if (!object.nextevent) return;
    double target =
        itm_mstoticks(time_getitm(object.eventtargettime), object.nextevent_track->nextplace.start);
    time_setvalue(object.eventtargettime, target - itm_getticks(*object.transport));
}

void TQ_Prseq_Time_EventCatched(Prseq& object) {
    TQ_Prseq_Output_EventOutputWhilePlaying(object);
    TQ_Prseq_Time_ScheduleNextEvent(object);
}

void TQ_Prseq_Time_ScheduleNextEvent(Prseq& object) {
    if (!object.nextevent || !object.playing) return;
    TQ_Prseq_Tracks_FindNextScheduledEventOnTrack(object, object.nextevent_track->index);
    TQ_Prseq_Tracks_FindNextScheduledEventFromAllTracks(object);
    schedule_fdefer(object, TQ_Prseq_Time_ScheduleEvent);
}

void TQ_Prseq_Time_ScheduleLoopEnd(Prseq& object) {
    time_setvalue(object.loopendtargettime,
                  itm_mstoticks(time_getitm(object.loopendtargettime), object.cycle.end));
}

void TQ_Prseq_Time_LoopEndCatched(Prseq& object) {
    constexpr double shortest_loop = 1;  // ms; a loop without length would never let time go on
    const Cycle& cycle = object.cycle;
    bool too_short = cycle.end >= cycle.start && cycle.end - cycle.start < shortest_loop;
    if (cycle.active && !too_short) prseq_position(object, cycle.start);
}

void TQ_Prseq_Time_FollowTransport(Prseq& object, Itm& transport) {
    if (&transport == object.transport) return;
    if (object.playing) TQ_Prseq_Time_StartStopPlayer(object, 0);
    object.transport = &transport;
    for (TimeObject* time : {&object.runningtime, &object.eventtargettime, &object.loopendtargettime})
        time_setitm(*time, transport);
    if (object.cycle.active) schedule_fdefer(object, TQ_Prseq_Time_ScheduleLoopEnd);
}

void TQ_Prseq_Time_Runningtime(Prseq& object) {
    double ms = transport_ms(object);
    if (ms >= object.timelinelength) {
        TQ_Prseq_Time_StopRunningtime(object);
        return;
    }
    if (object.linecursor.position != ms) TQ_Prseq_LineCursor_SetLineCursorPositionInMsAndRedraw(object, ms);
    time_setvalue(object.runningtime, object.linecursor_update);
    time_schedule(object.runningtime);
}

void TQ_Prseq_Time_StopRunningtime(Prseq& object) {
    TQ_Prseq_Output_Stop(object);
    object.playing = false;
    itm_pause(*object.transport);
    time_stop(object.runningtime);
    TQ_Prseq_LineCursor_SetLineCursorPositionInMsAndRedraw(object, transport_ms(object));
}

}  // namespace tq
