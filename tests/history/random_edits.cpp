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

namespace tq {
namespace {

struct Edits {
    Prseq& object;
    std::mt19937& random;

    size_t below(size_t count) { return random() % count; }
    double number(size_t count) { return static_cast<double>(below(count)); }

    Track* active() const { return TQ_Prseq_Tracks_GetActiveTrack(object); }

    EventRef any_event() {
        const Track* track = active();
        return track && !track->events.empty() ? track->events.at(below(track->events.size())) : nullptr;
    }

    BpfRef any_curve() {
        EventRef event = any_event();
        return event ? event->bpfs[below(event->bpfs.size())] : nullptr;
    }

    void select_some() {
        const long track = object.activetrack;
        if (below(2)) TQ_Prseq_Tracks_DeselectAllEventsInTrack(object, track);
        if (below(5) == 0) TQ_Prseq_Tracks_SelectAllEvents(object, track);
        for (size_t i = below(4); i > 0; --i)
            TQ_Prseq_Tracks_SelectEvent(object, track, static_cast<long>(below(30)));
    }

    void copy() { TQ_Prseq_Clipboard_CopySelection(object); }
    void cut() { TQ_Prseq_Clipboard_CutSelection(object); }
    void paste() { TQ_Prseq_Clipboard_PasteSelection(object); }
    void delete_selected() { prseq_deleteselectedevents(object); }

    /// What a press on a selected event does. False when there is none.
    bool press_selection() {
        TQ_Prseq_Tracks_MakeLinkedListFromAllSelectedEvents(object, object.activetrack);
        TQ_Prseq_Maindisplay_Click(object, 100, 100);
        MainPress& press = object.press;
        press.clickedevent = object.selection.empty() ? nullptr : object.selection.front();
        press.selectionwhenclicked = TQ_Prseq_Tracks_CalculateBoundingRectOfSelectedEvents(object);
        TQ_Prseq_Tracks_CalculateEventsOffsetFromSelectionRectWhenClicked(object);
        TQ_Prseq_Tracks_MakeUndoEventsFromSelectedEvents(object);
        return !object.selection.empty();
    }

    void move_selected() {
        if (!press_selection()) return;
        object.snaptime = below(2) == 0;
        object.snappitch = below(2) == 0;
        for (int step = 0; step < 3; ++step) {
            object.press.drag = {number(400), number(300)};
            TQ_Prseq_Tracks_MoveSelectedEventsOnTrack(object, object.activetrack);
        }
        TQ_Prseq_Undoredo_AddUndoRedoItem_MoveEvents(object, object.press.undoevents);
    }

    void copy_by_dragging() {
        if (!press_selection()) return;
        std::vector<EventRef> copies = TQ_Prseq_Tracks_CopySelectedEventsOnTrack(object, object.activetrack);
        TQ_Prseq_Tracks_DeselectAllEventsInTrack(object, object.activetrack);
        TQ_Prseq_Tracks_SelectEventsFromLinkedList(object, copies);
        press_selection();
        object.press.drag = {number(400), number(300)};
        TQ_Prseq_Tracks_MoveSelectedEventsOnTrack(object, object.activetrack);
        TQ_Prseq_Undoredo_AddUndoRedoItem_CopyEvents(object, copies);
    }

    void resize_starts() {
        if (!press_selection()) return;
        for (const EventRef& event : object.selection) {
            const double start = number(static_cast<size_t>(event->end()) + 1);
            TQ_Prseq_Events_SetEventTimes(*event, start, event->end() - start);
        }
        TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsStart(object, object.press.undoevents);
    }

    void resize_durations() {
        if (!press_selection()) return;
        for (const EventRef& event : object.selection)
            TQ_Prseq_Events_SetEventDuration(*event, 1 + number(3000));
        TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLength(object, object.press.undoevents);
    }

    void slice() {
        if (EventRef event = any_event()) slice_event(object, event, event->start + number(1000));
    }

    void glue() {
        EventRef event = any_event();
        if (!event) return;
        if (Event* next = event->track->events.next(*event); next && below(2)) {
            EventState before = event_state(*next);
            next->pitch = event->pitch;  // so that there is something to glue
            TQ_Prseq_Undoredo_AddUndoRedoItem_ModifyEvents(object, {{next, before, event_state(*next)}});
        }
        glue_event_to_next(object, event);
    }

    void change_state() {
        static const struct {
            void (*record)(Prseq&, EventRef, EventState);
            void (*change)(Edits&, Event&);
        } rows[] = {
            {TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLabel,
             [](Edits& e, Event& event) { event.label = gensym("l" + std::to_string(e.below(9))); }},
            {TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsMessage,
             [](Edits& e, Event& event) { event.message = gensym("m " + std::to_string(e.below(9))); }},
            {TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBuffername,
             [](Edits& e, Event& event) {
                 TQ_Prseq_Buffer_AttachBufferToEvent(e.object, event, gensym("sound"));
             }},
            {TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferAdapt,
             [](Edits& e, Event& event) { event.make_link().adapt = e.below(2); }},
            {TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferStart,
             [](Edits& e, Event& event) { event.make_link().start = e.number(9); }},
            {TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferEnd,
             [](Edits& e, Event& event) { event.make_link().end = e.number(9); }},
        };
        EventRef event = any_event();
        if (!event) return;
        EventState before = event_state(*event);
        const auto& row = rows[below(std::size(rows))];
        row.change(*this, *event);
        row.record(object, event, std::move(before));
    }

    void change_velocities() {
        std::vector<ValueChange> changes;
        if (const Track* track = active())
            track->events.for_each([&](Event& event) {
                const double next = number(128);
                changes.push_back({&event, event.velocity, next});
                event.velocity = next;
            });
        if (!changes.empty()) TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsVelocity(object, changes);
    }

    void change_parameters() {
        EventRef event = any_event();
        if (!event || event->parametervalues.empty()) return;
        ParameterValue& value = event->parametervalues[below(event->parametervalues.size())];
        const double previous = value.value;
        value.value = number(11);
        TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsParameter(object, {{event, previous, value.value}},
                                                                value.name);
    }

    void delete_parameter_type() {
        TrackRef track = active();
        if (!track || track->parametertypes.empty()) return;
        const long index = static_cast<long>(below(track->parametertypes.size()));
        TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteParameterType(object, track,
                                                              remove_parameter_type(*track, index));
    }

    void change_parameter_type() {
        TrackRef track = active();
        if (!track || track->parametertypes.empty()) return;
        const long index = static_cast<long>(below(track->parametertypes.size()));
        const Symbol name = gensym("changed" + std::to_string(random()));
        ParameterType& type = *track->parametertypes[static_cast<size_t>(index)];
        ParameterTypeRef previous = TQ_Prseq_Parameters_CopyDictionary(type);
        TQ_Prseq_Parameters_ChangeParameterNameOnAllEventsOnTrack(*track, index, name);
        type.name = name;
        type.maximum = number(100);
        TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeParameterTypeOnTrack(object, track, index, previous);
    }

    void add_bpf_type() {
        TrackRef track = active();
        if (!track) return;
        const Symbol name = gensym("c" + std::to_string(below(3)));
        if (TQ_Prseq_Tracks_AddBpfTypeToTrack(object, track->index, name, 0, 1 + number(3), 0))
            TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfType(object, track,
                                                         static_cast<long>(track->bpftypes.size()) - 1);
    }

    void delete_bpf_type() {
        TrackRef track = active();
        if (!track || track->bpftypes.size() < 2) return;
        const long index = static_cast<long>(1 + below(track->bpftypes.size() - 1));
        TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteBpfType(object, track, remove_bpf_type(*track, index));
    }

    void change_bpf_type() {
        TrackRef track = active();
        if (!track || track->bpftypes.size() < 2) return;
        BpfTypeRef type = track->bpftypes[1 + below(track->bpftypes.size() - 1)];
        const BpfTypeValues previous{type->name, type->minimum, type->maximum, type->default_};
        type->name = gensym("changed" + std::to_string(random()));
        type->maximum = 2 + number(100);
        TQ_Prseq_Tracks_ChangeValuesOfNamedBpfTypeForAllEventsOnTrack(*track, previous.name, *type);
        TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeBpfType(object, track, type, previous);
    }

    void add_point() {
        BpfRef curve = any_curve();
        if (!curve) return;
        BpfPoints before = curve->points;
        const double x = (1 + number(999)) / 1000;
        TQ_Prseq_Events_AddBpfPoint(*curve, {x, number(100) / 100});
        TQ_Prseq_Undoredo_AddUndoRedoItem_AddBpfPoint(object, curve, std::move(before));
    }

    void delete_points() {
        BpfRef curve = any_curve();
        if (!curve || curve->points.size() < 3) return;
        BpfPoints before = curve->points;
        curve->points.erase(curve->points.begin() + 1,
                            curve->points.begin() + static_cast<long>(2 + below(curve->points.size() - 2)));
        TQ_Prseq_Undoredo_AddUndoRedoItem_DeleteBpfPoints(object, curve, std::move(before));
    }

    void move_points() {
        BpfRef curve = any_curve();
        if (!curve) return;
        BpfPoints before = curve->points;
        for (BpfPoint& point : curve->points) point.y = number(100) / 100;
        const size_t moved = curve->points.size();
        TQ_Prseq_Undoredo_AddUndoRedoItem_MoveBpfPoints(object, curve, std::move(before), moved);
    }

    void change_color() {
        TrackRef track = active();
        if (!track) return;
        const double previous = track->hue, hue = number(10) / 10;
        TQ_Prseq_Tracks_SetColor(object, hue);
        TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackColor(object, track, previous, hue);
    }

    void change_name() {
        TrackRef track = active();
        if (!track) return;
        std::string previous = std::exchange(track->name, "name " + std::to_string(below(9)));
        TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeTrackName(object, track, previous);
    }
};

// clang-format off
constexpr void (Edits::*edits[])() = {
    &Edits::select_some, &Edits::select_some, &Edits::copy, &Edits::cut, &Edits::paste, &Edits::paste,
    &Edits::delete_selected, &Edits::move_selected, &Edits::move_selected, &Edits::copy_by_dragging,
    &Edits::resize_starts, &Edits::resize_durations, &Edits::slice, &Edits::slice, &Edits::glue,
    &Edits::glue, &Edits::change_state, &Edits::change_state, &Edits::change_state,
    &Edits::change_velocities, &Edits::change_parameters, &Edits::delete_parameter_type,
    &Edits::change_parameter_type, &Edits::add_bpf_type, &Edits::add_bpf_type, &Edits::delete_bpf_type,
    &Edits::change_bpf_type, &Edits::add_point, &Edits::add_point, &Edits::delete_points,
    &Edits::move_points, &Edits::change_color, &Edits::change_name};
// clang-format on

}  // namespace

void random_edit(Prseq& object, std::mt19937& random) {
    close_event_capture(object);
    Edits some{object, random};
    (some.*edits[some.below(std::size(edits))])();
}

}  // namespace tq
