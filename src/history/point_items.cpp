// Undoable edits of a curve's points.
#include "history/items.h"
#include "history/recorders.h"
#include "instance/prseq.h"

namespace tq {

namespace {

constexpr KindName added{"Add Bpf Point", "Add Bpf Point"}, deleted{"Delete Bpf Point", "Delete Bpf Points"},
    moved{"Move Bpf Point", "Move Bpf Points"};

struct PointsItem : UndoItem {
    PointsItem(std::string t, BpfRef b, BpfPoints points)
        : text(std::move(t)), bpf(std::move(b)), before(std::move(points)), after(bpf->points) {}
    std::string text;
    BpfRef bpf;
    BpfPoints before, after;
    std::string name() const override { return text; }
    void undo(Prseq&) override { bpf->points = before; }
    void redo(Prseq&) override { bpf->points = after; }
};

}  // namespace

void TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfPoint(Edit& edit, BpfRef bpf, BpfPoints before) {
    record<PointsItem>(edit, added.of(1), std::move(bpf), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteBpfPoints(Edit& edit, BpfRef bpf, BpfPoints before) {
    std::string text = deleted.of(before.size() - bpf->points.size());
    record<PointsItem>(edit, std::move(text), std::move(bpf), std::move(before));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_MoveBpfPoints(Edit& edit, BpfRef bpf, BpfPoints before, size_t count) {
    record<PointsItem>(edit, moved.of(count), std::move(bpf), std::move(before));
}

}  // namespace tq
