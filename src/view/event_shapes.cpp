#include "view/event_shapes.h"

#include <algorithm>

#include "instance/event.h"

namespace tq {

namespace {

/// Pixels above an event that its label may take.
constexpr double label_height = 20;

/// Whether a curve reaches into the view, though the event's row may be outside.
bool curve_in_view(const Event& event, const EventView& view) {
    return std::ranges::any_of(event.bpfs, [&](const BpfRef& bpf) {
        auto [low, high] = std::ranges::minmax(bpf->points, {}, &BpfPoint::y);
        return view.y_of(event.pitch + high.y) < view.height + 2 && view.y_of(event.pitch + low.y) > -2;
    });
}

}  // namespace

EventShape shape_of(const Event& event, const EventView& view, const ShapeOptions& options) {
    const bool text = view.rowheight >= text_rowheight;
    return {.event = &event,
            .rect = view.rect_of(event),
            .body = true,
            .label = options.labels && text && !event.label.empty(),
            .message = options.messages && text && !event.message.empty(),
            .buffer = options.buffers && !event.link().name.empty()};
}

std::optional<EventShape> shape_in_view(const Event& event, const EventView& view,
                                        const ShapeOptions& options) {
    EventShape shape = shape_of(event, view, options);
    const Rect& rect = shape.rect;
    const double above = shape.label ? label_height : 0;
    shape.body = rect.y + rect.height > 0 && rect.y - above < view.height;
    const bool left_of_view = rect.x + rect.width <= 0 && !shape.label;
    const bool seen = (shape.body && !left_of_view) || (options.curves && curve_in_view(event, view));
    return seen ? std::optional(shape) : std::nullopt;
}

}  // namespace tq
