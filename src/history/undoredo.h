// Recording, undoing and redoing.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "instance/history.h"

namespace tq {

/// Appends an item after the cursor; what was undone beyond it is released. Reports the list. Edits do this
/// by Edit::record().
void TQ_Prseq_Undoredo_AddItem(Prseq& object, std::unique_ptr<UndoItem> item);
/// One step; nothing at the ends of the list.
void TQ_Prseq_Undoredo_CallUndo(Prseq& object);
void TQ_Prseq_Undoredo_CallRedo(Prseq& object);
/// Undoes the last item as if it had never been recorded; reports the list.
void take_back_last_item(Prseq& object);
/// Releases all items and reports the list.
void TQ_Prseq_Undoredo_DeleteUndoLine(Prseq& object);
/// The names beside "Undo" and "Redo"; none when there is nothing to undo or redo.
std::optional<std::string> TQ_Prseq_Undoredo_UndoMenu(const Prseq& object);
std::optional<std::string> TQ_Prseq_Undoredo_RedoMenu(const Prseq& object);
/// Reports the list.
void TQ_Prseq_Undoredo_Dump(Prseq& object);
/// Reports the cursor.
void TQ_Prseq_Undoredo_DumpSlot(Prseq& object);

/// Messages "undo", "redo" and "undoredo" (moves the cursor to a slot, as far as there are items), and the
/// one that clears.
void prseq_undo(Prseq& object);
void prseq_redo(Prseq& object);
void prseq_undoredo(Prseq& object, long slot);
void prseq_undoredo_clear(Prseq& object);

}  // namespace tq
