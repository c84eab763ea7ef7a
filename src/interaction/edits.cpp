#include "interaction/edits.h"

#include "history/capture.h"
#include "history/recorders.h"
#include "model/selected_events.h"
#include "model/selection.h"
#include "model/tracks.h"
#include "shell/change.h"
#include "shell/prseq.h"

namespace tq {

void prseq_deleteselectedevents(Prseq& object) {
    close_event_capture(object);
    if (!list_selected_events(object)) return;
    TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteEvents(object, object.selection);
    TQ_Prseq_Tracks_DeleteReferenceOfSelectedEventsInTrack(object, object.activetrack);
    prseq_edited(object, Change::Events);
}

std::optional<Slices> slice_event(Prseq& object, const EventRef& event, double position) {
    TrackRef track = event->track;
    if (!track) return {};
    close_event_capture(object);
    std::optional<Slices> slices = TQ_Prseq_Events_SliceEvent(object, *event, position);
    if (!slices) return {};
    TQ_Prseq_Tracks_DeleteEventReferenceFromTrack(object, *event);
    TQ_Prseq_Tracks_InsertEvent(object, *track, slices->left);
    TQ_Prseq_Tracks_InsertEvent(object, *track, slices->right);
    TQ_Prseq_Undoredo_AddUndoRedoItem_SliceEvent(object, track, event, slices->left, slices->right);
    prseq_edited(object, Change::Events);
    return slices;
}

EventRef glue_event_to_next(Prseq& object, const EventRef& event) {
    TrackRef track = event->track;
    if (!track) return {};
    close_event_capture(object);
    EventRef next = TQ_Prseq_Tracks_FindNextEventWithSamePitchOnTrack(object, *track, *event);
    EventRef glued = next ? TQ_Prseq_Events_GlueEvents(object, *event, *next) : nullptr;
    if (!glued) return {};
    TQ_Prseq_Tracks_InsertEvent(object, *track, glued);
    TQ_Prseq_Tracks_DeleteEventReferences(object, {event, next});
    TQ_Prseq_Undoredo_AddUndoRedoItem_GlueEvents(object, track, glued, event, next);
    prseq_edited(object, Change::Events);
    return glued;
}

}  // namespace tq
