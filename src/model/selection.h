// Which events are selected. Events of an invisible track can be deselected but not selected.
#pragma once

#include <cstddef>
#include <vector>

#include "instance/track.h"

namespace tq {

struct Prseq;

// --- by track and index; what does not exist makes a call do nothing ---

void TQ_Prseq_Tracks_SelectEvent(Prseq& object, long track, long index);
void TQ_Prseq_Tracks_DeselectEvent(Prseq& object, long track, long index);
/// Every event of a visible track.
void TQ_Prseq_Tracks_SelectAllEvents(Prseq& object, long track);
void TQ_Prseq_Tracks_DeselectAllEventsInTrack(Prseq& object, long track);
/// Those of all tracks.
void deselect_all_events(Prseq& object);
/// Every event of all visible tracks.
void select_all_tracks(Prseq& object);
/// 1 or 0; −1 when there is no such event.
long TQ_Prseq_Tracks_GetEventSelection(const Prseq& object, long track, long index);

// --- by event; one that is in no track keeps its state ---

void TQ_Prseq_Tracks_SelectEvent2(Prseq& object, Event& event);
void TQ_Prseq_Tracks_DeselectEvent2(Event& event, Prseq& object);
void TQ_Prseq_Tracks_SelectEventsFromLinkedList(Prseq& object, const std::vector<EventRef>& events);

// --- the selection list ---

/// Makes the selection list of a visible track's selected events, in the track's order; returns how many.
size_t TQ_Prseq_Tracks_MakeLinkedListFromAllSelectedEvents(Prseq& object, long track);
/// The same of the active track.
size_t list_selected_events(Prseq& object);

}  // namespace tq
