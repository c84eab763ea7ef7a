// The road of an edit.
#pragma once

#include <memory>
#include <optional>

#include "instance/change.h"
#include "instance/revision.h"

namespace tq {

struct Prseq;
struct UndoItem;

/// Ends what is under way and is recorded at its end: a gesture that edits, a burst of "event" messages.
void end_what_is_under_way(Prseq& object);

/// One edit of the document, for as long as it takes; nothing changes the document on another road. It begins
/// by ending what is under way. At its end the timeline's length is reported when events came or moved, the
/// document differs from its file, the layers that show the change are drawn anew, and whoever watches the
/// document is told "document_edited". Edits may contain edits.
class Edit {
 public:
    Edit(Prseq& object, Change change);
    /// An edit that undo does not know. A burst of messages goes on.
    struct Unrecorded {
        Change change;
    };
    Edit(Prseq& object, Unrecorded edit);
    /// A message of a burst, which is recorded at its end.
    struct InBurst {};
    Edit(Prseq& object, InBurst);
    /// A step of a gesture, which is recorded at its end.
    struct Step {
        Change change = Change::Events;
    };
    Edit(Prseq& object, Step step);
    /// More of what the item that was recorded last is about; its undo takes it back too.
    struct MoreOfLastItem {};
    Edit(Prseq& object, MoreOfLastItem);
    /// That end. The steps have been made; `before` is what the document was before them.
    struct EndOfSteps {
        BeforeSteps before;
    };
    Edit(Prseq& object, const EndOfSteps& end);
    ~Edit();
    Edit(const Edit&) = delete;
    Edit& operator=(const Edit&) = delete;

    Prseq& object() const { return object_; }
    /// Appends an item to the history: from here on this edit can be undone. What events need of the timeline
    /// is reported before.
    void record(std::unique_ptr<UndoItem> item);
    /// The document has stepped from one revision to another that it had before, by undo or redo. When other
    /// edits came between, it is none that it had before.
    void stepped(long from, long to);
    /// Steps have been taken back: the document is what it was before them.
    void taken_back(const BeforeSteps& before);
    /// Nothing has changed after all; nothing is shown.
    void nothing() { effect_ = Effect::Nothing; }

 private:
    enum class Effect { Unrecorded, Recorded, OfLastItem, Nothing };
    Prseq& object_;
    Change change_;
    Effect effect_ = Effect::Unrecorded;
    std::optional<long> before_steps_;
    double length_;  ///< of the timeline, at the begin
};

}  // namespace tq
