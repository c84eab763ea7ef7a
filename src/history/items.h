// What the items of the history share.
#pragma once

#include <string>
#include <vector>

#include "history/edit.h"
#include "instance/history.h"
#include "instance/track.h"

namespace tq {

/// A kind's texts; the plural stands for anything but one.
struct KindName {
    const char *singular, *plural;
    std::string of(size_t count) const { return count == 1 ? singular : plural; }
};

/// An event and the track that it is on, or was.
struct PlacedEvent {
    EventRef event;
    TrackRef track;
};
std::vector<PlacedEvent> placed_events(const std::vector<EventRef>& events);

/// Puts events into their tracks, or takes them out, as far as those tracks are in the document.
void put_events(Prseq& object, const std::vector<PlacedEvent>& events);
void take_events(Prseq& object, const std::vector<PlacedEvent>& events);

bool in_document(const TrackRef& track);

template <typename Item, typename... Values>
void record(Edit& edit, Values&&... values) {
    edit.record(std::make_unique<Item>(std::forward<Values>(values)...));
}

}  // namespace tq
