#include "interaction/step_commands.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "edits/clipboard.h"
#include "edits/time_grid.h"
#include "history/edit.h"
#include "history/recorders.h"
#include "instance/prseq.h"
#include "interaction/dragged_events.h"
#include "interaction/pointer.h"
#include "model/bars.h"
#include "model/selected_events.h"
#include "model/selection.h"
#include "playback/time.h"

namespace tq {

namespace {

constexpr double shortest = 1;  // ms

/// The grid of snapping, whether that is on or not, where the first of the events begins.
double step_ms(const Prseq& object, const DraggedEvents& events) {
    return Snap::always(object).spacing(events.size() == 0 ? 0 : events.snapshots().front().start);
}

/// How far behind what is copied its copies begin: at its end, or where beats are divided, a whole number of
/// bars on; of beats, or of their parts, where it fills no more than half of a bar, or of a beat.
double distance_of_copies(const Prseq& object, double start, double end) {
    constexpr double rounding = 1e-3;  // of a step
    const std::optional<Measure> bar = TQ_Prseq_Meter_GetMeasureFromPosition(object.meter, start);
    if (!divides_beats(object) || !bar) return end - start;
    const double length = bar->end - bar->start, beat = length / static_cast<double>(bar->beats);
    double step = beat / static_cast<double>(object.snap_division);
    for (const double longer : {beat, length})
        if (end - start > longer / 2) step = longer;
    return std::max(std::ceil((end - start) / step - rounding), 1.) * step;
}

}  // namespace

/// What is pasted again goes on behind what was pasted.
void paste_at_position(Prseq& object) {
    const double at = edited_position(object);
    const std::optional<double> end = paste_events_at(object, at);
    if (end && !object.playing) prseq_position(object, at + distance_of_copies(object, at, *end));
}

void move_selection(Prseq& object, double grid_steps, double semitones) {
    Edit edit(object, Change::Events);
    DraggedEvents moved(object);
    const DraggedExtent extent = moved.extent();
    const double later = extent.held_later(grid_steps * step_ms(object, moved)),
                 higher = extent.held_higher(semitones);
    if (moved.size() == 0 || (later == 0 && higher == 0)) return edit.nothing();
    moved.write(object, [&](const UndoEventSnapshot& s) {
        return DraggedEvents::Values{s.start + later, s.duration, s.pitch + higher};
    });
    TQ_Prseq_Undoredo_AddUndoRedoItem_MoveEvents(edit, moved.snapshots());
}

void lengthen_selection(Prseq& object, double grid_steps) {
    Edit edit(object, Change::Events);
    DraggedEvents resized(object);
    const auto after = [longer = grid_steps * step_ms(object, resized)](const UndoEventSnapshot& s) {
        return std::max(s.duration + longer, std::min(s.duration, shortest));
    };
    if (std::ranges::all_of(resized.snapshots(), [&](const auto& s) { return after(s) == s.duration; }))
        return edit.nothing();
    resized.write(object, [&](const UndoEventSnapshot& s) {
        return DraggedEvents::Values{s.start, after(s), s.pitch};
    });
    resized.fit_buffer_ranges();
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLength(edit, resized.snapshots());
}

void duplicate_selection(Prseq& object) {
    Edit edit(object, Change::Events);
    if (!list_selected_events(object)) return edit.nothing();
    double end = 0;
    for (const EventRef& event : object.selection) end = std::max(end, event->end());
    const double start = object.selection.front()->start;
    std::vector<EventRef> copies = TQ_Prseq_Tracks_CopySelectedEventsOnTrack(
        object, object.activetrack, distance_of_copies(object, start, end));
    TQ_Prseq_Tracks_DeselectAllEventsInTrack(object, object.activetrack);
    TQ_Prseq_Tracks_SelectEventsFromLinkedList(object, copies);
    TQ_Prseq_Undoredo_AddUndoRedoItem_CopyEvents(edit, std::move(copies));
    list_selected_events(object);
}

}  // namespace tq
