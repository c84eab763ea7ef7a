#include "interaction/move_gesture.h"

#include <fmt/printf.h>

#include <algorithm>
#include <cmath>

#include "history/edit.h"
#include "history/recorders.h"
#include "host/modifiers.h"
#include "host/round.h"
#include "instance/prseq.h"
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
        : press_(press), clicked_(std::move(clicked)), dragged_(object) {
        measure();
    }

    void step(Prseq& object, const Pointer& to) override {
        Edit edit(object, Edit::Step{});
        if (to.modifiers & modifier_option && copies_.empty()) take_copies(object);
        if (dragged_.size() == 1)
            move_one(object, to);
        else
            move_several(object, to);
    }

    void commit(Prseq& object) override {
        if (!dragged_.changed()) return;
        Edit edit(object, dragged_.end());
        if (copies_.empty())
            TQ_Prseq_Undoredo_AddUndoRedoItem_MoveEvents(edit, dragged_.in_document());
        else
            TQ_Prseq_Undoredo_AddUndoRedoItem_CopyEvents(edit, copies_);
    }

    void rollback(Prseq& object) override {
        Edit edit(object, Edit::Step{});
        dragged_.restore();
        TQ_Prseq_Tracks_DeleteEventReferences(object, copies_);
        edit.taken_back(dragged_.before());
    }

 private:
    /// How far the selection can go as a whole.
    void measure() {
        for (const UndoEventSnapshot& s : dragged_.snapshots()) {
            first_start_ = std::min(first_start_, s.start);
            low_pitch_ = std::min(low_pitch_, s.pitch);
            high_pitch_ = std::max(high_pitch_, s.pitch);
        }
    }

    /// The copies go on from here; the events themselves stay where they were.
    void take_copies(Prseq& object) {
        dragged_.restore();
        const auto source = std::ranges::find(object.selection, clicked_);
        const size_t clicked_at = static_cast<size_t>(source - object.selection.begin());
        copies_ = TQ_Prseq_Tracks_CopySelectedEventsOnTrack(object, object.activetrack);
        if (clicked_at < copies_.size()) clicked_ = copies_[clicked_at];
        TQ_Prseq_Tracks_DeselectAllEventsInTrack(object, object.activetrack);
        TQ_Prseq_Tracks_SelectEventsFromLinkedList(object, copies_);
        list_selected_events(object);
        dragged_.take(object);
    }

    void move_one(Prseq& object, const Pointer& to) {
        const UndoEventSnapshot& event = dragged_.snapshots().front();
        const double start = snapped(std::max(event.start + to.ms - press_.ms, 0.), snap_grid(object));
        double pitch = object.snappitch ? to.pitch - 1 : event.pitch + to.pitch - press_.pitch;
        pitch = std::clamp(pitch, 0., Prseq::maximumpitch);
        if (object.snappitch) pitch = std::ceil(pitch);
        dragged_.write(object, [&](const UndoEventSnapshot& s) {
            return DraggedEvents::Values{start, s.duration, pitch};
        });
        show_tiptool(object, to, fmt::sprintf("Event Start: %f ms \nEvent Pitch: %f", start, pitch));
    }

    void move_several(Prseq& object, const Pointer& to) {
        const double later = std::max(to.ms - press_.ms, -first_start_), grid = snap_grid(object);
        const double higher = std::clamp(to.pitch - press_.pitch, -low_pitch_,
                                         std::max(Prseq::maximumpitch - high_pitch_, -low_pitch_));
        dragged_.write(object, [&](const UndoEventSnapshot& s) {
            const double pitch = s.pitch + higher;
            return DraggedEvents::Values{snapped(s.start + later, grid), s.duration,
                                         object.snappitch ? jgraphics_round(pitch) : pitch};
        });
        show_tiptool(object, to,
                     fmt::sprintf("Clicked Event Start: %ld ms \nClicked Event Pitch: %f",
                                  static_cast<long>(clicked_->start), clicked_->pitch));
    }

    Pointer press_;
    EventRef clicked_;
    DraggedEvents dragged_;
    std::vector<EventRef> copies_;
    double first_start_ = HUGE_VAL, low_pitch_ = HUGE_VAL, high_pitch_ = -HUGE_VAL;
};

}  // namespace

std::unique_ptr<Gesture> move_gesture(Prseq& object, EventRef clicked, const Pointer& press) {
    return std::make_unique<MoveGesture>(object, std::move(clicked), press);
}

}  // namespace tq
