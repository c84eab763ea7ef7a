// Undoable edits of a curve's points.
#include "history/items.h"
#include "history/recorders.h"
#include "instance/prseq.h"
#include "model/bpf_editor.h"
#include "model/events.h"

namespace tq {

namespace {

constexpr KindName added{"Add Bpf Point", "Add Bpf Point"}, deleted{"Delete Bpf Point", "Delete Bpf Points"},
    moved{"Move Bpf Point", "Move Bpf Points"};

struct PointsItem : UndoItem {
    PointsItem(std::string t, CurveOf c, BpfPoints points)
        : text(std::move(t)), curve(std::move(c)), before(std::move(points)), after(curve.bpf->points) {}
    std::string text;
    CurveOf curve;
    BpfPoints before, after;
    std::string name() const override { return text; }
    void undo(Prseq& object) override { write(object, before); }
    void redo(Prseq& object) override { write(object, after); }
    void write(Prseq& object, const BpfPoints& points) {
        if (points.size() != curve.bpf->points.size()) deselect_bpf_points(object, *curve.bpf);
        curve.bpf->points = points;
        TQ_Prseq_Events_LookAgain(*curve.event);
    }
};

}  // namespace

void TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfPoint(Edit& edit, CurveOf curve, BpfPoints before) {
    record<PointsItem>(edit, added.of(1), std::move(curve), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteBpfPoints(Edit& edit, CurveOf curve, BpfPoints before) {
    std::string text = deleted.of(before.size() - curve.bpf->points.size());
    record<PointsItem>(edit, std::move(text), std::move(curve), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_MoveBpfPoints(Edit& edit, CurveOf curve, BpfPoints before,
                                                     size_t count) {
    record<PointsItem>(edit, moved.of(count), std::move(curve), std::move(before));
}

}  // namespace tq
