// Undoable edits that bring events into the document or take them out.
#include "history/items.h"
#include "history/recorders.h"
#include "shell/prseq.h"

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

void record_coming(Prseq& object, const KindName& kind, const std::vector<EventRef>& events) {
    record<ExchangeItem>(object, kind, std::vector<PlacedEvent>(), placed_events(events));
}

void record_going(Prseq& object, const KindName& kind, const std::vector<EventRef>& events) {
    record<ExchangeItem>(object, kind, placed_events(events), std::vector<PlacedEvent>());
}

}  // namespace

void TQ_Prseq_Undoredo_AddUndoRedoItem_InsertEvents(Prseq& object, std::vector<EventRef> events) {
    record_coming(object, inserted, events);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_PasteEvents(Prseq& object, std::vector<EventRef> events) {
    record_coming(object, pasted, events);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_CopyEvents(Prseq& object, std::vector<EventRef> events) {
    record_coming(object, copied, events);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteEvents(Prseq& object, std::vector<EventRef> events) {
    record_going(object, deleted, events);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_CutEvents(Prseq& object, std::vector<EventRef> events) {
    record_going(object, cut, events);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_SliceEvent(Prseq& object, TrackRef track, EventRef event,
                                                  EventRef left, EventRef right) {
    record<ExchangeItem>(object, sliced, std::vector<PlacedEvent>{{event, track}},
                         std::vector<PlacedEvent>{{left, track}, {right, track}});
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_GlueEvents(Prseq& object, TrackRef track, EventRef event,
                                                  EventRef first, EventRef second) {
    record<ExchangeItem>(object, glued, std::vector<PlacedEvent>{{first, track}, {second, track}},
                         std::vector<PlacedEvent>{{event, track}});
}

}  // namespace tq
