#include "model/bpf_moves.h"

#include <algorithm>
#include <cmath>

#include "host/round.h"

namespace tq {

namespace {

/// How far points can go to the left (below 0) and to the right before they meet one that stays.
struct Room {
    double left = -HUGE_VAL, right = HUGE_VAL;
};

/// Also between selected points there may be some that stay.
Room room_of(const BpfPoints& points, std::span<const size_t> selected) {
    Room room;
    for (size_t k = 0; k < selected.size(); ++k) {
        const size_t i = selected[k];
        if (k == 0 || selected[k - 1] != i - 1)
            room.left = std::max(room.left, points[i - 1].x - points[i].x);
        if (k + 1 == selected.size() || selected[k + 1] != i + 1)
            room.right = std::min(room.right, points[i + 1].x - points[i].x);
    }
    return room;
}

double held_dx(const BpfPoints& points, std::span<const size_t> selected, double dx, double gap) {
    if (selected.front() == 0 || selected.back() == points.size() - 1) return 0;
    const Room room = room_of(points, selected);
    if (dx > room.left && dx < room.right) return dx;
    const double held = dx <= room.left ? room.left + gap : room.right - gap;
    return held >= room.left && held <= room.right ? held : 0;
}

double held_dy(const Rect& box, double dy, const BpfLimits& limits) {
    if (limits.pitch) return limits.whole ? 0 : dy;
    return std::max(-box.y, std::min(dy, 1 - box.height - box.y));
}

/// Against the last bit of a sum.
void keep_order(BpfPoints& points, std::span<const size_t> selected) {
    for (size_t i : selected)
        if (i > 0) points[i].x = std::max(points[i].x, points[i - 1].x);
    for (auto i = selected.rbegin(); i != selected.rend(); ++i)
        if (*i + 1 < points.size()) points[*i].x = std::min(points[*i].x, points[*i + 1].x);
}

}  // namespace

Rect TQ_Prseq_Events_CalculateBoundingRectOfSelectedPoints(const BpfPoints& points,
                                                           std::span<const size_t> selected) {
    if (selected.empty()) return {0, 0, 0, 0};
    double bottom = HUGE_VAL, top = -HUGE_VAL;
    for (size_t i : selected) {
        bottom = std::min(bottom, points[i].y);
        top = std::max(top, points[i].y);
    }
    const double left = points[selected.front()].x;
    return {left, bottom, points[selected.back()].x - left, top - bottom};
}

BpfPoint dragged_bpf_point(const BpfPoints& points, size_t index, BpfPoint to, const BpfLimits& limits) {
    double x = index == 0 ? 0 : 1;
    if (index > 0 && index + 1 < points.size())
        x = std::max(points[index - 1].x, std::min(to.x, points[index + 1].x));
    if (!limits.pitch) return {x, std::clamp(to.y, 0., 1.)};
    return {x, limits.whole ? jgraphics_round(to.y) : to.y};
}

BpfPoints dragged_bpf_points(const BpfPoints& points, std::span<const size_t> selected, BpfPoint by,
                             const BpfLimits& limits) {
    const Rect box = TQ_Prseq_Events_CalculateBoundingRectOfSelectedPoints(points, selected);
    const double dx = held_dx(points, selected, by.x, limits.gap), dy = held_dy(box, by.y, limits);
    BpfPoints moved = points;
    for (size_t i : selected) {
        moved[i].y += dy;
        if (!limits.pitch) moved[i].y = std::clamp(moved[i].y, 0., 1.);
        if (dx != 0) moved[i].x += dx;
    }
    keep_order(moved, selected);
    return moved;
}

}  // namespace tq
