#include "history/capture.h"

#include "history/edit.h"
#include "history/recorders.h"
#include "instance/prseq.h"

namespace tq {

void open_event_capture(Prseq& object) {
    if (object.capture.active) return;
    object.capture.active = true;
    object.capture.before = before_steps(object);
    clock_fdelay(object.eventcaptureclock, static_cast<double>(object.event_capture_span));
}

void expect_insertion(Prseq& object) {
    if (!object.capture.modified.empty()) close_event_capture(object);
    open_event_capture(object);
}

void expect_modification(Prseq& object) {
    if (!object.capture.inserted.empty()) close_event_capture(object);
    open_event_capture(object);
}

void capture_inserted_event(Prseq& object, EventRef event) {
    object.capture.inserted.push_back(std::move(event));
}

void capture_modified_event(Prseq& object, EventModification modification) {
    object.capture.modified.push_back(std::move(modification));
}

void close_event_capture(Prseq& object) {
    if (!object.capture.active) return;
    clock_unset(object.eventcaptureclock);
    EventCapture capture = std::exchange(object.capture, {});
    Edit edit(object, Edit::EndOfSteps{capture.before});
    if (!capture.inserted.empty())
        TQ_Prseq_Undoredo_AddUndoRedoItem_InsertEvents(edit, std::move(capture.inserted));
    else if (!capture.modified.empty())
        TQ_Prseq_Undoredo_AddUndoRedoItem_ModifyEvents(edit, std::move(capture.modified));
    else
        edit.nothing();
}

}  // namespace tq
