#include "interaction/timedisplay.h"

#include <algorithm>
#include <memory>

#include "edits/timeline_edits.h"
#include "host/modifiers.h"
#include "instance/prseq.h"
#include "interaction/cursors.h"
#include "interaction/pointer.h"
#include "playback/output.h"
#include "playback/time.h"
#include "view/loop_bar.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

/// The time at a point of the box, which may lie before the timeline's begin or after its end.
double time_under(const Prseq& object, Point at) {
    const MainDisplay& md = object.maindisplay;
    return TQ_Prseq_Maindisplay_CalculatePositionFromMouse(object, md,
                                                           at.x - md.rect.x + md.horizontalscroll);
}

/// Held between two times, the lower one first; on the grid where there is one, and held again.
double held(double ms, double low, double high, const Snap& grid) {
    const auto hold = [&](double t) { return std::max(low, std::min(t, high)); };
    return hold(grid.time(hold(ms)));
}

void move_position(Prseq& object, Point at) {
    prseq_position(object, held(time_under(object, at), 0, object.timelinelength, Snap(object)));
}

class PositionGesture final : public Gesture {
 public:
    explicit PositionGesture(double before) : before_(before) {}
    bool edits() const override { return false; }
    void step(Prseq& object, const Pointer& to) override { move_position(object, to.at); }
    void commit(Prseq&) override {}
    void rollback(Prseq& object) override { prseq_position(object, before_); }

 private:
    double before_;  ///< ms
};

/// The loop is no part of the history, so this is no edit that could be undone.
class LoopGesture final : public Gesture {
 public:
    LoopGesture(const Prseq& object, LoopGrip grip, const Pointer& press)
        : grip_(grip), press_ms_(time_under(object, press.at)), before_(object.cycle) {}
    bool edits() const override { return false; }

    void step(Prseq& object, const Pointer& to) override {
        const double later = time_under(object, to.at) - press_ms_;
        if (grip_ == LoopGrip::Start) drag_start(object, before_.start + later);
        if (grip_ == LoopGrip::Middle) drag_middle(object, before_.start + later);
        if (grip_ == LoopGrip::End) drag_end(object, before_.end + later);
        TQ_Prseq_Output_CycleRange(object);
    }
    void commit(Prseq&) override {}
    void rollback(Prseq& object) override {
        prseq_cyclerange(object, before_.start, before_.end);
        TQ_Prseq_Output_CycleRange(object);
    }

 private:
    static void drag_start(Prseq& object, double start) {
        move_cycle_start(object, held(start, 0, object.timelinelength, Snap(object)));
    }
    /// Both ends stay within the timeline, and as far from each other as they were.
    void drag_middle(Prseq& object, double start) const {
        const double length = before_.end - before_.start;
        start =
            held(start, std::max(0., -length), object.timelinelength - std::max(0., length), Snap(object));
        prseq_cyclerange(object, start, start + length);
    }
    /// The end keeps to the grid, whether snapping is on or not.
    void drag_end(Prseq& object, double end) const {
        const Snap grid = Snap::always(object);
        prseq_cyclerange(object, before_.start, held(end, 0, object.timelinelength, grid));
    }

    LoopGrip grip_;
    double press_ms_;
    Cycle before_;
};

/// A new loop, from the press to the pointer on the grid, which is on from then on.
class DrawLoopGesture final : public Gesture {
 public:
    DrawLoopGesture(const Prseq& object, const Pointer& press)
        : press_ms_(line_under(object, press.at)), before_(object.cycle) {}
    bool edits() const override { return false; }

    void step(Prseq& object, const Pointer& to) override {
        const double here = line_under(object, to.at);
        if (here == press_ms_) return;
        prseq_cyclerange(object, std::min(here, press_ms_), std::max(here, press_ms_));
        TQ_Prseq_Output_CycleRange(object);
        if (object.cycle.active) return;
        prseq_cycle(object, true);
        TQ_Prseq_Output_Cycle(object);
    }
    void commit(Prseq&) override {}
    void rollback(Prseq& object) override {
        prseq_cyclerange(object, before_.start, before_.end);
        TQ_Prseq_Output_CycleRange(object);
        if (object.cycle.active == before_.active) return;
        prseq_cycle(object, before_.active);
        TQ_Prseq_Output_Cycle(object);
    }

 private:
    static double line_under(const Prseq& object, Point at) {
        return held(time_under(object, at), 0, object.timelinelength, Snap::always(object));
    }

    double press_ms_;
    Cycle before_;
};

std::optional<LoopGrip> grip_under(const Prseq& object, Point at) {
    const Rect& part = object.layout[Part::TimeDisplay];
    return loop_grip_at(object, {at.x - part.x, at.y - part.y});
}

}  // namespace

void press_timedisplay(Prseq& object, const Pointer& press) {
    if (object.shift_draws_loop && press.modifiers & modifier_shift) {
        object.gesture = std::make_unique<DrawLoopGesture>(object, press);
    } else if (const auto grip = grip_under(object, press.at)) {
        object.gesture = std::make_unique<LoopGesture>(object, *grip, press);
    } else {
        object.gesture = std::make_unique<PositionGesture>(object.linecursor.position);
        move_position(object, press.at);
    }
    object.gesture->autoscroll = Autoscroll::Horizontal;
}

void hover_timedisplay(Prseq& object, const Pointer& at) {
    static constexpr CursorIndex cursors[] = {CursorResizeLeft, CursorHand, CursorResizeRight};
    const auto grip = grip_under(object, at.at);
    TQ_Prseq_SetMouseCursorFromIcon(object, grip ? cursors[static_cast<size_t>(*grip)] : CursorArrow);
}

}  // namespace tq
