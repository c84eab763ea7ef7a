// Which events of a track are painted: those that others do not cover.
#pragma once

#include <vector>

#include "instance/event_list.h"
#include "view/cover.h"
#include "view/event_shapes.h"
#include "view/eventview.h"

namespace tq {

struct Track;

/// An event that is painted, and where: in pixels of the screen, relative to the main display.
struct VisibleEvent {
    const EventEntry* entry = nullptr;
    int left = 0, right = 0;
    bool plain = false;  ///< no more than its body on a whole row, and a straight curve
};

/// What is covered before anything is painted: the rows that do not touch `part` of the view.
Cover cover_around(const EventView& view, const Rect& part);

/// The events of a track, the selected ones or the others, that have a pixel in a part of the view that
/// `cover` does not cover, and those whose texts, buffers or curves may reach out of their bodies; in the
/// order in which they are painted. The cover takes them. Painted are those of the last call first, so tracks
/// and selections come in the opposite order. Events may come with pixels that others cover, but none is
/// missing.
std::vector<VisibleEvent> build_visible_events(const Track& track, bool selected, const EventView& view,
                                               const Rect& part, const ShapeOptions& options, Cover& cover);

}  // namespace tq
