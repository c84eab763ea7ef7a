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
    ExchangeItem(const KindName& k, std::vector<PlacedEvent> b, std::vector<PlacedEvent> a)
        : kind(k), before(std::move(b)), after(std::move(a)) {}
    KindName kind;
    std::vector<PlacedEvent> before, after;
    std::string name() const override { return kind.of(before.empty() ? after.size() : before.size()); }
    void undo(Prseq& object) override {
        take_events(object, after);
        put_events(object, before);
    }
    void redo(Prseq& object) override {
        take_events(object, before);
        put_events(object, after);
    }
};

void record_coming(Edit& edit, const KindName& kind, const std::vector<EventRef>& events) {
    record<ExchangeItem>(edit, kind, std::vector<PlacedEvent>(), placed_events(events));
}

void record_going(Edit& edit, const KindName& kind, const std::vector<EventRef>& events) {
    record<ExchangeItem>(edit, kind, placed_events(events), std::vector<PlacedEvent>());
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
    record<ExchangeItem>(edit, sliced, std::vector<PlacedEvent>{{event, track}},
                         std::vector<PlacedEvent>{{left, track}, {right, track}});
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_GlueEvents(Edit& edit, TrackRef track, EventRef event, EventRef first,
                                                  EventRef second) {
    record<ExchangeItem>(edit, glued, std::vector<PlacedEvent>{{first, track}, {second, track}},
                         std::vector<PlacedEvent>{{event, track}});
}

}  // namespace tq
