// The editing history: the edits that can be taken back, in order, and how many of them are applied.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/symbol.h"
#include "instance/change.h"

namespace tq {

struct Prseq;

/// One undoable edit. It holds what it touched, the values before and the values after; undo writes the one,
/// redo the other. What it keeps out of the document lives as long as it does.
struct UndoItem {
    virtual ~UndoItem() = default;
    /// The text that menus and reports show.
    virtual std::string name() const = 0;
    Symbol reportedname;  ///< the same, once the item is in the history
    long revision_before = 0,
         revision_after = 0;  ///< the revisions of the document that the edit leads from and to
    /// What undo and redo change of what is seen.
    virtual Change change() const { return Change::Events; }
    virtual void undo(Prseq& object) = 0;
    virtual void redo(Prseq& object) = 0;
};

struct History {
    std::vector<std::unique_ptr<UndoItem>> items;
    long cursor = -1;  ///< the last item that is applied; −1: none
};

}  // namespace tq
