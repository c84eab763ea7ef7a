#include "view/draw_scrollbar.h"

#include <algorithm>

#include "view/gradient.h"

namespace tq {

namespace {

constexpr Rgba background_color{0.6, 0.6, 0.95, 0.5}, knob_color{0.78, 0.78, 0.78, 1};
constexpr double line_width = 0.5;  // one pixel of the screen, up to a ratio of 2
constexpr long grips = 3;
constexpr double grip_distance = 3, grip_length = 7, grip_room = 20;

using Bar = TQScrollbar;

bool horizontal(const Bar& bar) { return bar.orientation == Bar::Orientation::Horizontal; }

/// Two lines along the top and left edges, and two along the others.
void draw_edges(Graphics& g, const Rect& r, const Rgba& top_left, const Rgba& bottom_right) {
    const double right = r.x + r.width, bottom = r.y + r.height;
    if (!(r.width > 0 && r.height > 0)) return;
    const double thin = 1 / g.ratio();
    jgraphics_set_source_jrgba(g, bottom_right);
    jgraphics_rectangle_fill_fast(g, {r.x, bottom - thin, r.width, thin});
    jgraphics_rectangle_fill_fast(g, {right - thin, r.y, thin, r.height});
    jgraphics_set_source_jrgba(g, top_left);
    jgraphics_rectangle_fill_fast(g, {r.x, r.y, r.width, thin});
    jgraphics_rectangle_fill_fast(g, {r.x, r.y, thin, r.height});
}

/// Lighter towards the right or the bottom.
void draw_page_area(const Bar& bar, Graphics& g) {
    const Rect& r = bar.scrollbox;
    const Point across = horizontal(bar) ? Point{0, bar.thickness} : Point{bar.thickness, 0};
    jgraphics_set_source(
        g, LinearPattern{
               {r.x, r.y}, {r.x + across.x, r.y + across.y}, background_color, shade(background_color, 1.2)});
    jgraphics_rectangle(g, r);
    jgraphics_fill(g);
    draw_edges(g, r, grey(0, 0.3), grey(1, 0.6));
}

/// Some short lines across the middle, to take hold of.
void draw_grip(const Bar& bar, Graphics& g) {
    if (bar.knobsize < grip_room) return;
    const Point middle{bar.knob.x + bar.knob.width / 2, bar.knob.y + bar.knob.height / 2};
    for (long i = 0; i < grips; ++i) {
        const double away = (static_cast<double>(i) - (grips - 1) / 2.) * grip_distance;
        for (bool light : {false, true}) {
            jgraphics_set_source_jrgba(g, light ? grey(0.95) : grey(0.5));
            const double at = away + (light ? 1 / g.ratio() : 0);
            const Rect line = horizontal(bar)
                                  ? Rect{middle.x + at, middle.y - grip_length / 2, 0.01, grip_length}
                                  : Rect{middle.x - grip_length / 2, middle.y + at, grip_length, 0.01};
            jgraphics_rectangle_fill_fast(g, line);
        }
    }
}

void draw_raised(Graphics& g, const Rect& rect) {
    jgraphics_set_source_jrgba(g, knob_color);
    jgraphics_rectangle_fill_fast(g, rect);
    draw_edges(g, rect, grey(0.98), grey(0.45));
}

/// A triangle in the middle of an arrow's box that points back or forward.
void draw_triangle(const Bar& bar, Graphics& g, const Rect& box, bool forward) {
    constexpr double half_length = 2.5, half_base = 4;
    const double tip = forward ? half_length : -half_length;
    const Point c{box.x + box.width / 2, box.y + box.height / 2};
    const auto at = [&](double along, double across) {
        return horizontal(bar) ? Point{c.x + along, c.y + across} : Point{c.x + across, c.y + along};
    };
    const Point corners[] = {at(tip, 0), at(-tip, -half_base), at(-tip, half_base)};
    jgraphics_set_source_jrgba(g, grey(0.3));
    jgraphics_move_to(g, corners[0].x, corners[0].y);
    for (const Point& corner : {corners[1], corners[2], corners[0]}) jgraphics_line_to(g, corner.x, corner.y);
    jgraphics_fill(g);
}

void draw_arrow(const Bar& bar, Graphics& g, const Rect& box, bool forward) {
    const bool pressed = bar.grab == (forward ? Bar::Grab::Arrow1 : Bar::Grab::Arrow0);
    jgraphics_set_source_jrgba(g, pressed ? background_color : grey(1));
    jgraphics_rectangle_fill_fast(g, box);
    jgraphics_set_source_jrgba(g, grey(0.5));
    jgraphics_rectangle_draw_fast(g, box, line_width);
    draw_triangle(bar, g, box, forward);
}

/// A rail as long as the knob's way, and on it the knob with a line across its middle.
void draw_zoom_box(const Bar& bar, Graphics& g) {
    constexpr double margin = 1;
    const Rect& box = bar.zoombox;
    const double thin = 1 / g.ratio(), middle = bar.thickness / 2;
    const auto stretch = [&](double start, double length, double across, double width) {
        return horizontal(bar) ? Rect{box.x + start, box.y + across, length, width}
                               : Rect{box.x + across, box.y + start, width, length};
    };
    const double begin = horizontal(bar) ? box.x : box.y;
    const double rail = bar.zoomknobminimum - begin, way = bar.zoomknobrange + bar.zoomknobsize;
    jgraphics_set_source_jrgba(g, grey(0.39));
    jgraphics_rectangle_fill_fast(g, stretch(rail, way, middle - thin, thin));
    jgraphics_set_source_jrgba(g, grey(0.59));
    jgraphics_rectangle_fill_fast(g, stretch(rail, way, middle, thin));

    const double knob = bar.zoomknobposition - begin;
    draw_raised(g, stretch(knob, bar.zoomknobsize, margin, bar.thickness - 2 * margin));
    jgraphics_set_source_jrgba(g, grey(0.5));
    jgraphics_rectangle_draw_fast(g, stretch(knob, bar.zoomknobsize, margin, bar.thickness - 2 * margin),
                                  line_width);
    jgraphics_set_source_jrgba(g, grey(0.3));
    jgraphics_rectangle_fill_fast(
        g, stretch(knob + bar.zoomknobsize / 2 - 0.5, 1, margin + 3, bar.thickness - 2 * margin - 6));
}

}  // namespace

void TQScrollbar_Draw(const TQScrollbar& bar, Graphics& g) {
    draw_page_area(bar, g);
    if (bar.knobexists) {
        draw_raised(g, bar.knob);
        draw_grip(bar, g);
    }
    if (bar.knobexists && bar.hasarrows) {
        draw_arrow(bar, g, bar.arrow0, false);
        draw_arrow(bar, g, bar.arrow1, true);
    }
    if (bar.zoom != Bar::Zoom::None) draw_zoom_box(bar, g);
}

}  // namespace tq
