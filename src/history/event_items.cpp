// Undoable edits that bring events into the document or take them out.
#include "history/items.h"
#include "history/recorders.h"
#include "instance/prseq.h"

namespace tq {

namespace {

constexpr KindName inserted{"Insert Event", "Insert Events"}, pasted{"Paste Event", "Paste Events"},
    copied{"Copy Event", "Copy Events"}, deleted{"Delete Event", "Delete Events"},
    cut{"Cut Event", "Cut Events"}, sliced{"Slice Event", "Slice Event"}, glued{"Glue Events", "Glue Events"};

/// Events that stand in for others; either side may be empty.
struct ExchangeItem : UndoItem {
    ExchangeItem(std::string t, std::vector<PlacedEvent> b, std::vector<PlacedEvent> a)
        : text(std::move(t)), before(std::move(b)), after(std::move(a)) {}
    std::string text;
    std::vector<PlacedEvent> before, after;
    std::string name() const override { return text; }
    void undo(Prseq& object) override {
        take_events(object, after);
        put_events(object, before);
    }
    void redo(Prseq& object) override {
        take_events(object, before);
        put_events(object, after);
    }
};

void record_exchange(Edit& edit, const KindName& kind, std::vector<PlacedEvent> before,
                     std::vector<PlacedEvent> after) {
    std::string text = kind.of(before.empty() ? after.size() : before.size());
    record<ExchangeItem>(edit, std::move(text), std::move(before), std::move(after));
}

void record_coming(Edit& edit, const KindName& kind, const std::vector<EventRef>& events) {
    record_exchange(edit, kind, {}, placed_events(events));
}

void record_going(Edit& edit, const KindName& kind, const std::vector<EventRef>& events) {
    record_exchange(edit, kind, placed_events(events), {});
}

}  // namespace

void TQ_Prseq_Undoredo_AddUndoRedoItem_InsertEvents(Edit& edit, std::vector<EventRef> events) {
    record_coming(edit, inserted, events);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_PasteEvents(Edit& edit, std::vector<EventRef> events) {
    record_coming(edit, pasted, events);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_CopyEvents(Edit& edit, std::vector<EventRef> events) {
    record_coming(edit, copied, events);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteEvents(Edit& edit, std::vector<EventRef> events) {
    record_going(edit, deleted, events);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_CutEvents(Edit& edit, std::vector<EventRef> events) {
    record_going(edit, cut, events);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_SliceEvent(Edit& edit, TrackRef track, EventRef event, EventRef left,
                                                  EventRef right) {
    record_exchange(edit, sliced, {{event, track}}, {{left, track}, {right, track}});
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_GlueEvents(Edit& edit, TrackRef track, EventRef event, EventRef first,
                                                  EventRef second) {
    record_exchange(edit, glued, {{first, track}, {second, track}}, {{event, track}});
}

void record_exchanged_events(Edit& edit, std::string name, const std::vector<EventRef>& before,
                             const std::vector<EventRef>& after) {
    record<ExchangeItem>(edit, std::move(name), placed_events(before), placed_events(after));
}

}  // namespace tq
