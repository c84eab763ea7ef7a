// The curve that is edited: of which event, and which of its points are selected.
#pragma once

#include <vector>

#include "instance/event.h"

namespace tq {

struct Prseq;

/// When exactly one event is selected, its curves are edited from now on.
void TQ_Prseq_Track_SetSelectedEventForBpfEditingFromSelection(Prseq& object);
/// The curves of this event are edited from now on, and it alone is selected.
void edit_bpfs_of(Prseq& object, Event& event);
/// The event whose curves are edited: none while the curve editor is closed, and none that is not on the
/// active track any more.
Event* bpf_edited_event(const Prseq& object);
/// The edited event and its curve of the track's active type; none of both without such a curve.
CurveOf edited_bpf(const Prseq& object);

/// The selected points of a curve, ascending; none of a curve that is not edited.
std::vector<size_t> selected_bpf_points(const Prseq& object, const Bpf& bpf);
/// Selects these points, ascending, and no others.
void select_bpf_points(Prseq& object, const BpfRef& bpf, std::vector<size_t> points);
/// Nothing of the curve is selected, nor under the pointer.
void deselect_bpf_points(Prseq& object, const Bpf& bpf);
void TQ_Prseq_Events_SelectAllPointsInBpf(Prseq& object, const BpfRef& bpf);
/// The first point whose x is greater, or −1.
long TQ_Prseq_Events_FindNextBpfPointAfterHere(const Bpf& bpf, double x);

}  // namespace tq
