// Where the overview of an event's buffer is painted.
#pragma once

#include <optional>

#include "view/eventview.h"

namespace tq {

struct Event;

struct BufferShape {
    Rect source;               ///< the part of the overview, its whole width being 1 and its height 1
    Rect destination;          ///< where that goes, relative to the main display
    bool start_arrow = false;  ///< the buffer begins before the range
    bool end_arrow = false;    ///< the buffer goes on after what is played
    bool range_end = false;    ///< the range is over before the event is

    /// Where the range ends in the event.
    double end_x() const { return destination.x + destination.width; }
};

/// None for an event whose buffer has no length at the moment. `rect` is the event's rectangle.
std::optional<BufferShape> build_buffer_shape(const EventView& view, const Event& event, const Rect& rect);

/// The same part of a shape's overview in the same place, without what lies outside the overview or the view;
/// none when nothing is left.
std::optional<BufferShape> visible_part(const EventView& view, BufferShape shape);

}  // namespace tq
