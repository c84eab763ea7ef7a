#include "inspectors/curve_field.h"

#include <algorithm>
#include <utility>

#include "history/recorders.h"
#include "inspectors/begin_gesture.h"
#include "instance/geometry.h"
#include "instance/symbols.h"
#include "model/bpf_editor.h"
#include "model/bpf_moves.h"
#include "model/bpfs.h"
#include "model/events.h"

namespace tq {

namespace {

enum Column : size_t { TimeColumn, ValueColumn };

CurveOf curve_of(const Inspected& at) { return {at.event(), at.event()->activebpf}; }

bool is_pitch(const Bpf& bpf) { return bpf.name() == tq_sym_Pitch; }

double time_offset(const Inspected& at) { return at.object.bpfediting.absolutetime ? at.event()->start : 0; }

double shown_value(const Event& event, const Bpf& bpf, double y) {
    return is_pitch(bpf) ? event.pitch + y : scale(y, 0, 1, bpf.type->minimum, bpf.type->maximum);
}

class CurveGesture final : public Gesture {
 public:
    CurveGesture(const Prseq& object, CurveOf curve)
        : curve_(std::move(curve)), at_press_(curve_.bpf->points), before_(before_steps(object)) {}

    bool is_about(const CurveOf& curve) const { return curve_.bpf == curve.bpf; }

    void change(Prseq& object, size_t point, BpfPoint to) {
        Edit edit(object, Edit::Step{});
        BpfPoints& points = curve_.bpf->points;
        points[point] = dragged_bpf_point(points, point, to, {.pitch = is_pitch(*curve_.bpf)});
        TQ_Prseq_Events_LookAgain(*curve_.event);
        changed_ = true;
    }

    void step(Prseq&, const Pointer&) override {}

    void commit(Prseq& object) override {
        if (!changed_) return;
        size_t moved = 0;
        for (size_t i = 0; i < at_press_.size(); ++i) moved += !(at_press_[i] == curve_.bpf->points[i]);
        Edit edit(object, Edit::EndOfSteps{before_});
        TQ_Prseq_Undoredo_AddUndoRedoItem_MoveBpfPoints(edit, curve_, std::move(at_press_), moved);
    }

    void rollback(Prseq& object) override {
        Edit edit(object, Edit::Step{});
        curve_.bpf->points = std::move(at_press_);
        TQ_Prseq_Events_LookAgain(*curve_.event);
        edit.taken_back(before_);
    }

 private:
    CurveOf curve_;
    BpfPoints at_press_;
    BeforeSteps before_;
    bool changed_ = false;
};

/// What the changed cell makes of its point.
BpfPoint wanted_point(const Inspected& at, const CurveOf& curve, const Field& field) {
    const Cell cell = field.touched();
    const double number = cell_of(field, cell.row, cell.column).as_double(), duration = curve.event->duration;
    BpfPoint point = curve.bpf->points[cell.row];
    if (cell.column == TimeColumn)
        point.x = duration > 0 ? (number - time_offset(at)) / duration : 0;
    else
        point.y = is_pitch(*curve.bpf) ? number - curve.event->pitch : bpf_unity_value(*curve.bpf, number);
    return point;
}

}  // namespace

void show_curve(const Inspected& at, Field& field) {
    const CurveOf curve = curve_of(at);
    std::vector<Atoms> rows;
    if (curve.bpf)
        for (const BpfPoint& point : curve.bpf->points)
            rows.push_back({point.x * curve.event->duration + time_offset(at),
                            shown_value(*curve.event, *curve.bpf, point.y)});
    field.set_rows(std::move(rows));
}

void change_curve(const Inspected& at, const Field& field, const std::string& what) {
    const CurveOf curve = curve_of(at);
    if (!curve.bpf || field.touched().row >= curve.bpf->points.size()) return;
    if (what == "cell_mousedown") {
        select_bpf_points(at.object, curve.bpf, {field.touched().row});
        begin_gesture<CurveGesture>(at.object, curve);
    }
    auto* const dragged = gesture_about<CurveGesture>(at.object, curve);
    if (what == "cell_mouseup" && dragged) commit_gesture(at.object);
    if (what != "cellchanged") return;
    CurveGesture& gesture = dragged ? *dragged : begin_gesture<CurveGesture>(at.object, curve);
    gesture.change(at.object, field.touched().row, wanted_point(at, curve, field));
    if (!dragged) commit_gesture(at.object);
}

}  // namespace tq
