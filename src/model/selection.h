// Which events of the active track are selected.
#pragma once

#include "model/track.h"

namespace tq {

struct Prseq;

/// Deselects all events of a track; nothing when there is no such track.
void TQ_Prseq_Tracks_DeselectAllEventsInTrack(Prseq& object, long index);
/// Every event of a visible track.
void TQ_Prseq_Tracks_SelectAllEvents(Prseq& object, long index);
/// Makes the selection list of a visible track's selected events, in the track's order; returns how many.
size_t TQ_Prseq_Tracks_MakeLinkedListFromAllSelectedEvents(Prseq& object, long index);

}  // namespace tq
