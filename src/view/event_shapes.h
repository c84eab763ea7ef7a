// What of an event is painted where.
#pragma once

#include <optional>

#include "view/eventview.h"

namespace tq {

struct Event;

/// Pixels that a label may reach into the view from an event left of it. Far: events without one cost nothing
/// there.
inline constexpr double label_reach = 4000;
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
    bool all = false;                ///< also what others cover
};

/// An event, wherever it is.
EventShape shape_of(const Event& event, const EventView& view, const ShapeOptions& options);
/// None when nothing of it is in view.
std::optional<EventShape> shape_in_view(const Event& event, const EventView& view,
                                        const ShapeOptions& options);

}  // namespace tq
