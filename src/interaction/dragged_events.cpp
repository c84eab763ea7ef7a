#include "interaction/dragged_events.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "model/selection.h"
#include "model/tracks.h"

namespace tq {

double DraggedExtent::held_later(double ms) const { return std::max(ms, -first_start); }

double DraggedExtent::held_higher(double semitones) const {
    return std::clamp(semitones, -low_pitch, std::max(Prseq::maximumpitch - high_pitch, -low_pitch));
}

DraggedExtent DraggedEvents::extent() const {
    if (snapshots_.empty()) return {};
    DraggedExtent extent{HUGE_VAL, -HUGE_VAL, HUGE_VAL, -HUGE_VAL};
    for (const UndoEventSnapshot& s : snapshots_) {
        extent.first_start = std::min(extent.first_start, s.start);
        extent.end = std::max(extent.end, s.start + s.duration);
        extent.low_pitch = std::min(extent.low_pitch, s.pitch);
        extent.high_pitch = std::max(extent.high_pitch, s.pitch);
    }
    return extent;
}

DraggedEvents::DraggedEvents(Prseq& object) : before_(before_steps(object)) {
    list_selected_events(object);
    take(all_selected_events(object));
}

std::vector<UndoEventSnapshot> DraggedEvents::in_document() const {
    std::vector<UndoEventSnapshot> here;
    std::ranges::copy_if(snapshots_, std::back_inserter(here), is_here);
    return here;
}

void DraggedEvents::fit_buffer_ranges() {
    for (const UndoEventSnapshot& s : snapshots_)
        if (is_here(s)) fit_buffer_range(s);
}

void DraggedEvents::restore() { set_snapshots(in_document()); }

}  // namespace tq
