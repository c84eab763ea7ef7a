#include "edits/clipboard.h"

#include <algorithm>

#include "edits/track_edits.h"
#include "history/edit.h"
#include "history/recorders.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "model/bpfs.h"
#include "model/events.h"
#include "model/parameters.h"
#include "model/selected_events.h"
#include "model/selection.h"
#include "model/tracks.h"

namespace tq {

namespace {

bool in_select_mode(const Prseq& object) { return object.maindisplay.mousemode == MouseMode::Select; }

/// The clipboard keeps what events carried as it was: with copies of the types, one a type.
template <typename Type>
class TypeCopies {
 public:
    Ref<Type> of(const Ref<Type>& type) {
        auto known = std::ranges::find(copies_, type, &std::pair<Ref<Type>, Ref<Type>>::first);
        if (known == copies_.end()) known = copies_.insert(copies_.end(), {type, make_ref<Type>(*type)});
        return known->second;
    }

 private:
    std::vector<std::pair<Ref<Type>, Ref<Type>>> copies_;
};

/// The type that curves of a type from elsewhere have on the track; added when the track lacks it.
BpfType& type_for(Edit& edit, const TrackRef& track, const BpfType& type) {
    if (BpfType* added = TQ_Prseq_Tracks_AddBpfTypeToTrack(edit.object(), track->index, type.name,
                                                           type.minimum, type.maximum, type.default_)) {
        TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfType(edit, track,
                                                     static_cast<long>(track->bpftypes.size()) - 1);
        return *added;
    }
    return *find_identical_bpf_type(*track, type);
}

using TypesHere = std::vector<std::pair<BpfTypeRef, BpfTypeRef>>;

/// Which types of the track stand for those of the event's curves; a type of that name with another range may
/// have been there. "Pitch" every track has.
TypesHere add_curve_types(Edit& edit, const TrackRef& track, const Event& event) {
    TypesHere types;
    for (const BpfRef& bpf : event.bpfs)
        if (bpf->name() != tq_sym_Pitch) types.emplace_back(bpf->type, &type_for(edit, track, *bpf->type));
    return types;
}

void take_types(Event& event, const TypesHere& types) {
    for (const BpfRef& bpf : event.bpfs) {
        auto here = std::ranges::find(types, bpf->type, &TypesHere::value_type::first);
        if (here != types.end()) bpf->type = here->second;
    }
}

void add_parameter_types(Edit& edit, const TrackRef& track, const Event& event) {
    for (const ParameterValue& value : event.parametervalues)
        if (TQ_Prseq_Parameters_AddMissingParameterTypeToTrack(*track, value))
            TQ_Prseq_Undoredo_AddUndoRedoItem_AddParameterTypeToTrack(
                edit, track, static_cast<long>(track->parametertypes.size()) - 1);
}

}  // namespace

void TQ_Prseq_Clipboard_Clear(Prseq& object) { object.clipboard.events.clear(); }

void TQ_Prseq_Clipboard_CopySelectedEventsToClipboard(Prseq& object) {
    Clipboard& clipboard = object.clipboard;
    clipboard.kind = Clipboard::Kind::Events;
    clipboard.events.reserve(object.selection.size());
    TypeCopies<BpfType> bpftypes;
    TypeCopies<ParameterType> parametertypes;
    for (const EventRef& event : object.selection) {
        EventRef copy = TQ_Prseq_Events_DuplicateEvent(object, *event);
        for (const BpfRef& bpf : copy->bpfs) bpf->type = bpftypes.of(bpf->type);
        for (ParameterValue& value : copy->parametervalues) value.type = parametertypes.of(value.type);
        clipboard.events.push_back(std::move(copy));
    }
}

void TQ_Prseq_Clipboard_CopySelection(Prseq& object) {
    TQ_Prseq_Clipboard_Clear(object);
    if (!in_select_mode(object)) return;
    list_selected_events(object);
    TQ_Prseq_Clipboard_CopySelectedEventsToClipboard(object);
}

void TQ_Prseq_Clipboard_CutSelection(Prseq& object) {
    TQ_Prseq_Clipboard_Clear(object);
    if (!in_select_mode(object)) return;
    Edit edit(object, Change::Events);
    const size_t count = list_selected_events(object);
    TQ_Prseq_Clipboard_CopySelectedEventsToClipboard(object);
    if (!count) return edit.nothing();
    TQ_Prseq_Undoredo_AddUndoRedoItem_CutEvents(edit, object.selection);
    TQ_Prseq_Tracks_DeleteReferenceOfSelectedEventsInTrack(object, object.activetrack);
}

const std::vector<EventRef>* TQ_Prseq_Clipboard_GetItemToPaste(const Prseq& object) {
    const Clipboard& clipboard = object.clipboard;
    bool can_paste = clipboard.kind == Clipboard::Kind::Events && !clipboard.events.empty() &&
                     object.maindisplay.mousemode != MouseMode::EditBpf;
    return can_paste ? &clipboard.events : nullptr;
}

void TQ_Prseq_Clipboard_PasteSelection(Prseq& object) {
    if (TQ_Prseq_Clipboard_GetItemToPaste(object)) TQ_Prseq_Clipboard_PasteEventsFromClipboard(object);
}

std::optional<double> paste_events_at(Prseq& object, double ms) {
    const std::vector<EventRef>* events = TQ_Prseq_Clipboard_GetItemToPaste(object);
    if (!events) return {};
    double first = events->front()->start, end = 0;
    for (const EventRef& event : *events) {
        first = std::min(first, event->start);
        end = std::max(end, event->end());
    }
    TQ_Prseq_Clipboard_PasteEventsFromClipboard(object, ms - first);
    return ms + end - first;
}

void TQ_Prseq_Clipboard_PasteEventsFromClipboard(Prseq& object, double later) {
    const std::vector<EventRef>& events = object.clipboard.events;
    Edit edit(object, Change::Events);
    if (object.tracks.empty()) prseq_addtrack(object, {tq_sym_Untitled});
    TrackRef track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (!track || events.empty()) return edit.nothing();
    TQ_Prseq_Tracks_DeselectAllEventsInTrack(object, object.activetrack);
    const TypesHere types = add_curve_types(edit, track, *events.front());
    add_parameter_types(edit, track, *events.front());
    std::vector<EventRef> pasted;
    pasted.reserve(events.size());
    for (const EventRef& event : events) {
        EventRef copy = TQ_Prseq_Events_DuplicateEvent(object, *event);
        copy->start += later;
        take_types(*copy, types);
        conform_event_to(*track, *copy);
        TQ_Prseq_Tracks_InsertEvent(object, *track, copy);
        TQ_Prseq_Tracks_SelectEvent2(object, *copy);
        pasted.push_back(std::move(copy));
    }
    TQ_Prseq_Undoredo_AddUndoRedoItem_PasteEvents(edit, std::move(pasted));
}

}  // namespace tq
