// What is done with all selected events at once. All of it works on the selection list.
#pragma once

#include <vector>

#include "host/geometry.h"
#include "model/track.h"

namespace tq {

struct Prseq;

/// The smallest rectangle around the selected events, horizontally of the display, vertically of the page;
/// all zero without any.
Rect TQ_Prseq_Tracks_CalculateBoundingRectOfSelectedEvents(const Prseq& object);
/// Keeps where each selected event is in the rectangle around them, for a drag that may follow.
void TQ_Prseq_Tracks_CalculateEventsOffsetFromSelectionRectWhenClicked(Prseq& object);
/// 0 without selected events.
double TQ_Prseq_Tracks_GetMinimumPitchOfSelectedEvents(const Prseq& object);
double TQ_Prseq_Tracks_GetMaximumPitchOfSelectedEvents(const Prseq& object);

/// Moves the selected events to where the pointer has dragged them: one at the pointer, several within the
/// range of pitches and times, on the grids that are on.
void TQ_Prseq_Tracks_MoveSelectedEventsOnTrack(Prseq& object, long track);
/// Puts a copy of every selected event into the track, unselected; returns the copies. The copy of the
/// clicked event becomes the clicked event.
std::vector<EventRef> TQ_Prseq_Tracks_CopySelectedEventsOnTrack(Prseq& object, long track);
/// Takes a track's selected events out of it without letting go of what the selection list holds.
void TQ_Prseq_Tracks_DeleteReferenceOfSelectedEventsInTrack(Prseq& object, long track);

/// Keeps when and at what pitch the selected events are, for the history.
void TQ_Prseq_Tracks_MakeUndoEventsFromSelectedEvents(Prseq& object);
void TQ_Prseq_Tracks_DestroyUndoEvents(Prseq& object);

}  // namespace tq
