#include "model/bpf_editor.h"

#include <algorithm>
#include <numeric>

#include "instance/prseq.h"
#include "model/bpfs.h"
#include "model/selection.h"
#include "model/tracks.h"

namespace tq {

void TQ_Prseq_Track_SetSelectedEventForBpfEditingFromSelection(Prseq& object) {
    if (list_selected_events(object) == 1) edit_bpfs_of(object, *object.selection.front());
}

void edit_bpfs_of(Prseq& object, Event& event) {
    object.bpfeditingevent = &event;
    deselect_all_events(object);
    TQ_Prseq_Tracks_SelectEvent2(object, event);
}

Event* bpf_edited_event(const Prseq& object) {
    Event* event = object.bpfeditor ? object.bpfeditingevent.get() : nullptr;
    return event && event->track && event->track == TQ_Prseq_Tracks_GetActiveTrack(object) ? event : nullptr;
}

CurveOf edited_bpf(const Prseq& object) {
    Event* event = bpf_edited_event(object);
    if (!event) return {};
    const BpfType* type =
        TQ_Prseq_Tracks_GetBpfTypeWithGivenIndex(*event->track, event->track->activebpfindex);
    Bpf* bpf = type ? TQ_Prseq_Events_GetBpfWithGivenName(*event, type->name) : nullptr;
    return bpf ? CurveOf{event, bpf} : CurveOf{};
}

std::vector<size_t> selected_bpf_points(const Prseq& object, const Bpf& bpf) {
    if (object.bpfediting.bpf.get() != &bpf) return {};
    std::vector<size_t> selected = object.bpfediting.selected;
    std::erase_if(selected, [&](size_t i) { return i >= bpf.points.size(); });
    return selected;
}

void select_bpf_points(Prseq& object, const BpfRef& bpf, std::vector<size_t> points) {
    BpfEditing& editing = object.bpfediting;
    if (editing.bpf != bpf) editing.currentpoint = -1;
    editing.bpf = bpf;
    editing.selected = std::move(points);
}

void deselect_bpf_points(Prseq& object, const Bpf& bpf) {
    if (object.bpfediting.bpf.get() != &bpf) return;
    object.bpfediting.selected.clear();
    object.bpfediting.currentpoint = -1;
}

void TQ_Prseq_Events_SelectAllPointsInBpf(Prseq& object, const BpfRef& bpf) {
    std::vector<size_t> all(bpf->points.size());
    std::iota(all.begin(), all.end(), size_t{0});
    select_bpf_points(object, bpf, std::move(all));
}

long TQ_Prseq_Events_FindNextBpfPointAfterHere(const Bpf& bpf, double x) {
    const auto next = std::ranges::upper_bound(bpf.points, x, {}, &BpfPoint::x);
    return next == bpf.points.end() ? -1 : next - bpf.points.begin();
}

}  // namespace tq
