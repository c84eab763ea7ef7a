// What is asked of, and done with, all selected events at once. All of it works on the selection list.
#pragma once

#include <span>
#include <vector>

#include "instance/event_list.h"
#include "instance/snapshot.h"

namespace tq {

struct Prseq;

/// The selected events of all visible tracks: track by track, each in its track's order.
std::vector<EventRef> all_selected_events(const Prseq& object);

/// 0 without selected events.
double TQ_Prseq_Tracks_GetMinimumPitchOfSelectedEvents(const Prseq& object);
double TQ_Prseq_Tracks_GetMaximumPitchOfSelectedEvents(const Prseq& object);
/// Puts a copy of every selected event into the track, `later` by so many ms, unselected; returns the copies.
std::vector<EventRef> TQ_Prseq_Tracks_CopySelectedEventsOnTrack(Prseq& object, long track, double later = 0);
/// Takes a track's selected events out of it without letting go of what the selection list holds.
void TQ_Prseq_Tracks_DeleteReferenceOfSelectedEventsInTrack(Prseq& object, long track);

UndoEventSnapshot undo_snapshot(Event& event);
/// Of the selected events.
std::vector<UndoEventSnapshot> undo_snapshots(const Prseq& object);
/// Retimes events that are edited: buffer ratios follow, and the timeline covers them.
void write_event_times(Prseq& object, std::span<const EventTimes> times);
/// After the duration of an event was written: the range of its buffer ends with it, or where it ended before
/// when the event is long enough.
void fit_buffer_range(const UndoEventSnapshot& before);
/// Makes events what they were; buffer ratios follow.
void set_snapshots(std::span<const UndoEventSnapshot> snapshots);

}  // namespace tq
