#include "instance/event_look.h"

#include <algorithm>

#include "instance/event.h"

namespace tq {

namespace {

/// A straight curve at 0 to 1 lies between the lower and the upper edge of its event, whatever its type.
bool is_bent(const Bpf& bpf) {
    if (bpf.points.empty()) return false;
    const double y = bpf.points.front().y;
    return !(y >= 0 && y <= 1) ||
           std::ranges::any_of(bpf.points, [y](const BpfPoint& point) { return point.y != y; });
}

}  // namespace

EventLook look_of(const Event& event) {
    unsigned flags = 0;
    if (!event.label.empty() || !event.message.empty()) flags |= EventLook::Text;
    if (!event.link().name.empty()) flags |= EventLook::Linked;
    if (std::ranges::any_of(event.bpfs, [](const BpfRef& bpf) { return is_bent(*bpf); }))
        flags |= EventLook::Bent;
    if (event.selected) flags |= EventLook::Selected;
    return at_pitch({0, static_cast<std::uint8_t>(flags)}, event.pitch);
}

EventLook at_pitch(EventLook look, double pitch) {
    constexpr int rows = EventLooks::row_count;
    const bool on_rows = pitch >= 0 && pitch < rows;
    const int row = on_rows ? static_cast<int>(pitch) : pitch >= rows ? rows - 1 : 0;
    unsigned flags = look.flags & ~(EventLook::Fractional | EventLook::OffRows);
    if (pitch != row) flags |= EventLook::Fractional;
    if (!on_rows) flags |= EventLook::OffRows;
    return {static_cast<std::int16_t>(row), static_cast<std::uint8_t>(flags)};
}

}  // namespace tq
