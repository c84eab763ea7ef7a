#include "view/draw_curves.h"

#include <algorithm>
#include <array>
#include <span>

#include "instance/prseq.h"
#include "instance/symbols.h"
#include "view/curves.h"
#include "view/gradient.h"

namespace tq {

namespace {

const Rgba active_line = grey(100 / 255.), inactive_line = grey(100 / 255., 0.3);
constexpr double wide_line = 3, thin_line = 1;

bool is_straight(const Bpf& bpf) {
    return !bpf.points.empty() &&
           std::ranges::all_of(bpf.points, [&](const BpfPoint& p) { return p.y == bpf.points.front().y; });
}

void draw_line(Graphics& g, std::span<const Point> points, const Rgba& color, double width) {
    jgraphics_set_source_jrgba(g, color);
    for (size_t i = 0; i + 1 < points.size(); ++i)
        jgraphics_line_draw_fast(g, points[i], points[i + 1], width);
}

/// Most curves are straight, and drawn without being built.
void draw_curve(Graphics& g, const EventView& view, const EventShape& shape, const Bpf& bpf,
                const EventStyle& style) {
    const bool straight = is_straight(bpf);
    if (straight && shape.rect.width < curve_detail_width) return;
    const Event& event = *shape.event;
    std::array<Point, 2> ends;
    std::vector<Point> built;
    if (straight) {
        const double y = view.y_of(event.pitch + bpf.points.front().y);
        ends = {Point{view.x_of(event.start), y}, Point{view.x_of(event.end()), y}};
    } else {
        built = build_curve(view, event, bpf);
    }
    const std::span<const Point> points = straight ? std::span<const Point>(ends) : built;
    const bool active = event.activebpf.get() == &bpf;
    if (active && bpf.name() == tq_sym_Pitch) draw_line(g, points, style.curve, wide_line);
    draw_line(g, points, active ? active_line : inactive_line, thin_line);
}

}  // namespace

void TQ_Prseq_Events_DrawBpfsOnOneTrack(const Prseq& object, Graphics& g, const EventView& view,
                                        const EventShape& shape, const EventStyle& style) {
    const Event& event = *shape.event;
    if (object.display_all_bpfs)
        for (const BpfRef& bpf : event.bpfs)
            if (bpf != event.activebpf) draw_curve(g, view, shape, *bpf, style);
    if (event.activebpf) draw_curve(g, view, shape, *event.activebpf, style);
}

}  // namespace tq
