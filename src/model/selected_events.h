// What is asked of, and done with, all selected events at once.
#pragma once

#include <cmath>
#include <span>
#include <vector>

#include "instance/event_list.h"
#include "instance/snapshot.h"

namespace tq {

struct Prseq;

/// The selected events of all visible tracks: track by track, each in its track's order.
std::vector<EventRef> all_selected_events(const Prseq& object);
/// Whether there are any.
bool has_selected_events(const Prseq& object);

/// What events take of time, in ms.
struct TimeSpan {
    double start = HUGE_VAL, last_start = 0, end = 0;
};
TimeSpan time_span(const std::vector<EventRef>& events);

/// Of the selection list; 0 without selected events.
double TQ_Prseq_Tracks_GetMinimumPitchOfSelectedEvents(const Prseq& object);
double TQ_Prseq_Tracks_GetMaximumPitchOfSelectedEvents(const Prseq& object);
/// Puts a copy of each event into its track, `later` by so many ms, unselected; returns the copies.
std::vector<EventRef> copy_on_their_tracks(Prseq& object, const std::vector<EventRef>& events, double later);

UndoEventSnapshot undo_snapshot(Event& event);
std::vector<UndoEventSnapshot> undo_snapshots(const std::vector<EventRef>& events);
/// Retimes events that are edited: buffer ratios follow, and the timeline covers them.
void write_event_times(Prseq& object, std::span<const EventTimes> times);
/// After the duration of an event was written: the range of its buffer ends with it, or where it ended before
/// when the event is long enough.
void fit_buffer_range(const UndoEventSnapshot& before);
/// Makes events what they were; buffer ratios follow.
void set_snapshots(std::span<const UndoEventSnapshot> snapshots);

}  // namespace tq
