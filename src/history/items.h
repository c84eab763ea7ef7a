// What the items of the history share.
#pragma once

#include <string>
#include <vector>

#include "history/edit.h"
#include "history/recorders.h"
#include "instance/history.h"
#include "instance/track.h"

namespace tq {

/// A kind's texts; the plural stands for anything but one.
struct KindName {
    const char *singular, *plural;
    std::string of(size_t count) const { return count == 1 ? singular : plural; }
};

/// Puts events into their tracks, or takes them out, as far as those tracks are in the document.
void put_events(Prseq& object, const std::vector<PlacedEvent>& events);
void take_events(Prseq& object, const std::vector<PlacedEvent>& events);

bool in_document(const TrackRef& track);

template <typename Item, typename... Values>
void record(Edit& edit, Values&&... values) {
    edit.record(std::make_unique<Item>(std::forward<Values>(values)...));
}

/// The last step that is applied, if it is of this kind.
template <typename Item>
const Item* last_step(const History& history) {
    if (history.cursor < 0) return nullptr;
    return dynamic_cast<const Item*>(history.items[static_cast<size_t>(history.cursor)].get());
}

}  // namespace tq
