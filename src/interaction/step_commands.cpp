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
/// bars on; of beats, or of their parts, where it fills no more than half of a bar, or of a beat. What
/// swings, or plays late, may last into the next of these by less than a part.
double distance_of_copies(const Prseq& object, const TimeSpan& span) {
    constexpr double rounding = 1e-3;  // of a step
    const std::optional<Measure> bar = TQ_Prseq_Meter_GetMeasureFromPosition(object.meter, span.start);
    const double filled = span.end - span.start;
    if (!divides_beats(object) || !bar) return filled;
    const double length = bar->end - bar->start, beat = length / static_cast<double>(bar->beats),
                 part = beat / static_cast<double>(object.snap_division);
    double step = part;
    for (const double longer : {beat, length})
        if (filled > longer / 2) step = longer;
    const double starts = std::floor((span.last_start - span.start) / step + rounding) + 1;
    const double over = filled - starts * step;
    return (over < part * (1 - rounding) ? starts : std::ceil(filled / step - rounding)) * step;
}

}  // namespace

/// What is pasted again goes on behind what was pasted.
void paste_at_position(Prseq& object) {
    const double at = edited_position(object);
    const std::optional<TimeSpan> pasted = paste_events_at(object, at);
    if (pasted && !object.playing) prseq_position(object, at + distance_of_copies(object, *pasted));
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
    // Where nothing would be left, half of it is.
    const auto after = [&, longer = grid_steps * step_ms(object, resized)](const UndoEventSnapshot& s) {
        const double length = s.duration + longer,
                     wanted = length > shortest ? length : kept_time(object, s.duration / 2);
        return std::max(wanted, std::min(s.duration, shortest));
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
    const std::vector<EventRef> events = all_selected_events(object);
    if (events.empty()) return edit.nothing();
    const TimeSpan span = time_span(events);
    std::vector<EventRef> copies = copy_on_their_tracks(object, events, distance_of_copies(object, span));
    deselect_all_events(object);
    TQ_Prseq_Tracks_SelectEventsFromLinkedList(object, copies);
    TQ_Prseq_Undoredo_AddUndoRedoItem_CopyEvents(edit, std::move(copies));
    list_selected_events(object);
}

}  // namespace tq
