// Which events of a track are painted where.
#pragma once

#include <vector>

#include "view/eventview.h"

namespace tq {

struct Event;
struct Track;

/// Pixels that a label may reach into the view from an event left of it.
inline constexpr double label_reach = 200;
/// Pixels: labels and messages are written in rows at least this high.
inline constexpr double text_rowheight = 8;

struct EventShape {
    const Event* event = nullptr;
    Rect rect;         ///< on whole pixels of the screen, relative to the main display
    bool body = true;  ///< the event itself is in view, not its curves alone
    bool label = false, message = false, buffer = false;  ///< whether these are drawn on it
};

struct ShapeOptions {
    bool labels = false, messages = false, buffers = false;
    bool curves = false;             ///< curves that leave their event's row count as in view
    const Event* without = nullptr;  ///< an event that is left out
    bool all = false;                ///< also what changes no pixel
};

/// The events of a track that are in view, in the order in which they are painted: unselected ones, then
/// selected ones, each in the track's order. An event that would only draw the very pixels again that one
/// before it has drawn, with nothing between them, is left out. One event, wherever it is.
EventShape shape_of(const Event& event, const EventView& view, const ShapeOptions& options);
std::vector<EventShape> build_event_shapes(const Track& track, const EventView& view,
                                           const ShapeOptions& options);

}  // namespace tq
