// One recorder a kind of undoable edit: builds the item and appends it to the history. The edit itself has
// been done, or is done right after.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "history/event_state.h"
#include "instance/capture_record.h"
#include "instance/cycle.h"
#include "instance/snapshot.h"
#include "instance/track.h"
#include "model/removed_types.h"

namespace tq {

class Edit;

/// An event and the track that it is on, or was.
struct PlacedEvent {
    EventRef event;
    TrackRef track;
};
std::vector<PlacedEvent> placed_events(const std::vector<EventRef>& events);

// tracks
void TQ_Prseq_Undoredo_AddUndoRedoItem_AddTrack(Edit& edit, TrackRef track, long previously_active);
/// `active_before` and `active_after` are the active track's indices before and after the deletion.
void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteTrack(Edit& edit, TrackRef track, long active_before,
                                                   long active_after);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeActiveTrack(Edit& edit, long index, long previous);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackColor(Edit& edit, TrackRef track, double previous,
                                                        double hue);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackName(Edit& edit, TrackRef track, std::string previous);
void record_track_destination(Edit& edit, TrackRef track, Symbol previous);

// events that came; each is in its track
void TQ_Prseq_Undoredo_AddUndoRedoItem_InsertEvents(Edit& edit, std::vector<EventRef> events);
void TQ_Prseq_Undoredo_AddUndoRedoItem_PasteEvents(Edit& edit, std::vector<EventRef> events);
void TQ_Prseq_Undoredo_AddUndoRedoItem_CopyEvents(Edit& edit, std::vector<EventRef> events);
// events that go; each is still in its track
void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteEvents(Edit& edit, std::vector<EventRef> events);
void TQ_Prseq_Undoredo_AddUndoRedoItem_CutEvents(Edit& edit, std::vector<EventRef> events);
// events for events, all on one track
void TQ_Prseq_Undoredo_AddUndoRedoItem_SliceEvent(Edit& edit, TrackRef track, EventRef sliced, EventRef left,
                                                  EventRef right);
void TQ_Prseq_Undoredo_AddUndoRedoItem_GlueEvents(Edit& edit, TrackRef track, EventRef glued, EventRef first,
                                                  EventRef second);

// values of events: the snapshots and states are those before, the events hold those after
void TQ_Prseq_Undoredo_AddUndoRedoItem_MoveEvents(Edit& edit, std::vector<UndoEventSnapshot> before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsStart(Edit& edit, std::vector<UndoEventSnapshot> before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLength(Edit& edit, std::vector<UndoEventSnapshot> before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ModifyEvents(Edit& edit, std::vector<EventModification> modifications);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLabel(Edit& edit, EventRef event, EventState before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsMessage(Edit& edit, EventRef event, EventState before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBuffername(Edit& edit, EventRef event, EventState before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferAdapt(Edit& edit, EventRef event, EventState before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferStart(Edit& edit, EventRef event, EventState before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferEnd(Edit& edit, EventRef event, EventState before);

struct ValueChange {
    EventRef event;
    double previous = 0, next = 0;
};
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsVelocity(Edit& edit, std::vector<ValueChange> changes);
/// The parameter "Velocity" is recorded as a change of velocity. `covered`: how many events the name counts,
/// when these are more than those that changed.
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsParameter(Edit& edit, std::vector<ValueChange> changes,
                                                             Symbol parameter,
                                                             std::optional<size_t> covered = {});

/// What many events were before an edit, under the edit's own name; any of the lists may be empty.
struct EventsBefore {
    std::vector<UndoEventSnapshot> times;
    std::vector<ValueChange> velocities;
    struct Curve {
        CurveOf curve;
        BpfPoints points;
    };
    std::vector<Curve> curves;
    struct CameType {
        TrackRef track;
        RemovedBpfType type;
    };
    std::vector<CameType> came;  ///< curves that were not there before
};
/// The curves take these points, which then are those that they had.
void exchange_points(std::vector<EventsBefore::Curve>& curves);
void record_changed_events(Edit& edit, std::string name, EventsBefore before);
/// The tempo, and with it all that keeps its place in the bars.
struct SongBefore {
    std::vector<UndoEventSnapshot> times;
    double tempo = 0;  ///< beats a minute
    Cycle cycle;
};
void record_tempo_of_song(Edit& edit, SongBefore before);
/// Whether undo would take back a change of the song's tempo, and another one can take its place: not when it
/// led to what is in the document's file.
bool is_last_step_a_tempo(const Prseq& object);
/// Curves of a track were level elsewhere, and new ones of the type. Any number of them is one step.
void record_curve_level(Edit& edit, TrackRef track, BpfTypeRef type, double previous_default,
                        std::vector<EventsBefore::Curve> before);
/// The same of a change of this type's level.
bool is_last_step_a_level_of(const Prseq& object, const BpfType& type);
/// Whether undo would take this type off its track again.
bool is_last_step_the_coming_of(const Prseq& object, const BpfType& type);
/// Events for events, of any tracks; all of them are on their tracks now.
void record_exchanged_events(Edit& edit, std::string name, const std::vector<EventRef>& before,
                             const std::vector<EventRef>& after);

/// Events, of any tracks, that went, came or are at other times.
struct ArrangedBefore {
    std::vector<UndoEventSnapshot> times;
    std::vector<PlacedEvent> went, came;
};
void record_arrangement(Edit& edit, const char* name, ArrangedBefore before);

// types on a track
void TQ_Prseq_Undoredo_AddUndoRedoItem_AddParameterTypeToTrack(Edit& edit, TrackRef track, long index);
void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteParameterType(Edit& edit, TrackRef track,
                                                           RemovedParameterType removed);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeParameterTypeOnTrack(Edit& edit, TrackRef track, long index,
                                                                  ParameterTypeRef previous);
void TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfType(Edit& edit, TrackRef track, long index);
void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteBpfType(Edit& edit, TrackRef track, RemovedBpfType removed);
void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeBpfType(Edit& edit, TrackRef track, BpfTypeRef type,
                                                     BpfTypeValues previous);

// points of a curve: `before` are its points before the edit
void TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfPoint(Edit& edit, CurveOf curve, BpfPoints before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteBpfPoints(Edit& edit, CurveOf curve, BpfPoints before);
void TQ_Prseq_Undoredo_AddUndoRedoItem_MoveBpfPoints(Edit& edit, CurveOf curve, BpfPoints before,
                                                     size_t moved);

}  // namespace tq
