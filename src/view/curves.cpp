#include "view/curves.h"

#include <algorithm>
#include <span>

#include "instance/event.h"

namespace tq {

namespace {

constexpr double overhang = 8;         // pixels outside the view where lines are cut
constexpr double farthest_y = 100000;  // pixels

/// The points between two places on the x axis of a curve, with one more on either side.
std::span<const BpfPoint> points_between(const BpfPoints& points, double from, double to) {
    auto first = std::ranges::lower_bound(points, from, {}, &BpfPoint::x);
    auto behind = std::ranges::upper_bound(points, to, {}, &BpfPoint::x);
    if (first != points.begin()) --first;
    if (behind != points.end()) ++behind;
    return first < behind ? std::span<const BpfPoint>(&*first, static_cast<size_t>(behind - first))
                          : std::span<const BpfPoint>();
}

void add_column(std::vector<Point>& line, std::span<const Point> column) {
    line.push_back(column.front());
    if (column.size() > 2) {
        auto [high, low] = std::ranges::minmax_element(column, {}, &Point::y);
        const bool high_first = high < low;
        line.push_back(high_first ? *high : *low);
        line.push_back(high_first ? *low : *high);
    }
    if (column.size() > 1) line.push_back(column.back());
}

std::vector<Point> thin_out(const EventView& view, const std::vector<Point>& points) {
    std::vector<Point> line;
    for (size_t first = 0; first < points.size();) {
        size_t behind = first + 1;
        while (behind < points.size() && view.snap(points[behind].x) == view.snap(points[first].x)) ++behind;
        add_column(line, std::span(points).subspan(first, behind - first));
        first = behind;
    }
    return line;
}

Point on_line_at(Point a, Point b, double x) { return {x, a.y + (b.y - a.y) * (x - a.x) / (b.x - a.x)}; }

void cut(std::vector<Point>& line, double left, double right) {
    if (line.size() < 2) return;
    if (line[0].x < left && line[1].x > line[0].x)
        line[0] = on_line_at(line[0], line[1], std::min(left, line[1].x));
    Point &last = line.back(), &before = line[line.size() - 2];
    if (last.x > right && last.x > before.x) last = on_line_at(before, last, std::max(right, before.x));
}

}  // namespace

std::vector<Point> build_curve(const EventView& view, const Event& event, const Bpf& bpf) {
    if (!(event.duration > 0)) return {};
    const double from = (view.ms_at(-overhang) - event.start) / event.duration;
    const double to = (view.ms_at(view.width + overhang) - event.start) / event.duration;
    std::vector<Point> points;
    for (const BpfPoint& point : points_between(bpf.points, from, to))
        points.push_back({view.x_of(event.start + point.x * event.duration),
                          std::clamp(view.y_of(event.pitch + point.y), -farthest_y, farthest_y)});
    cut(points, -overhang, view.width + overhang);
    return thin_out(view, points);
}

}  // namespace tq
