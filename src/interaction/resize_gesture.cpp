#include "interaction/resize_gesture.h"

#include <fmt/printf.h>

#include <algorithm>
#include <cmath>

#include "history/recorders.h"
#include "interaction/dragged_events.h"
#include "interaction/pointer.h"

namespace tq {

namespace {

constexpr double shortest = 1;  // ms

class ResizeGesture final : public Gesture {
 public:
    ResizeGesture(Prseq& object, EventRef clicked, Edge edge)
        : clicked_(std::move(clicked)), edge_(edge), dragged_(object) {
        for (const UndoEventSnapshot& s : dragged_.snapshots())
            if (s.event == clicked_) at_press_ = s;
    }

    void step(Prseq& object, const Pointer& to) override {
        Edit edit(object, Edit::Step{});
        if (edge_ == Edge::Start)
            drag_starts(object, to);
        else
            drag_ends(object, to);
        dragged_.fit_buffer_ranges();
    }

    void commit(Prseq& object) override {
        if (!dragged_.changed()) return;
        Edit edit(object, dragged_.end());
        if (edge_ == Edge::Start)
            TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsStart(edit, dragged_.in_document());
        else
            TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLength(edit, dragged_.in_document());
    }

    void rollback(Prseq& object) override {
        Edit edit(object, Edit::Step{});
        dragged_.restore();
        edit.taken_back(dragged_.before());
    }

 private:
    void drag_starts(Prseq& object, const Pointer& to) {
        double start = Snap(object).time(std::clamp(to.ms, 0., object.timelinelength));
        const bool one = dragged_.size() == 1;
        if (one) start = std::min(start, at_press_.start + at_press_.duration - shortest);
        const double later = start - at_press_.start;
        dragged_.write(object, [&](const UndoEventSnapshot& s) {
            const double end = s.start + s.duration;
            const double moved = std::min(std::max(s.start + later, 0.), end - shortest);
            return DraggedEvents::Values{moved, end - moved, s.pitch};
        });
        show_tiptool(
            object, to,
            one ? fmt::sprintf("Event Start: %.2f ms", start)
                : fmt::sprintf("Clicked Event Start: %.2f ms\nEvent Start ∆elta: %.2f ms", start, later));
    }

    void drag_ends(Prseq& object, const Pointer& to) {
        const double duration = std::max(
            Snap(object).length(at_press_.start, std::max(to.ms - at_press_.start, shortest)), shortest);
        const double longer = duration - at_press_.duration;
        dragged_.write(object, [&](const UndoEventSnapshot& s) {
            return DraggedEvents::Values{s.start, std::max(s.duration + longer, shortest), s.pitch};
        });
        show_tiptool(object, to,
                     dragged_.size() == 1
                         ? fmt::sprintf("Event Duration: %.2f ms", duration)
                         : fmt::sprintf("Clicked Event Duration: %.2f ms\nEvent Duration ∆elta: %.2f ms",
                                        duration, longer));
    }

    EventRef clicked_;
    Edge edge_;
    DraggedEvents dragged_;
    UndoEventSnapshot at_press_;
};

}  // namespace

std::unique_ptr<Gesture> resize_gesture(Prseq& object, EventRef clicked, Edge edge) {
    return std::make_unique<ResizeGesture>(object, std::move(clicked), edge);
}

}  // namespace tq
