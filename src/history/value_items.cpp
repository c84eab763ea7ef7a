// Undoable changes of what events hold.
#include "history/items.h"
#include "history/recorders.h"
#include "model/buffers.h"
#include "model/events.h"
#include "model/parameters.h"
#include "shell/prseq.h"
#include "shell/symbols.h"

namespace tq {

namespace {

constexpr KindName moved{"Move Event", "Move Events"},
    start_changed{"Change Event Start", "Change Events Start"},
    duration_changed{"Change Event Duration", "Change Events Duration"},
    modified{"Modify Event", "Modify Events"},
    velocity_changed{"Change Event Velocity", "Change Events Velocity"},
    parameter_changed{"Change Event Parameter", "Change Events Parameter"};

/// Start, duration and pitch of many events; all three are written, the edits change some of them.
struct TimesItem : UndoItem {
    TimesItem(const KindName& k, std::vector<UndoEventSnapshot> b) : kind(k), before(std::move(b)) {
        after.reserve(before.size());
        for (const UndoEventSnapshot& s : before)
            after.push_back({s.event->start, s.event->duration, s.event->pitch, s.event});
    }
    KindName kind;
    std::vector<UndoEventSnapshot> before, after;
    std::string name() const override { return kind.of(before.size()); }
    void undo(Prseq&) override { write(before); }
    void redo(Prseq&) override { write(after); }
    static void write(const std::vector<UndoEventSnapshot>& snapshots) {
        std::vector<EventTimes> times;
        times.reserve(snapshots.size());
        for (const UndoEventSnapshot& s : snapshots) {
            times.push_back({s.event, s.start, s.duration});
            s.event->pitch = s.pitch;
        }
        TQ_Prseq_Events_SetEventsTimes(times);
        for (const UndoEventSnapshot& s : snapshots) TQ_Prseq_Buffer_CalculateBufferRatio(*s.event);
    }
};

/// Everything that events hold.
struct StateItem : UndoItem {
    StateItem(std::string t, std::vector<EventModification> m)
        : text(std::move(t)), modifications(std::move(m)) {}
    std::string text;
    std::vector<EventModification> modifications;
    std::string name() const override { return text; }
    void undo(Prseq& object) override {
        // Backwards: one event may have been changed several times.
        for (auto m = modifications.rbegin(); m != modifications.rend(); ++m)
            restore_event_state(object, *m->event, m->previous);
    }
    void redo(Prseq& object) override {
        for (const EventModification& m : modifications) restore_event_state(object, *m.event, m.next);
    }
};

struct ParameterItem : UndoItem {
    ParameterItem(std::vector<ValueChange> c, Symbol p) : changes(std::move(c)), parameter(p) {}
    std::vector<ValueChange> changes;
    Symbol parameter;
    std::string name() const override {
        return (parameter == tq_sym_Velocity ? velocity_changed : parameter_changed).of(changes.size());
    }
    void undo(Prseq&) override {
        for (const ValueChange& change : changes) set(*change.event, change.previous);
    }
    void redo(Prseq&) override {
        for (const ValueChange& change : changes) set(*change.event, change.next);
    }
    void set(Event& event, double value) const {
        if (parameter == tq_sym_Velocity)
            event.velocity = value;
        else
            TQ_Prseq_Parameters_SetEventParameterValue(event, parameter, value);
    }
};

void record_state(Prseq& object, const char* text, EventRef event, EventState before) {
    EventState after = event_state(*event);
    std::vector<EventModification> one;
    one.push_back({std::move(event), std::move(before), std::move(after)});
    record<StateItem>(object, text, std::move(one));
}

}  // namespace

void TQ_Prseq_Undoredo_AddUndoRedoItem_MoveEvents(Prseq& object, std::vector<UndoEventSnapshot> before) {
    record<TimesItem>(object, moved, std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsStart(Prseq& object,
                                                         std::vector<UndoEventSnapshot> before) {
    record<TimesItem>(object, start_changed, std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLength(Prseq& object,
                                                          std::vector<UndoEventSnapshot> before) {
    record<TimesItem>(object, duration_changed, std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ModifyEvents(Prseq& object,
                                                    std::vector<EventModification> modifications) {
    std::string text = modified.of(modifications.size());
    record<StateItem>(object, std::move(text), std::move(modifications));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLabel(Prseq& object, EventRef event, EventState before) {
    record_state(object, "Change Event Label", std::move(event), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsMessage(Prseq& object, EventRef event, EventState before) {
    record_state(object, "Change Event Message", std::move(event), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBuffername(Prseq& object, EventRef event,
                                                              EventState before) {
    record_state(object, "Change Event MSP Buffer", std::move(event), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferAdapt(Prseq& object, EventRef event,
                                                               EventState before) {
    record_state(object, "Link MSP Buffer/Event Size", std::move(event), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferStart(Prseq& object, EventRef event,
                                                               EventState before) {
    record_state(object, "Change Event MSP Buffer Start", std::move(event), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferEnd(Prseq& object, EventRef event,
                                                             EventState before) {
    record_state(object, "Change Event MSP Buffer End", std::move(event), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsVelocity(Prseq& object, std::vector<ValueChange> changes) {
    record<ParameterItem>(object, std::move(changes), tq_sym_Velocity);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsParameter(Prseq& object, std::vector<ValueChange> changes,
                                                             Symbol parameter) {
    record<ParameterItem>(object, std::move(changes), parameter);
}

}  // namespace tq
