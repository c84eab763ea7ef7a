#include "history/items.h"

#include "model/events.h"
#include "model/tracks.h"

namespace tq {

bool in_document(const TrackRef& track) { return track && track->index >= 0; }

std::vector<PlacedEvent> placed_events(const std::vector<EventRef>& events) {
    std::vector<PlacedEvent> placed;
    placed.reserve(events.size());
    for (const EventRef& event : events) placed.push_back({event, event->track});
    return placed;
}

void put_events(Prseq& object, const std::vector<PlacedEvent>& events) {
    for (const PlacedEvent& placed : events) {
        if (!in_document(placed.track) || placed.event->track) continue;
        conform_event_to(*placed.track, *placed.event);
        TQ_Prseq_Tracks_InsertEvent(object, *placed.track, placed.event);
    }
}

void take_events(Prseq& object, const std::vector<PlacedEvent>& events) {
    std::vector<EventRef> leaving;
    leaving.reserve(events.size());
    for (const PlacedEvent& placed : events)
        if (placed.event->track && placed.event->track->index >= 0) leaving.push_back(placed.event);
    TQ_Prseq_Tracks_DeleteEventReferences(object, leaving);
}

}  // namespace tq
