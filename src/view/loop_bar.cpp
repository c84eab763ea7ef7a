#include "view/loop_bar.h"

#include "instance/geometry.h"
#include "instance/prseq.h"
#include "view/gradient.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

constexpr double bar_height = 10, edge_grip = 3, inactive = 0.3;  // of the colour's alpha
constexpr double chevron_length = 6, chevron_depth = 5;

/// From an edge's top towards `x` and back to the edge's foot.
void draw_chevron(Graphics& g, Point top, double x) {
    const Point tip{top.x + x, top.y + chevron_depth}, foot{top.x, top.y + 2 * chevron_depth};
    jgraphics_line_draw_fast(g, top, tip, 0.5);
    jgraphics_line_draw_fast(g, tip, foot, 0.5);
}

double display_x(const Prseq& object, double ms) {
    const MainDisplay& md = object.maindisplay;
    return TQ_Prseq_Maindisplay_CalculateMouseFromPosition(object, md, ms) - md.horizontalscroll;
}

}  // namespace

Rect loop_bar(const Prseq& object) {
    const double start = display_x(object, object.cycle.start), end = display_x(object, object.cycle.end);
    return {start, object.layout[Part::TimeDisplay].height - bar_height, end - start, bar_height};
}

void draw_loop_bar(const Prseq& object, Graphics& g) {
    const Rect bar = loop_bar(object);
    Rgba color = object.timedisplaycyclecolor;
    if (!object.cycle.active) color.alpha *= inactive;
    jgraphics_set_source_jrgba(g, color);
    jgraphics_rectangle_fill_fast(g, bar);
    jgraphics_set_source_jrgba(g, grey(0.5));
    jgraphics_rectangle_draw_fast(g, bar, 0.5);
    draw_chevron(g, {bar.x, bar.y}, chevron_length);
    draw_chevron(g, {bar.x + bar.width, bar.y}, -chevron_length);
}

std::optional<LoopGrip> loop_grip_at(const Prseq& object, Point at) {
    const Rect bar = loop_bar(object);
    if (TQRectContainsPoint({bar.x, bar.y, edge_grip, bar.height}, at.x, at.y)) return LoopGrip::Start;
    if (TQRectContainsPoint({bar.x + bar.width - edge_grip, bar.y, edge_grip, bar.height}, at.x, at.y))
        return LoopGrip::End;
    if (TQRectContainsPoint(bar, at.x, at.y)) return LoopGrip::Middle;
    return {};
}

}  // namespace tq
