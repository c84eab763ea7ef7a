#include "interaction/step_commands.h"

#include <algorithm>
#include <utility>

#include "history/edit.h"
#include "history/recorders.h"
#include "instance/prseq.h"
#include "interaction/dragged_events.h"
#include "model/selected_events.h"
#include "model/selection.h"

namespace tq {

namespace {

constexpr double shortest = 1;  // ms

/// The grid of snapping, whether that is on or not.
double step_ms(const Prseq& object) { return object.maindisplay.mslabelincrement / 10; }

}  // namespace

void move_selection(Prseq& object, double grid_steps, double semitones) {
    Edit edit(object, Change::Events);
    DraggedEvents moved(object);
    const DraggedExtent extent = moved.extent();
    const double later = extent.held_later(grid_steps * step_ms(object)),
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
    const auto after = [longer = grid_steps * step_ms(object)](const UndoEventSnapshot& s) {
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
    std::vector<EventRef> copies = TQ_Prseq_Tracks_CopySelectedEventsOnTrack(
        object, object.activetrack, end - object.selection.front()->start);
    TQ_Prseq_Tracks_DeselectAllEventsInTrack(object, object.activetrack);
    TQ_Prseq_Tracks_SelectEventsFromLinkedList(object, copies);
    TQ_Prseq_Undoredo_AddUndoRedoItem_CopyEvents(edit, std::move(copies));
    list_selected_events(object);
}

}  // namespace tq
