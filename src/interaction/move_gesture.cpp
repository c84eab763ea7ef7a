#include "interaction/move_gesture.h"

#include <fmt/printf.h>

#include <algorithm>
#include <cmath>

#include "history/edit.h"
#include "history/recorders.h"
#include "host/modifiers.h"
#include "host/round.h"
#include "instance/prseq.h"
#include "interaction/cursors.h"
#include "interaction/dragged_events.h"
#include "interaction/pointer.h"
#include "model/selected_events.h"
#include "model/selection.h"
#include "model/timeline.h"
#include "model/tracks.h"

namespace tq {

namespace {

class MoveGesture final : public Gesture {
 public:
    MoveGesture(Prseq& object, EventRef clicked, const Pointer& press)
        : press_(press),
          clicked_(std::move(clicked)),
          pressed_start_(clicked_->start),
          dragged_(object),
          extent_(dragged_.extent()) {}

    void step(Prseq& object, const Pointer& to) override {
        Edit edit(object, Edit::Step{});
        if (to.modifiers & modifier_option && copies_.empty()) take_copies(object);
        if (dragged_.size() == 1)
            move_one(object, to);
        else
            move_several(object, to);
    }

    void commit(Prseq& object) override {
        end_copying(object);
        if (!dragged_.changed()) return;
        Edit edit(object, dragged_.end());
        if (copies_.empty())
            TQ_Prseq_Undoredo_AddUndoRedoItem_MoveEvents(edit, dragged_.in_document());
        else
            TQ_Prseq_Undoredo_AddUndoRedoItem_CopyEvents(edit, copies_);
    }

    void rollback(Prseq& object) override {
        end_copying(object);
        Edit edit(object, Edit::Step{});
        dragged_.restore();
        TQ_Prseq_Tracks_DeleteEventReferences(object, copies_);
        edit.taken_back(dragged_.before());
    }

 private:
    void end_copying(Prseq& object) const {
        if (!copies_.empty()) TQ_Prseq_SetMouseCursorFromIcon(object, CursorArrow);
    }

    /// The copies go on from here; the events themselves stay where they were.
    void take_copies(Prseq& object) {
        dragged_.restore();
        const std::vector<EventRef> events = all_selected_events(object);
        const auto source = std::ranges::find(events, clicked_);
        const size_t clicked_at = static_cast<size_t>(source - events.begin());
        copies_ = copy_on_their_tracks(object, events, 0);
        if (clicked_at < copies_.size()) clicked_ = copies_[clicked_at];
        deselect_all_events(object);
        TQ_Prseq_Tracks_SelectEventsFromLinkedList(object, copies_);
        list_selected_events(object);
        dragged_.take(copies_);
        TQ_Prseq_SetMouseCursorFromIcon(object, CursorCopying);
    }

    void move_one(Prseq& object, const Pointer& to) {
        const UndoEventSnapshot& event = dragged_.snapshots().front();
        const double start = Snap(object).time(std::max(event.start + to.ms - press_.ms, 0.));
        double pitch = object.snappitch ? to.pitch - 1 : event.pitch + to.pitch - press_.pitch;
        pitch = std::clamp(pitch, 0., Prseq::maximumpitch);
        if (object.snappitch) pitch = std::ceil(pitch);
        dragged_.write(object, [&](const UndoEventSnapshot& s) {
            return DraggedEvents::Values{start, s.duration, pitch};
        });
        show_tiptool(object, to, fmt::sprintf("Event Start: %f ms \nEvent Pitch: %f", start, pitch));
    }

    void move_several(Prseq& object, const Pointer& to) {
        const Snap grid(object);
        double later = extent_.held_later(to.ms - press_.ms);
        if (grid.keeps_distances())
            later = extent_.held_later(grid.time(pressed_start_ + later) - pressed_start_);
        const double higher = extent_.held_higher(to.pitch - press_.pitch);
        dragged_.write(object, [&](const UndoEventSnapshot& s) {
            const double pitch = s.pitch + higher;
            const double start = s.start + later;
            return DraggedEvents::Values{grid.keeps_distances() ? start : grid.time(start), s.duration,
                                         object.snappitch ? jgraphics_round(pitch) : pitch};
        });
        show_tiptool(object, to,
                     fmt::sprintf("Clicked Event Start: %ld ms \nClicked Event Pitch: %f",
                                  static_cast<long>(clicked_->start), clicked_->pitch));
    }

    Pointer press_;
    EventRef clicked_;
    double pressed_start_;  ///< ms, of the one that is held
    DraggedEvents dragged_;
    std::vector<EventRef> copies_;
    DraggedExtent extent_;  ///< at the press
};

}  // namespace

std::unique_ptr<Gesture> move_gesture(Prseq& object, EventRef clicked, const Pointer& press) {
    return std::make_unique<MoveGesture>(object, std::move(clicked), press);
}

}  // namespace tq
