#include "view/buffer_shape.h"

#include <algorithm>

#include "instance/event.h"

namespace tq {

std::optional<BufferShape> build_buffer_shape(const EventView& view, const Event& event, const Rect& rect) {
    const BufferLink& link = event.link();
    if (!(link.length > 0)) return {};
    const double range = link.end - link.start;
    const bool cut = range > event.duration && !link.adapt;
    const bool fills = cut || link.adapt;
    return BufferShape{
        .source = {link.start / link.length, 0, (cut ? event.duration : range) / link.length, 1},
        .destination = {rect.x, rect.y, fills ? rect.width : range * view.pixels_per_ms, rect.height},
        .start_arrow = link.start > 0,
        .end_arrow = link.length > link.end || link.length - link.start > event.duration,
        .range_end = event.duration > range};
}

std::optional<BufferShape> visible_part(const EventView& view, BufferShape shape) {
    Rect &from = shape.source, &to = shape.destination;
    if (!(from.width > 0 && to.width > 0 && to.height > 0)) return {};
    const double scale = to.width / from.width;
    const double left = std::max({to.x, to.x - from.x * scale, -1.});
    const double right = std::min({to.x + to.width, to.x + (1 - from.x) * scale, view.width + 1});
    if (!(right > left)) return {};
    from.x += (left - to.x) / scale;
    from.width = (right - left) / scale;
    to.x = left;
    to.width = right - left;
    return shape;
}

}  // namespace tq
