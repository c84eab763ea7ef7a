#include "edits/event_edits.h"

#include "edits/track_edits.h"
#include "history/edit.h"
#include "history/recorders.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "instance/utilities.h"
#include "model/selected_events.h"
#include "model/selection.h"
#include "model/tracks.h"

namespace tq {

namespace {

void delete_of_edit(Edit& edit, const std::vector<EventRef>& events) {
    if (events.empty()) return edit.nothing();
    TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteEvents(edit, events);
    TQ_Prseq_Tracks_DeleteEventReferences(edit.object(), events);
}

}  // namespace

void prseq_deleteselectedevents(Prseq& object) {
    Edit edit(object, Change::Events);
    list_selected_events(object);
    delete_of_edit(edit, all_selected_events(object));
}

void delete_events(Prseq& object, const std::vector<EventRef>& events) {
    Edit edit(object, Change::Events);
    delete_of_edit(edit, events);
}

EventRef insert_event(Prseq& object, double start, double pitch) {
    constexpr double velocity = 80;
    if (object.tracks.empty()) prseq_addtrack(object, {tq_sym_Untitled});
    Track& track = *TQ_Prseq_Tracks_GetActiveTrack(object);
    Edit edit(object, Change::Events);
    EventRef event =
        TQ_Prseq_Events_MakeEvent(object, whole_ms(start), pitch, velocity,
                                  static_cast<long>(object.defaults.eventduration), Symbol(), Symbol());
    event->start = start;
    conform_event_to(track, *event);
    TQ_Prseq_Tracks_InsertEvent(object, track, event);
    TQ_Prseq_Undoredo_AddUndoRedoItem_InsertEvents(edit, {event});
    return event;
}

std::optional<Slices> slice_event(Prseq& object, const EventRef& event, double position) {
    TrackRef track = event->track;
    if (!track) return {};
    Edit edit(object, Change::Events);
    std::optional<Slices> slices = TQ_Prseq_Events_SliceEvent(object, *event, position);
    if (!slices) {
        edit.nothing();
        return {};
    }
    TQ_Prseq_Tracks_DeleteEventReferenceFromTrack(object, *event);
    TQ_Prseq_Tracks_InsertEvent(object, *track, slices->left);
    TQ_Prseq_Tracks_InsertEvent(object, *track, slices->right);
    TQ_Prseq_Undoredo_AddUndoRedoItem_SliceEvent(edit, track, event, slices->left, slices->right);
    return slices;
}

EventRef glue_event_to_next(Prseq& object, const EventRef& event) {
    TrackRef track = event->track;
    if (!track) return {};
    Edit edit(object, Change::Events);
    EventRef next = TQ_Prseq_Tracks_FindNextEventWithSamePitchOnTrack(object, *track, *event);
    EventRef glued = next ? TQ_Prseq_Events_GlueEvents(object, *event, *next) : nullptr;
    if (!glued) {
        edit.nothing();
        return {};
    }
    TQ_Prseq_Tracks_InsertEvent(object, *track, glued);
    TQ_Prseq_Tracks_DeleteEventReferences(object, {event, next});
    TQ_Prseq_Undoredo_AddUndoRedoItem_GlueEvents(edit, track, glued, event, next);
    return glued;
}

}  // namespace tq
