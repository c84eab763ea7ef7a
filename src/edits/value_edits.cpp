#include "edits/value_edits.h"

#include "history/edit.h"
#include "history/event_state.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "model/buffers.h"
#include "model/events.h"
#include "model/parameters.h"

namespace tq {

namespace {

using Recorder = void (*)(Edit&, EventRef, EventState);

template <typename Write>
void change_event(Prseq& object, Recorder record, const EventRef& event, Write write) {
    Edit edit(object, Change::Events);
    EventState before = event_state(*event);
    write(*event);
    TQ_Prseq_Events_LookAgain(*event);
    record(edit, event, std::move(before));
}

}  // namespace

void change_event_label(Prseq& object, const EventRef& event, Symbol label) {
    change_event(object, TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLabel, event,
                 [=](Event& e) { e.label = label; });
}

void change_event_message(Prseq& object, const EventRef& event, Symbol message) {
    change_event(object, TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsMessage, event,
                 [=](Event& e) { e.message = message; });
}

void change_event_buffer(Prseq& object, const EventRef& event, Symbol name) {
    change_event(object, TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBuffername, event,
                 [&](Event& e) { TQ_Prseq_Buffer_AttachBufferToEvent(object, e, name); });
}

void change_event_buffer_adapt(Prseq& object, const EventRef& event, bool adapt) {
    change_event(object, TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferAdapt, event, [=](Event& e) {
        e.make_link().adapt = adapt;
        TQ_Prseq_Buffer_CalculateBufferRatio(e);
    });
}

void change_event_buffer_start(Prseq& object, const EventRef& event, double start) {
    change_event(object, TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferStart, event,
                 [=](Event& e) { e.make_link().start = start; });
}

void change_event_buffer_end(Prseq& object, const EventRef& event, double end) {
    change_event(object, TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferEnd, event,
                 [=](Event& e) { e.make_link().end = end; });
}

void change_event_values(Prseq& object, std::vector<ValueChange> changes, Symbol parameter) {
    Edit edit(object, Change::Events);
    if (changes.empty()) return edit.nothing();
    for (const ValueChange& change : changes) set_event_value(*change.event, parameter, change.next);
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsParameter(edit, std::move(changes), parameter);
}

}  // namespace tq
