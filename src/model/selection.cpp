#include "model/selection.h"

#include "model/tracks.h"
#include "shell/prseq.h"

namespace tq {

void TQ_Prseq_Tracks_DeselectAllEventsInTrack(Prseq& object, long index) {
    Track* track = track_at(object, index);
    if (!track) return;
    track->events.for_each([](Event& event) { event.selected = false; });
}

void TQ_Prseq_Tracks_SelectAllEvents(Prseq& object, long index) {
    Track* track = track_at(object, index);
    if (!track || !track->visible) return;
    track->events.for_each([](Event& event) { event.selected = true; });
}

size_t TQ_Prseq_Tracks_MakeLinkedListFromAllSelectedEvents(Prseq& object, long index) {
    object.selection.clear();
    const Track* track = track_at(object, index);
    if (!track || !track->visible) return 0;
    track->events.for_each([&](Event& event) {
        if (event.selected) object.selection.emplace_back(&event);
    });
    return object.selection.size();
}

}  // namespace tq
