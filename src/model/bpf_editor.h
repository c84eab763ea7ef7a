// Which event's curves are edited.
#pragma once

namespace tq {

struct Event;
struct Prseq;

/// When exactly one event is selected, its curves are edited from now on.
void TQ_Prseq_Track_SetSelectedEventForBpfEditingFromSelection(Prseq& object);
/// The event whose curves are edited: none while the curve editor is closed, and none that is not on the
/// active track any more.
Event* bpf_edited_event(const Prseq& object);

}  // namespace tq
