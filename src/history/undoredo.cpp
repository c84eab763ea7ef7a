#include "history/undoredo.h"

#include <initializer_list>

#include "history/edit.h"
#include "host/outlet.h"
#include "instance/prseq.h"
#include "instance/symbols.h"

namespace tq {

namespace {

void report(Prseq& object, std::initializer_list<Atom> atoms) {
    outlet_anything(object, OutletSystemInfo, tq_sym_undoredo, AtomSpan(atoms.begin(), atoms.size()));
}

UndoItem* item_at(const History& history, long index) {
    bool exists = index >= 0 && index < static_cast<long>(history.items.size());
    return exists ? history.items[static_cast<size_t>(index)].get() : nullptr;
}

void release_undone_items(History& history) {
    while (static_cast<long>(history.items.size()) > history.cursor + 1) history.items.pop_back();
}

}  // namespace

void TQ_Prseq_Undoredo_AddItem(Prseq& object, std::unique_ptr<UndoItem> item) {
    History& history = object.history;
    release_undone_items(history);
    item->reportedname = gensym(item->name());
    history.items.push_back(std::move(item));
    ++history.cursor;
    TQ_Prseq_Undoredo_Dump(object);
}

void TQ_Prseq_Undoredo_CallUndo(Prseq& object) {
    end_what_is_under_way(object);
    UndoItem* item = item_at(object.history, object.history.cursor);
    if (!item) return prseq_show(object, Change::Events);
    Edit edit(object, item->change());
    item->undo(object);
    --object.history.cursor;
    edit.stepped(item->revision_after, item->revision_before);
}

void TQ_Prseq_Undoredo_CallRedo(Prseq& object) {
    end_what_is_under_way(object);
    UndoItem* item = item_at(object.history, object.history.cursor + 1);
    if (!item) return;
    Edit edit(object, item->change());
    item->redo(object);
    ++object.history.cursor;
    edit.stepped(item->revision_before, item->revision_after);
}

void TQ_Prseq_Undoredo_DeleteUndoLine(Prseq& object) {
    History& history = object.history;
    while (!history.items.empty()) history.items.pop_back();
    history.cursor = -1;
    TQ_Prseq_Undoredo_Dump(object);
}

void take_back_last_item(Prseq& object) {
    TQ_Prseq_Undoredo_CallUndo(object);
    release_undone_items(object.history);
    TQ_Prseq_Undoredo_Dump(object);
}

std::optional<std::string> TQ_Prseq_Undoredo_UndoMenu(const Prseq& object) {
    const UndoItem* item = item_at(object.history, object.history.cursor);
    return item ? std::optional(item->name()) : std::nullopt;
}

std::optional<std::string> TQ_Prseq_Undoredo_RedoMenu(const Prseq& object) {
    const UndoItem* item = item_at(object.history, object.history.cursor + 1);
    return item ? std::optional(item->name()) : std::nullopt;
}

void TQ_Prseq_Undoredo_Dump(Prseq& object) {
    report(object, {tq_sym_clear});
    if (object.history.cursor >= 0)
        for (const auto& item : object.history.items) report(object, {tq_sym_append, item->reportedname});
    report(object, {tq_sym_done});
}

void TQ_Prseq_Undoredo_DumpSlot(Prseq& object) { report(object, {tq_sym_slot, object.history.cursor}); }

void prseq_undo(Prseq& object) {
    TQ_Prseq_Undoredo_CallUndo(object);
    TQ_Prseq_Undoredo_DumpSlot(object);
    jbox_redraw(object);
}

void prseq_redo(Prseq& object) {
    TQ_Prseq_Undoredo_CallRedo(object);
    TQ_Prseq_Undoredo_DumpSlot(object);
    jbox_redraw(object);
}

void prseq_undoredo(Prseq& object, long slot) {
    end_what_is_under_way(object);
    // The ends of the list bound the way, however far away the slot is.
    while (object.history.cursor > slot && object.history.cursor >= 0) TQ_Prseq_Undoredo_CallUndo(object);
    while (object.history.cursor < slot && item_at(object.history, object.history.cursor + 1))
        TQ_Prseq_Undoredo_CallRedo(object);
    jbox_redraw(object);
}

void prseq_undoredo_clear(Prseq& object) {
    end_what_is_under_way(object);
    TQ_Prseq_Undoredo_DeleteUndoLine(object);
}

}  // namespace tq
