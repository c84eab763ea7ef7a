#include "interaction/dragged_events.h"

#include <algorithm>
#include <iterator>

#include "model/buffers.h"
#include "model/events.h"
#include "model/selected_events.h"
#include "model/selection.h"
#include "model/timeline.h"
#include "model/tracks.h"

namespace tq {

DraggedEvents::DraggedEvents(Prseq& object) : before_(before_steps(object)) { take(object); }

void DraggedEvents::take(Prseq& object) {
    track_ = TQ_Prseq_Tracks_GetActiveTrack(object);
    list_selected_events(object);
    snapshots_ = undo_snapshots(object);
}

std::vector<UndoEventSnapshot> DraggedEvents::in_document() const {
    std::vector<UndoEventSnapshot> here;
    std::ranges::copy_if(snapshots_, std::back_inserter(here), [this](const auto& s) { return is_here(s); });
    return here;
}

void DraggedEvents::write_times(Prseq& object, const std::vector<EventTimes>& times) {
    TQ_Prseq_Events_SetEventsTimes(times);
    double end = 0;
    for (const EventTimes& t : times) {
        TQ_Prseq_Buffer_CalculateBufferRatio(*t.event);
        end = std::max(end, t.start + t.duration);
    }
    extend_timeline(object, end);
    object.timelinelengthasked = true;
}

void DraggedEvents::restore() { set_snapshots(in_document()); }

}  // namespace tq
