#include "edits/type_edits.h"

#include <algorithm>
#include <utility>

#include "history/edit.h"
#include "history/recorders.h"
#include "model/bpf_editor.h"
#include "model/bpfs.h"
#include "model/events.h"
#include "model/parameters.h"
#include "model/track_info.h"

namespace tq {

namespace {

/// Types change on tracks that are out of the document too; only what is seen is reported.
void report_types(Prseq& object, const Track& track) {
    if (track.index >= 0) TQ_Prseq_Tracks_OutputTrackInfo(object);
}

}  // namespace

void add_parameter_type(Prseq& object, const TrackRef& track, const ParameterType& values) {
    Edit edit(object, Change::Types);
    if (!TQ_Prseq_Parameters_AddParameterTypeToTrack(*track, values.name, values.minimum, values.maximum,
                                                     values.default_, values.steps))
        return edit.nothing();
    TQ_Prseq_Undoredo_AddUndoRedoItem_AddParameterTypeToTrack(edit, track,
                                                              std::ssize(track->parametertypes) - 1);
    report_types(object, *track);
}

void delete_parameter_type(Prseq& object, const TrackRef& track, long index) {
    Edit edit(object, Change::Types);
    RemovedParameterType removed = remove_parameter_type(*track, index);
    if (!removed.type) return edit.nothing();
    TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteParameterType(edit, track, std::move(removed));
    report_types(object, *track);
}

void change_parameter_type(Prseq& object, const TrackRef& track, long index, const ParameterType& values) {
    ParameterType* type = TQ_Prseq_Parameters_GetDictionaryAtIndex(*track, index);
    if (!type) return;
    ParameterTypeRef previous = TQ_Prseq_Parameters_CopyDictionary(*type),
                     next = TQ_Prseq_Parameters_CopyDictionary(values);
    const ParameterType* of_that_name = TQ_Prseq_Parameters_GetDictionaryFromName(*track, values.name);
    if (of_that_name && of_that_name != type) next->name = type->name;
    next->id = type->id;
    if (same_parameter_type(*previous, *next)) return;
    Edit edit(object, Change::Types);
    set_parameter_type(*track, *type, *next);
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeParameterTypeOnTrack(edit, track, index, std::move(previous));
    report_types(object, *track);
}

void add_bpf_type(Prseq& object, const TrackRef& track, const BpfTypeValues& values) {
    Edit edit(object, Change::Types);
    if (!TQ_Prseq_Tracks_AddBpfTypeToTrack(object, track->index, values.name, values.minimum, values.maximum,
                                           values.default_))
        return edit.nothing();
    TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfType(edit, track, std::ssize(track->bpftypes) - 1);
    report_types(object, *track);
}

void delete_bpf_type(Prseq& object, const TrackRef& track, long index) {
    Edit edit(object, Change::Types);
    RemovedBpfType removed = remove_bpf_type(*track, index);
    if (!removed.type) return edit.nothing();
    TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteBpfType(edit, track, std::move(removed));
    report_types(object, *track);
}

void change_bpf_type(Prseq& object, const TrackRef& track, long index, const BpfTypeValues& values) {
    BpfTypeRef type = TQ_Prseq_Tracks_GetBpfTypeWithGivenIndex(*track, index);
    if (!type) return;
    const BpfTypeValues previous = *type;
    BpfTypeValues next = values;
    next.name = free_bpf_type_name(*track, *type, values.name);
    if (next == previous) return;
    Edit edit(object, Change::Types);
    static_cast<BpfTypeValues&>(*type) = next;
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeBpfType(edit, track, std::move(type), previous);
    report_types(object, *track);
}

long add_bpf_point(Prseq& object, const CurveOf& curve, BpfPoint point) {
    Edit edit(object, Change::Events);
    BpfPoints& points = curve.bpf->points;
    const long index = TQ_Prseq_Events_FindNextBpfPointAfterHere(*curve.bpf, point.x);
    if (index < 0) {
        edit.nothing();
        return -1;
    }
    BpfPoints before = points;
    points.insert(points.begin() + index, point);
    TQ_Prseq_Events_LookAgain(*curve.event);
    TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfPoint(edit, curve, std::move(before));
    return index;
}

void delete_bpf_points(Prseq& object, const CurveOf& curve, BpfPoints left) {
    Edit edit(object, Change::Events);
    std::swap(curve.bpf->points, left);
    TQ_Prseq_Events_LookAgain(*curve.event);
    TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteBpfPoints(edit, curve, std::move(left));
}

void TQ_Prseq_Events_DeleteSelectedBpfPoints(Prseq& object, const CurveOf& curve) {
    const std::vector<size_t> selected = selected_bpf_points(object, *curve.bpf);
    BpfPoints left;
    for (size_t i = 0, last = curve.bpf->points.size() - 1; i <= last; ++i)
        if (i == 0 || i == last || !std::ranges::binary_search(selected, i))
            left.push_back(curve.bpf->points[i]);
    if (left.size() == curve.bpf->points.size()) return;
    deselect_bpf_points(object, *curve.bpf);
    delete_bpf_points(object, curve, std::move(left));
}

void move_bpf_points(Prseq& object, const CurveOf& curve, BpfPoints points, size_t moved) {
    Edit edit(object, Change::Events);
    std::swap(curve.bpf->points, points);
    TQ_Prseq_Events_LookAgain(*curve.event);
    TQ_Prseq_Undoredo_AddUndoRedoItem_MoveBpfPoints(edit, curve, std::move(points), moved);
}

}  // namespace tq
