#include "edits/clipboard.h"

#include <algorithm>
#include <span>

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

/// All go to the active track, or each to its own, where that is in the document.
enum class Places { ActiveTrack, Homes };

/// Those of several tracks are beside each other by track.
bool are_of_several_tracks(const std::vector<EventRef>& events) {
    return !events.empty() && events.front()->track != events.back()->track;
}

/// What is put into one track: copies of events that follow each other in the clipboard. Only the first of
/// them decides which curves and values the track gets.
void paste_into(Edit& edit, const TrackRef& track, std::span<const EventRef> events, double later,
                std::vector<EventRef>& pasted) {
    Prseq& object = edit.object();
    const TypesHere types = add_curve_types(edit, track, *events.front());
    add_parameter_types(edit, track, *events.front());
    for (const EventRef& event : events) {
        EventRef copy = TQ_Prseq_Events_DuplicateEvent(object, *event);
        copy->start += later;
        take_types(*copy, types);
        conform_event_to(*track, *copy);
        TQ_Prseq_Tracks_InsertEvent(object, *track, copy);
        TQ_Prseq_Tracks_SelectEvent2(object, *copy);
        pasted.push_back(std::move(copy));
    }
}

/// Which track the event at an index of the clipboard comes to.
TrackRef place_of(const Prseq& object, Places places, size_t index) {
    const std::vector<TrackRef>& homes = object.clipboard.homes;
    const bool comes_home = places == Places::Homes && index < homes.size() && homes[index]->index >= 0;
    return comes_home ? homes[index] : TrackRef(TQ_Prseq_Tracks_GetActiveTrack(object));
}

void paste_events(Prseq& object, Places places, double later) {
    const std::vector<EventRef>& events = object.clipboard.events;
    Edit edit(object, Change::Events);
    if (object.tracks.empty()) prseq_addtrack(object, {tq_sym_Untitled});
    if (!TQ_Prseq_Tracks_GetActiveTrack(object) || events.empty()) return edit.nothing();
    deselect_all_events(object);
    std::vector<EventRef> pasted;
    pasted.reserve(events.size());
    for (size_t first = 0; first < events.size();) {
        const TrackRef track = place_of(object, places, first);
        size_t behind = first + 1;
        while (behind < events.size() && place_of(object, places, behind) == track) ++behind;
        paste_into(edit, track, std::span(events).subspan(first, behind - first), later, pasted);
        first = behind;
    }
    TQ_Prseq_Undoredo_AddUndoRedoItem_PasteEvents(edit, std::move(pasted));
}

}  // namespace

void TQ_Prseq_Clipboard_Clear(Prseq& object) {
    object.clipboard.events.clear();
    object.clipboard.homes.clear();
}

void TQ_Prseq_Clipboard_CopySelectedEventsToClipboard(Prseq& object) {
    Clipboard& clipboard = object.clipboard;
    clipboard.kind = Clipboard::Kind::Events;
    const std::vector<EventRef> selected = all_selected_events(object);
    clipboard.events.reserve(selected.size());
    if (are_of_several_tracks(selected))
        for (const EventRef& event : selected) clipboard.homes.emplace_back(event->track);
    TypeCopies<BpfType> bpftypes;
    TypeCopies<ParameterType> parametertypes;
    for (const EventRef& event : selected) {
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
    list_selected_events(object);
    TQ_Prseq_Clipboard_CopySelectedEventsToClipboard(object);
    const std::vector<EventRef> selected = all_selected_events(object);
    if (selected.empty()) return edit.nothing();
    TQ_Prseq_Undoredo_AddUndoRedoItem_CutEvents(edit, selected);
    TQ_Prseq_Tracks_DeleteEventReferences(object, selected);
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

std::optional<TimeSpan> paste_events_at(Prseq& object, double ms) {
    const std::vector<EventRef>* events = TQ_Prseq_Clipboard_GetItemToPaste(object);
    if (!events) return {};
    const TimeSpan span = time_span(*events);
    paste_events(object, Places::Homes, ms - span.start);
    const double later = ms - span.start;
    return TimeSpan{ms, span.last_start + later, span.end + later};
}

void TQ_Prseq_Clipboard_PasteEventsFromClipboard(Prseq& object) {
    paste_events(object, Places::ActiveTrack, 0);
}

}  // namespace tq
