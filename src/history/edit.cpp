#include "history/edit.h"

#include "history/capture.h"
#include "history/undoredo.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "view/zoom.h"

namespace tq {

namespace {

/// Redo leads to what the document is now, and undo to what it was, unless the timeline has grown.
void extend_last_item(History& history, Revisions& revisions, bool grew) {
    if (history.cursor < 0) return;
    UndoItem& item = *history.items[static_cast<size_t>(history.cursor)];
    item.revision_after = revisions.current;
    if (grew) item.revision_before = ++revisions.last;
}

}  // namespace

void end_what_is_under_way(Prseq& object) {
    commit_editing_gesture(object);
    close_event_capture(object);
}

Edit::Edit(Prseq& object, Change change) : object_(object), change_(change), length_(object.timelinelength) {
    end_what_is_under_way(object);
    length_ = object.timelinelength;
}

Edit::Edit(Prseq& object, Unrecorded edit)
    : object_(object), change_(edit.change), length_(object.timelinelength) {
    commit_editing_gesture(object);
    length_ = object.timelinelength;
    // What undo of the burst will bring back is not what was there before.
    object.capture.before.revision = ++object.revisions.last;
}

Edit::Edit(Prseq& object, InBurst)
    : object_(object), change_(Change::Events), length_(object.timelinelength) {
    commit_editing_gesture(object);
    length_ = object.timelinelength;
}

Edit::Edit(Prseq& object, Step step)
    : object_(object), change_(step.change), length_(object.timelinelength) {}

Edit::Edit(Prseq& object, MoreOfLastItem) : Edit(object, Step{}) { effect_ = Effect::OfLastItem; }

// The timeline does not shrink again: where it has grown, undo brings back what was not there before.
Edit::Edit(Prseq& object, const EndOfSteps& end)
    : object_(object),
      change_(Change::Nothing),
      before_steps_(end.before.length == object.timelinelength ? end.before.revision
                                                               : ++object.revisions.last),
      length_(object.timelinelength) {}

Edit::~Edit() {
    settle_timeline_length(object_);
    const bool grew = object_.timelinelength != length_;
    if (effect_ == Effect::Nothing && !grew) return;
    if (effect_ != Effect::Recorded) advance_revision(object_);
    if (effect_ == Effect::OfLastItem) extend_last_item(object_.history, object_.revisions, grew);
    prseq_show(object_, change_);
    object_notify(object_, tq_sym_document_edited, {});
}

void Edit::record(std::unique_ptr<UndoItem> item) {
    settle_timeline_length(object_);
    if (object_.timelinelength != length_) advance_revision(object_);
    item->revision_before = before_steps_.value_or(object_.revisions.current);
    if (!before_steps_) advance_revision(object_);
    item->revision_after = object_.revisions.current;
    effect_ = Effect::Recorded;
    TQ_Prseq_Undoredo_AddItem(object_, std::move(item));
}

void Edit::taken_back(const BeforeSteps& before) {
    if (before.length != object_.timelinelength) return;
    set_revision(object_, before.revision);
    effect_ = Effect::Recorded;
}

void Edit::stepped(long from, long to) {
    if (object_.revisions.current == from && object_.timelinelength == length_) {
        set_revision(object_, to);
        effect_ = Effect::Recorded;
    }
}

}  // namespace tq
