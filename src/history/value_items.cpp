// Undoable changes of what events hold.
#include "history/items.h"
#include "history/recorders.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "model/events.h"
#include "model/parameters.h"
#include "model/selected_events.h"
#include "model/track_info.h"

namespace tq {

namespace {

constexpr KindName moved{"Move Event", "Move Events"},
    start_changed{"Change Event Start", "Change Events Start"},
    duration_changed{"Change Event Duration", "Change Events Duration"},
    modified{"Modify Event", "Modify Events"},
    velocity_changed{"Change Event Velocity", "Change Events Velocity"},
    parameter_changed{"Change Event Parameter", "Change Events Parameter"};

/// Start, duration, pitch and the end of the buffer range of many events; all are written, the edits change
/// some of them.
struct TimesItem : UndoItem {
    TimesItem(const KindName& k, std::vector<UndoEventSnapshot> b) : kind(k), before(std::move(b)) {
        after.reserve(before.size());
        for (const UndoEventSnapshot& s : before) after.push_back(undo_snapshot(*s.event));
    }
    KindName kind;
    std::vector<UndoEventSnapshot> before, after;
    std::string name() const override { return kind.of(before.size()); }
    void undo(Prseq&) override { set_snapshots(before); }
    void redo(Prseq&) override { set_snapshots(after); }
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
    ParameterItem(std::vector<ValueChange> c, Symbol p, std::optional<size_t> n = {})
        : changes(std::move(c)), parameter(p), covered(n.value_or(changes.size())) {}
    std::vector<ValueChange> changes;
    Symbol parameter;
    size_t covered;
    std::string name() const override {
        return (parameter == tq_sym_Velocity ? velocity_changed : parameter_changed).of(covered);
    }
    void undo(Prseq&) override {
        for (const ValueChange& change : changes) set_event_value(*change.event, parameter, change.previous);
    }
    void redo(Prseq&) override {
        for (const ValueChange& change : changes) set_event_value(*change.event, parameter, change.next);
    }
};

/// Many events' times, velocities and curves at once, and curves that came for it.
struct EventsItem : UndoItem {
    EventsItem(std::string t, EventsBefore b)
        : text(std::move(t)),
          times(moved, std::move(b.times)),
          velocities(std::move(b.velocities), tq_sym_Velocity),
          curves(std::move(b.curves)),
          came(std::move(b.came)) {}
    std::string text;
    TimesItem times;
    ParameterItem velocities;
    std::vector<EventsBefore::Curve> curves;  ///< with the points that the curves do not have now
    std::vector<EventsBefore::CameType> came;
    std::string name() const override { return text; }
    void undo(Prseq& object) override {
        times.undo(object);
        velocities.undo(object);
        exchange_points(curves);
        for (auto& [track, type] : came)
            if (const long index = place_of(*track, type); index >= 0) type = remove_bpf_type(*track, index);
        report_types(object);
    }
    void redo(Prseq& object) override {
        for (auto& [track, type] : came) put_back_bpf_type(*track, type);
        report_types(object);
        times.redo(object);
        velocities.redo(object);
        exchange_points(curves);
    }
    void report_types(Prseq& object) const {
        if (came.empty()) return;
        TQ_Prseq_Tracks_OutputTrackInfo(object);
        prseq_show(object, Change::Types);
    }
};

void record_state(Edit& edit, const char* text, EventRef event, EventState before) {
    EventState after = event_state(*event);
    std::vector<EventModification> one;
    one.push_back({std::move(event), std::move(before), std::move(after)});
    record<StateItem>(edit, text, std::move(one));
}

}  // namespace

void TQ_Prseq_Undoredo_AddUndoRedoItem_MoveEvents(Edit& edit, std::vector<UndoEventSnapshot> before) {
    record<TimesItem>(edit, moved, std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsStart(Edit& edit, std::vector<UndoEventSnapshot> before) {
    record<TimesItem>(edit, start_changed, std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLength(Edit& edit, std::vector<UndoEventSnapshot> before) {
    record<TimesItem>(edit, duration_changed, std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ModifyEvents(Edit& edit,
                                                    std::vector<EventModification> modifications) {
    std::string text = modified.of(modifications.size());
    record<StateItem>(edit, std::move(text), std::move(modifications));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLabel(Edit& edit, EventRef event, EventState before) {
    record_state(edit, "Change Event Label", std::move(event), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsMessage(Edit& edit, EventRef event, EventState before) {
    record_state(edit, "Change Event Message", std::move(event), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBuffername(Edit& edit, EventRef event, EventState before) {
    record_state(edit, "Change Event MSP Buffer", std::move(event), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferAdapt(Edit& edit, EventRef event,
                                                               EventState before) {
    record_state(edit, "Link MSP Buffer/Event Size", std::move(event), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferStart(Edit& edit, EventRef event,
                                                               EventState before) {
    record_state(edit, "Change Event MSP Buffer Start", std::move(event), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferEnd(Edit& edit, EventRef event, EventState before) {
    record_state(edit, "Change Event MSP Buffer End", std::move(event), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsVelocity(Edit& edit, std::vector<ValueChange> changes) {
    record<ParameterItem>(edit, std::move(changes), tq_sym_Velocity);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsParameter(Edit& edit, std::vector<ValueChange> changes,
                                                             Symbol parameter,
                                                             std::optional<size_t> covered) {
    record<ParameterItem>(edit, std::move(changes), parameter, covered);
}

void exchange_points(std::vector<EventsBefore::Curve>& curves) {
    for (auto& [curve, points] : curves) {
        std::swap(curve.bpf->points, points);
        TQ_Prseq_Events_LookAgain(*curve.event);
    }
}

void record_changed_events(Edit& edit, std::string name, EventsBefore before) {
    record<EventsItem>(edit, std::move(name), std::move(before));
}

}  // namespace tq
