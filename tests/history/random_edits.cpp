#include "history/random_edits.h"

#include "history/capture.h"
#include "history/clipboard.h"
#include "history/recorders.h"
#include "interaction/edits.h"
#include "interaction/main_press.h"
#include "model/bpfs.h"
#include "model/buffers.h"
#include "model/parameters.h"
#include "model/selected_events.h"
#include "model/selection.h"
#include "model/tracks.h"
#include "shell/symbols.h"

namespace tq {

void RandomEdits::edit() {
    static constexpr void (RandomEdits::*edits[])() = {
        &RandomEdits::select_some,
        &RandomEdits::select_some,
        &RandomEdits::copy,
        &RandomEdits::cut,
        &RandomEdits::paste,
        &RandomEdits::paste,
        &RandomEdits::delete_selected,
        &RandomEdits::move_selected,
        &RandomEdits::move_selected,
        &RandomEdits::copy_by_dragging,
        &RandomEdits::resize_starts,
        &RandomEdits::resize_durations,
        &RandomEdits::slice,
        &RandomEdits::slice,
        &RandomEdits::glue,
        &RandomEdits::glue,
        &RandomEdits::change_label,
        &RandomEdits::change_message,
        &RandomEdits::change_buffer,
        &RandomEdits::change_velocities,
        &RandomEdits::change_parameters,
        &RandomEdits::delete_parameter_type,
        &RandomEdits::change_parameter_type,
        &RandomEdits::add_bpf_type,
        &RandomEdits::add_bpf_type,
        &RandomEdits::delete_bpf_type,
        &RandomEdits::change_bpf_type,
        &RandomEdits::add_point,
        &RandomEdits::add_point,
        &RandomEdits::delete_points,
        &RandomEdits::move_points,
        &RandomEdits::change_color,
        &RandomEdits::change_name,
    };
    close_event_capture(object_);
    (this->*edits[below(std::size(edits))])();
}

Track* RandomEdits::active() const { return TQ_Prseq_Tracks_GetActiveTrack(object_); }

EventRef RandomEdits::any_event() {
    const Track* track = active();
    return track && !track->events.empty() ? track->events.at(below(track->events.size())) : nullptr;
}

BpfRef RandomEdits::any_curve() {
    EventRef event = any_event();
    return event ? event->bpfs[below(event->bpfs.size())] : nullptr;
}

void RandomEdits::select_some() {
    const long track = object_.activetrack;
    if (below(2)) TQ_Prseq_Tracks_DeselectAllEventsInTrack(object_, track);
    if (below(5) == 0) TQ_Prseq_Tracks_SelectAllEvents(object_, track);
    for (size_t i = below(4); i > 0; --i)
        TQ_Prseq_Tracks_SelectEvent(object_, track, static_cast<long>(below(30)));
}

void RandomEdits::copy() { TQ_Prseq_Clipboard_CopySelection(object_); }
void RandomEdits::cut() { TQ_Prseq_Clipboard_CutSelection(object_); }
void RandomEdits::paste() { TQ_Prseq_Clipboard_PasteSelection(object_); }
void RandomEdits::delete_selected() { prseq_deleteselectedevents(object_); }

/// What a press on a selected event does.
void RandomEdits::press_selection() {
    TQ_Prseq_Tracks_MakeLinkedListFromAllSelectedEvents(object_, object_.activetrack);
    TQ_Prseq_Maindisplay_Click(object_, 100, 100);
    MainPress& press = object_.press;
    press.clickedevent = object_.selection.empty() ? nullptr : object_.selection.front();
    press.selectionwhenclicked = TQ_Prseq_Tracks_CalculateBoundingRectOfSelectedEvents(object_);
    TQ_Prseq_Tracks_CalculateEventsOffsetFromSelectionRectWhenClicked(object_);
    TQ_Prseq_Tracks_MakeUndoEventsFromSelectedEvents(object_);
}

void RandomEdits::move_selected() {
    press_selection();
    if (object_.selection.empty()) return;
    object_.snaptime = below(2) == 0;
    object_.snappitch = below(2) == 0;
    for (int step = 0; step < 3; ++step) {
        object_.press.drag = {static_cast<double>(below(400)), static_cast<double>(below(300))};
        TQ_Prseq_Tracks_MoveSelectedEventsOnTrack(object_, object_.activetrack);
    }
    TQ_Prseq_Undoredo_AddUndoRedoItem_MoveEvents(object_, object_.press.undoevents);
}

void RandomEdits::copy_by_dragging() {
    press_selection();
    if (object_.selection.empty()) return;
    std::vector<EventRef> copies = TQ_Prseq_Tracks_CopySelectedEventsOnTrack(object_, object_.activetrack);
    TQ_Prseq_Tracks_DeselectAllEventsInTrack(object_, object_.activetrack);
    TQ_Prseq_Tracks_SelectEventsFromLinkedList(object_, copies);
    press_selection();
    object_.press.drag = {static_cast<double>(below(400)), static_cast<double>(below(300))};
    TQ_Prseq_Tracks_MoveSelectedEventsOnTrack(object_, object_.activetrack);
    TQ_Prseq_Undoredo_AddUndoRedoItem_CopyEvents(object_, copies);
}

void RandomEdits::resize_starts() {
    press_selection();
    if (object_.selection.empty()) return;
    for (const EventRef& event : object_.selection) {
        const double start = static_cast<double>(below(static_cast<size_t>(event->end()) + 1));
        TQ_Prseq_Events_SetEventTimes(*event, start, event->end() - start);
    }
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsStart(object_, object_.press.undoevents);
}

void RandomEdits::resize_durations() {
    press_selection();
    if (object_.selection.empty()) return;
    for (const EventRef& event : object_.selection)
        TQ_Prseq_Events_SetEventDuration(*event, 1 + static_cast<double>(below(3000)));
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLength(object_, object_.press.undoevents);
}

void RandomEdits::slice() {
    if (EventRef event = any_event())
        slice_event(object_, event, event->start + static_cast<double>(below(1000)));
}

void RandomEdits::glue() {
    EventRef event = any_event();
    if (!event) return;
    if (Event* next = event->track->events.next(*event); next && below(2)) {
        EventState before = event_state(*next);
        next->pitch = event->pitch;  // so that there is something to glue
        TQ_Prseq_Undoredo_AddUndoRedoItem_ModifyEvents(object_, {{next, before, event_state(*next)}});
    }
    glue_event_to_next(object_, event);
}

template <typename Change>
void RandomEdits::change_state(void (*record)(Prseq&, EventRef, EventState), Change change) {
    EventRef event = any_event();
    if (!event) return;
    EventState before = event_state(*event);
    change(*event);
    record(object_, event, std::move(before));
}

void RandomEdits::change_label() {
    change_state(TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLabel,
                 [&](Event& event) { event.label = gensym("l" + std::to_string(below(9))); });
}

void RandomEdits::change_message() {
    change_state(TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsMessage,
                 [&](Event& event) { event.message = gensym("m " + std::to_string(below(9))); });
}

void RandomEdits::change_buffer() {
    const double value = static_cast<double>(below(9));
    switch (below(4)) {
        case 0:
            return change_state(TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBuffername, [&](Event& event) {
                TQ_Prseq_Buffer_AttachBufferToEvent(object_, event, gensym("sound"));
            });
        case 1:
            return change_state(TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferAdapt,
                                [&](Event& event) { event.make_link().adapt = below(2); });
        case 2:
            return change_state(TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferStart,
                                [&](Event& event) { event.make_link().start = value; });
        default:
            return change_state(TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferEnd,
                                [&](Event& event) { event.make_link().end = value; });
    }
}

void RandomEdits::change_velocities() {
    std::vector<ValueChange> changes;
    if (const Track* track = active())
        track->events.for_each([&](Event& event) {
            const double next = static_cast<double>(below(128));
            changes.push_back({&event, event.velocity, next});
            event.velocity = next;
        });
    if (!changes.empty()) TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsVelocity(object_, changes);
}

void RandomEdits::change_parameters() {
    EventRef event = any_event();
    if (!event || event->parametervalues.empty()) return;
    ParameterValue& value = event->parametervalues[below(event->parametervalues.size())];
    const double previous = value.value;
    value.value = static_cast<double>(below(11));
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsParameter(object_, {{event, previous, value.value}},
                                                            value.name);
}

void RandomEdits::delete_parameter_type() {
    TrackRef track = active();
    if (!track || track->parametertypes.empty()) return;
    const long index = static_cast<long>(below(track->parametertypes.size()));
    TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteParameterType(object_, track,
                                                          remove_parameter_type(*track, index));
}

void RandomEdits::change_parameter_type() {
    TrackRef track = active();
    if (!track || track->parametertypes.empty()) return;
    const long index = static_cast<long>(below(track->parametertypes.size()));
    const Symbol name = gensym("changed" + std::to_string(random_()));
    ParameterType& type = *track->parametertypes[static_cast<size_t>(index)];
    ParameterTypeRef previous = TQ_Prseq_Parameters_CopyDictionary(type);
    TQ_Prseq_Parameters_ChangeParameterNameOnAllEventsOnTrack(*track, index, name);
    type.name = name;
    type.maximum = static_cast<double>(below(100));
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeParameterTypeOnTrack(object_, track, index, previous);
}

void RandomEdits::add_bpf_type() {
    TrackRef track = active();
    if (!track) return;
    const Symbol name = gensym("c" + std::to_string(below(3)));
    if (TQ_Prseq_Tracks_AddBpfTypeToTrack(object_, track->index, name, 0, static_cast<double>(1 + below(3)),
                                          0))
        TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfType(object_, track,
                                                     static_cast<long>(track->bpftypes.size()) - 1);
}

void RandomEdits::delete_bpf_type() {
    TrackRef track = active();
    if (!track || track->bpftypes.size() < 2) return;
    const long index = static_cast<long>(1 + below(track->bpftypes.size() - 1));
    TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteBpfType(object_, track, remove_bpf_type(*track, index));
}

void RandomEdits::change_bpf_type() {
    TrackRef track = active();
    if (!track || track->bpftypes.size() < 2) return;
    BpfTypeRef type = track->bpftypes[1 + below(track->bpftypes.size() - 1)];
    const BpfTypeValues previous{type->name, type->minimum, type->maximum, type->default_};
    type->name = gensym("changed" + std::to_string(random_()));
    type->maximum = static_cast<double>(2 + below(100));
    TQ_Prseq_Tracks_ChangeValuesOfNamedBpfTypeForAllEventsOnTrack(*track, previous.name, *type);
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeBpfType(object_, track, type, previous);
}

void RandomEdits::add_point() {
    BpfRef curve = any_curve();
    if (!curve) return;
    BpfPoints before = curve->points;
    const double x = static_cast<double>(1 + below(999)) / 1000;
    TQ_Prseq_Events_AddBpfPoint(*curve, {x, static_cast<double>(below(100)) / 100});
    TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfPoint(object_, curve, std::move(before));
}

void RandomEdits::delete_points() {
    BpfRef curve = any_curve();
    if (!curve || curve->points.size() < 3) return;
    BpfPoints before = curve->points;
    curve->points.erase(curve->points.begin() + 1,
                        curve->points.begin() + static_cast<long>(2 + below(curve->points.size() - 2)));
    TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteBpfPoints(object_, curve, std::move(before));
}

void RandomEdits::move_points() {
    BpfRef curve = any_curve();
    if (!curve) return;
    BpfPoints before = curve->points;
    for (BpfPoint& point : curve->points) point.y = static_cast<double>(below(100)) / 100;
    const size_t moved = curve->points.size();
    TQ_Prseq_Undoredo_AddUndoRedoItem_MoveBpfPoints(object_, curve, std::move(before), moved);
}

void RandomEdits::change_color() {
    TrackRef track = active();
    if (!track) return;
    const double previous = track->hue, hue = static_cast<double>(below(10)) / 10;
    TQ_Prseq_Tracks_SetColor(object_, hue);
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackColor(object_, track, previous, hue);
}

void RandomEdits::change_name() {
    TrackRef track = active();
    if (!track) return;
    std::string previous = std::exchange(track->name, "name " + std::to_string(below(9)));
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackName(object_, track, previous);
}

}  // namespace tq
