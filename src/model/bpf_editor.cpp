#include "model/bpf_editor.h"

#include "instance/prseq.h"
#include "model/selection.h"
#include "model/tracks.h"

namespace tq {

void TQ_Prseq_Track_SetSelectedEventForBpfEditingFromSelection(Prseq& object) {
    if (list_selected_events(object) != 1) return;
    object.bpfeditingevent = object.selection.front();
    TQ_Prseq_Tracks_DeselectAllEventsInTrack(object, object.activetrack);
    TQ_Prseq_Tracks_SelectEvent2(object, *object.bpfeditingevent);
}

Event* bpf_edited_event(const Prseq& object) {
    Event* event = object.bpfeditor ? object.bpfeditingevent.get() : nullptr;
    return event && event->track && event->track == TQ_Prseq_Tracks_GetActiveTrack(object) ? event : nullptr;
}

}  // namespace tq
