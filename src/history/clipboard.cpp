#include "history/clipboard.h"

#include <algorithm>

#include "history/capture.h"
#include "history/recorders.h"
#include "model/bpfs.h"
#include "model/events.h"
#include "model/parameters.h"
#include "model/selected_events.h"
#include "model/selection.h"
#include "model/tracks.h"
#include "shell/change.h"
#include "shell/prseq.h"
#include "shell/symbols.h"
#include "shell/track_messages.h"

namespace tq {

namespace {

bool in_select_mode(const Prseq& object) { return object.maindisplay.mousemode == MouseMode::Select; }

/// The type that a curve from elsewhere has on the track; added when the track lacks it.
const BpfType& type_for(Prseq& object, const TrackRef& track, const Bpf& bpf) {
    if (BpfType* added = TQ_Prseq_Tracks_AddBpfTypeToTrack(object, track->index, bpf.name, bpf.minimum,
                                                           bpf.maximum, bpf.default_)) {
        TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfType(object, track,
                                                     static_cast<long>(track->bpftypes.size()) - 1);
        return *added;
    }
    return *find_identical_bpf_type(*track, bpf);
}

using CurveNames = std::vector<std::pair<Symbol, Symbol>>;

/// What curves are called here and on the track, of which the event's are types from now on; a type of that
/// name with another range may have been there. "Pitch" every track has.
CurveNames add_curve_types(Prseq& object, const TrackRef& track, const Event& event) {
    CurveNames names;
    for (const BpfRef& bpf : event.bpfs)
        if (bpf->name != tq_sym_Pitch) names.emplace_back(bpf->name, type_for(object, track, *bpf).name);
    return names;
}

void rename_curves(Event& event, const CurveNames& names) {
    for (const BpfRef& bpf : event.bpfs) {
        auto name = std::ranges::find(names, bpf->name, &CurveNames::value_type::first);
        if (name != names.end()) bpf->name = name->second;
    }
}

void add_parameter_types(Prseq& object, const TrackRef& track, const Event& event) {
    for (const ParameterValue& value : event.parametervalues)
        if (TQ_Prseq_Parameters_AddMissingParameterTypeToTrack(*track, value))
            TQ_Prseq_Undoredo_AddUndoRedoItem_AddParameterTypeToTrack(
                object, track, static_cast<long>(track->parametertypes.size()) - 1);
}

}  // namespace

void TQ_Prseq_Clipboard_Clear(Prseq& object) { object.clipboard.events.clear(); }

void TQ_Prseq_Clipboard_CopySelectedEventsToClipboard(Prseq& object) {
    Clipboard& clipboard = object.clipboard;
    clipboard.kind = Clipboard::Kind::Events;
    clipboard.events.reserve(object.selection.size());
    for (const EventRef& event : object.selection)
        clipboard.events.push_back(TQ_Prseq_Events_DuplicateEvent(object, *event));
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
    close_event_capture(object);
    const size_t count = list_selected_events(object);
    TQ_Prseq_Clipboard_CopySelectedEventsToClipboard(object);
    if (!count) return;
    TQ_Prseq_Undoredo_AddUndoRedoItem_CutEvents(object, object.selection);
    TQ_Prseq_Tracks_DeleteReferenceOfSelectedEventsInTrack(object, object.activetrack);
    prseq_edited(object, Change::Events);
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

void TQ_Prseq_Clipboard_PasteEventsFromClipboard(Prseq& object) {
    const std::vector<EventRef>& events = object.clipboard.events;
    close_event_capture(object);
    if (object.tracks.empty()) prseq_addtrack(object, {tq_sym_Untitled});
    TrackRef track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (!track || events.empty()) return;
    TQ_Prseq_Tracks_DeselectAllEventsInTrack(object, object.activetrack);
    const CurveNames names = add_curve_types(object, track, *events.front());
    add_parameter_types(object, track, *events.front());
    std::vector<EventRef> pasted;
    pasted.reserve(events.size());
    for (const EventRef& event : events) {
        EventRef copy = TQ_Prseq_Events_DuplicateEvent(object, *event);
        rename_curves(*copy, names);
        conform_event_to(*track, *copy);
        TQ_Prseq_Tracks_InsertEvent(object, *track, copy);
        TQ_Prseq_Tracks_SelectEvent2(object, *copy);
        pasted.push_back(std::move(copy));
    }
    TQ_Prseq_Undoredo_AddUndoRedoItem_PasteEvents(object, std::move(pasted));
    prseq_edited(object, Change::Events);
}

}  // namespace tq
