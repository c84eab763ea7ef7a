// Undoable changes of a track's parameter and curve types.
#include "history/items.h"
#include "history/recorders.h"
#include "instance/prseq.h"
#include "model/bpfs.h"
#include "model/parameters.h"
#include "model/track_info.h"

namespace tq {

namespace {

/// Types change on tracks that are out of the document too; only what is seen is reported.
void report_types(Prseq& object, const TrackRef& track) {
    if (in_document(track)) TQ_Prseq_Tracks_OutputTrackInfo(object);
}

struct TypesItem : UndoItem {
    Change change() const override { return Change::Types; }
};

/// A type that came (undo takes it off) or went (undo puts it back).
template <typename Removed, Removed (*take)(Track&, long), void (*put)(Track&, const Removed&)>
struct TypeItem : TypesItem {
    TypeItem(const char* t, TrackRef tr, Removed r, bool c)
        : text(t), track(std::move(tr)), removed(std::move(r)), came(c) {}
    const char* text;
    TrackRef track;
    Removed removed;
    bool came;
    std::string name() const override { return text; }
    void undo(Prseq& object) override { step(object, !came); }
    void redo(Prseq& object) override { step(object, came); }
    void step(Prseq& object, bool put_back) {
        if (put_back)
            put(*track, removed);
        else if (long index = place_of(*track, removed); index >= 0)
            removed = take(*track, index);
        report_types(object, track);
    }
};
using ParameterTypeItem = TypeItem<RemovedParameterType, remove_parameter_type, put_back_parameter_type>;
using BpfTypeItem = TypeItem<RemovedBpfType, remove_bpf_type, put_back_bpf_type>;

struct ChangeParameterItem : TypesItem {
    ChangeParameterItem(TrackRef t, long i, ParameterTypeRef before, ParameterTypeRef after)
        : track(std::move(t)), index(i), previous(std::move(before)), next(std::move(after)) {}
    TrackRef track;
    long index;
    ParameterTypeRef previous, next;
    std::string name() const override { return "Change Parameter Type On Track"; }
    void undo(Prseq& object) override { set(object, *previous); }
    void redo(Prseq& object) override { set(object, *next); }
    void set(Prseq& object, const ParameterType& values) const {
        ParameterType* type = TQ_Prseq_Parameters_GetDictionaryAtIndex(*track, index);
        if (!type) return;
        set_parameter_type(*track, *type, values);
        report_types(object, track);
    }
};

struct ChangeBpfItem : TypesItem {
    ChangeBpfItem(TrackRef t, BpfTypeRef ty, const BpfTypeValues& before, const BpfTypeValues& after)
        : track(std::move(t)), type(std::move(ty)), previous(before), next(after) {}
    TrackRef track;
    BpfTypeRef type;
    BpfTypeValues previous, next;
    std::string name() const override { return "Change Bpf Type On Track"; }
    void undo(Prseq& object) override { set(object, previous); }
    void redo(Prseq& object) override { set(object, next); }
    void set(Prseq& object, const BpfTypeValues& values) const {
        static_cast<BpfTypeValues&>(*type) = values;
        type->name = free_bpf_type_name(*track, *type, values.name);
        report_types(object, track);
    }
};

}  // namespace

void TQ_Prseq_Undoredo_AddUndoRedoItem_AddParameterTypeToTrack(Edit& edit, TrackRef track, long index) {
    RemovedParameterType added{TQ_Prseq_Parameters_GetDictionaryAtIndex(*track, index), index, {}};
    record<ParameterTypeItem>(edit, "Add Parameter Type To Track", std::move(track), std::move(added), true);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteParameterType(Edit& edit, TrackRef track,
                                                           RemovedParameterType removed) {
    record<ParameterTypeItem>(edit, "Delete Parameter Type From Track", std::move(track), std::move(removed),
                              false);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeParameterTypeOnTrack(Edit& edit, TrackRef track, long index,
                                                                  ParameterTypeRef previous) {
    ParameterTypeRef next =
        TQ_Prseq_Parameters_CopyDictionary(*TQ_Prseq_Parameters_GetDictionaryAtIndex(*track, index));
    record<ChangeParameterItem>(edit, std::move(track), index, std::move(previous), std::move(next));
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfType(Edit& edit, TrackRef track, long index) {
    RemovedBpfType added{
        TQ_Prseq_Tracks_GetBpfTypeWithGivenIndex(*track, index), index, track->activebpfindex, {}};
    record<BpfTypeItem>(edit, "Add Bpf Type To Track", std::move(track), std::move(added), true);
}

bool is_last_step_the_coming_of(const Prseq& object, const BpfType& type) {
    const auto* item = last_step<BpfTypeItem>(object.history);
    return item && item->came && item->removed.type.get() == &type;
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteBpfType(Edit& edit, TrackRef track, RemovedBpfType removed) {
    record<BpfTypeItem>(edit, "Delete Bpf Type From Track", std::move(track), std::move(removed), false);
}

void TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeBpfType(Edit& edit, TrackRef track, BpfTypeRef type,
                                                     BpfTypeValues previous) {
    const BpfTypeValues next = *type;
    record<ChangeBpfItem>(edit, std::move(track), std::move(type), previous, next);
}

}  // namespace tq
