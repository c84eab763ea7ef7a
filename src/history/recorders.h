// One recorder a kind of undoable edit: builds the item and appends it to the history. The edit itself has
// been done, or is done right after.
#pragma once

#include <string>
#include <vector>

#include "history/capture_record.h"
#include "history/event_state.h"
#include "model/removed_types.h"
#include "model/snapshot.h"
#include "model/track.h"

namespace tq {

struct Prseq;

// tracks
void TQ_Prseq_Undoredo_AddUndoRedoItem_AddTrack(Prseq& object, TrackRef track, long previously_active);
/// `active_before` and `active_after` are the active track's indices before and after the deletion.
void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteTrack(Prseq& object, TrackRef track, long active_before,
                                                   long active_after);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeActiveTrack(Prseq& object, long index, long previous);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackColor(Prseq& object, TrackRef track, double previous,
                                                        double hue);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackName(Prseq& object, TrackRef track, std::string previous);

// events that came; each is in its track
void TQ_Prseq_Undoredo_AddUndoRedoItem_InsertEvents(Prseq& object, std::vector<EventRef> events);
void TQ_Prseq_Undoredo_AddUndoRedoItem_PasteEvents(Prseq& object, std::vector<EventRef> events);
void TQ_Prseq_Undoredo_AddUndoRedoItem_CopyEvents(Prseq& object, std::vector<EventRef> events);
// events that go; each is still in its track
void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteEvents(Prseq& object, std::vector<EventRef> events);
void TQ_Prseq_Undoredo_AddUndoRedoItem_CutEvents(Prseq& object, std::vector<EventRef> events);
// events for events, all on one track
void TQ_Prseq_Undoredo_AddUndoRedoItem_SliceEvent(Prseq& object, TrackRef track, EventRef sliced,
                                                  EventRef left, EventRef right);
void TQ_Prseq_Undoredo_AddUndoRedoItem_GlueEvents(Prseq& object, TrackRef track, EventRef glued,
                                                  EventRef first, EventRef second);

// values of events: the snapshots and states are those before, the events hold those after
void TQ_Prseq_Undoredo_AddUndoRedoItem_MoveEvents(Prseq& object, std::vector<UndoEventSnapshot> before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsStart(Prseq& object,
                                                         std::vector<UndoEventSnapshot> before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLength(Prseq& object,
                                                          std::vector<UndoEventSnapshot> before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ModifyEvents(Prseq& object,
                                                    std::vector<EventModification> modifications);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLabel(Prseq& object, EventRef event, EventState before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsMessage(Prseq& object, EventRef event, EventState before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBuffername(Prseq& object, EventRef event,
                                                              EventState before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferAdapt(Prseq& object, EventRef event,
                                                               EventState before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferStart(Prseq& object, EventRef event,
                                                               EventState before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferEnd(Prseq& object, EventRef event,
                                                             EventState before);

struct ValueChange {
    EventRef event;
    double previous = 0, next = 0;
};
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsVelocity(Prseq& object, std::vector<ValueChange> changes);
/// The parameter "Velocity" is recorded as a change of velocity.
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsParameter(Prseq& object, std::vector<ValueChange> changes,
                                                             Symbol parameter);

// types on a track
void TQ_Prseq_Undoredo_AddUndoRedoItem_AddParameterTypeToTrack(Prseq& object, TrackRef track, long index);
void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteParameterType(Prseq& object, TrackRef track,
                                                           RemovedParameterType removed);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeParameterTypeOnTrack(Prseq& object, TrackRef track, long index,
                                                                  ParameterTypeRef previous);
void TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfType(Prseq& object, TrackRef track, long index);
void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteBpfType(Prseq& object, TrackRef track, RemovedBpfType removed);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeBpfType(Prseq& object, TrackRef track, BpfTypeRef type,
                                                     BpfTypeValues previous);

// points of a curve: `before` are its points before the edit
void TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfPoint(Prseq& object, BpfRef bpf, BpfPoints before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteBpfPoints(Prseq& object, BpfRef bpf, BpfPoints before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_MoveBpfPoints(Prseq& object, BpfRef bpf, BpfPoints before,
                                                     size_t moved);

}  // namespace tq
