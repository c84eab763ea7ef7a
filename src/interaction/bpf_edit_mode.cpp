#include "interaction/bpf_edit_mode.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "edits/type_edits.h"
#include "history/edit.h"
#include "history/recorders.h"
#include "host/modifiers.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "interaction/bpf_points.h"
#include "interaction/cursors.h"
#include "interaction/hit_test.h"
#include "model/bpf_editor.h"
#include "model/bpf_moves.h"
#include "model/bpfs.h"
#include "model/events.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

bool is_pitch(const Bpf& bpf) { return bpf.name() == tq_sym_Pitch; }

class BpfPointGesture final : public Gesture {
 public:
    BpfPointGesture(const Prseq& object, CurveOf curve, size_t current)
        : curve_(std::move(curve)),
          current_(current),
          selected_(selected_bpf_points(object, *curve_.bpf)),
          at_press_(curve_.bpf->points),
          before_(before_steps(object)) {}

    void step(Prseq& object, const Pointer& to) override {
        Edit edit(object, Edit::Step{});
        const BpfPoint wanted = TQ_Prseq_Events_ConvertPointToUnityPoint(object, *curve_.event, to.at);
        const bool pitch = is_pitch(*curve_.bpf);
        const BpfLimits limits{.pitch = pitch,
                               .whole = pitch && to.modifiers & modifier_shift,
                               .gap = 1 / TQ_Prseq_Events_Rect(object, *curve_.event).width};
        if (selected_.size() == 1)
            move_one(object, wanted, limits, to);
        else
            write(dragged_bpf_points(at_press_, selected_,
                                     {wanted.x - at_press_[current_].x, wanted.y - at_press_[current_].y},
                                     limits));
        moved_ = true;
    }

    void commit(Prseq& object) override {
        if (!moved_) return;
        Edit edit(object, Edit::EndOfSteps{before_});
        TQ_Prseq_Undoredo_AddUndoRedoItem_MoveBpfPoints(edit, curve_, std::move(at_press_), selected_.size());
    }

    void rollback(Prseq& object) override {
        Edit edit(object, Edit::Step{});
        write(std::move(at_press_));
        edit.taken_back(before_);
    }

 private:
    void move_one(Prseq& object, BpfPoint wanted, const BpfLimits& limits, const Pointer& to) {
        BpfPoints points = at_press_;
        points[current_] = dragged_bpf_point(points, current_, wanted, limits);
        TQ_Prseq_Events_MakeBpfTiptool(object, curve_, points[current_], to);
        write(std::move(points));
    }

    void write(BpfPoints points) {
        curve_.bpf->points = std::move(points);
        TQ_Prseq_Events_LookAgain(*curve_.event);
    }

    CurveOf curve_;
    size_t current_;  ///< the point that was grabbed
    std::vector<size_t> selected_;
    BpfPoints at_press_;
    BeforeSteps before_;
    bool moved_ = false;
};

/// Nothing is added outside of the event, nor where the curve has ended.
long add_point(Prseq& object, const CurveOf& curve, const Pointer& press) {
    select_bpf_points(object, curve.bpf, {});
    const BpfPoint at = TQ_Prseq_Events_ConvertPointToUnityPoint(object, *curve.event, press.at);
    const bool inside = in_unity(at.x) && in_unity(at.y);
    if (inside) TQ_Prseq_Events_MakeBpfTiptool(object, curve, at, press);
    if (!in_unity(at.x) || !(is_pitch(*curve.bpf) || inside)) return -1;
    return add_bpf_point(object, curve, at);
}

bool is_inner(const Bpf& bpf, size_t point) { return point > 0 && point + 1 < bpf.points.size(); }

/// Selects the point. One of several selected points leaves them selected, to be dragged together; with
/// shift, a single one is deleted: false then.
bool grab_point(Prseq& object, const CurveOf& curve, size_t point, bool shift) {
    const std::vector<size_t> selected = selected_bpf_points(object, *curve.bpf);
    const bool several = selected.size() >= 2;
    if (several && std::ranges::binary_search(selected, point)) return true;
    select_bpf_points(object, curve.bpf, {point});
    if (several || !shift || !is_inner(*curve.bpf, point)) return true;
    TQ_Prseq_Events_DeleteSelectedBpfPoints(object, curve);
    return false;
}

void set_current_point(Prseq& object, const CurveOf& curve, long point) {
    BpfEditing& editing = object.bpfediting;
    if (editing.bpf != curve.bpf) select_bpf_points(object, curve.bpf, {});
    if (editing.currentpoint == point) return;
    editing.currentpoint = point;
    prseq_show(object, Change::Events);
}

}  // namespace

bool choose_edited_event(Prseq& object, const Pointer& press) {
    object.bpfeditor = true;
    if (!(press.modifiers & modifier_option)) return false;
    if (const EventRef event = event_under(object, press)) edit_bpfs_of(object, *event);
    return true;
}

void press_in_edit_bpf_mode(Prseq& object, const Pointer& press) {
    if (choose_edited_event(object, press)) return;
    const CurveOf curve = edited_bpf(object);
    if (!curve.bpf) return;
    activate_bpf_of_track(*curve.event->track, *curve.event);
    long point = TQ_Prseq_Events_GetBpfPointInBpfUnderMouse(object, curve, press.at);
    const bool hit = point >= 0;
    if (!hit) point = add_point(object, curve, press);
    set_current_point(object, curve, point);
    if (point < 0) return;
    const size_t grabbed = static_cast<size_t>(point);
    if (!hit) select_bpf_points(object, curve.bpf, {grabbed});
    if (hit && !grab_point(object, curve, grabbed, press.modifiers & modifier_shift)) return;
    object.gesture = std::make_unique<BpfPointGesture>(object, curve, grabbed);
}

void hover_in_edit_bpf_mode(Prseq& object, const Pointer& at) {
    TQ_Prseq_SetMouseCursorFromIcon(object, CursorPencilBpf);
    if (const CurveOf curve = edited_bpf(object); curve.bpf)
        set_current_point(object, curve, TQ_Prseq_Events_GetBpfPointInBpfUnderMouse(object, curve, at.at));
}

}  // namespace tq
