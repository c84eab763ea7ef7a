#include "view/draw_upperdisplay.h"

#include <algorithm>
#include <cmath>

#include "host/graphics.h"
#include "instance/prseq.h"
#include "view/gradient.h"
#include "view/icon_menu.h"
#include "view/menu_bar.h"

namespace tq {

namespace {

constexpr double hint_gap = 10, hint_top = 7, dot_diameter = 6;
constexpr Size hint_size{12, 10};

void draw_title(const Prseq& object, Graphics& g, size_t index, const Rect& rect) {
    const bool open = object.menubar.open && object.menubar.opentitle == static_cast<long>(index);
    if (open) {
        jgraphics_set_source_jrgba(g, object.menutitletextcolor);
        jgraphics_rectangle_fill_fast(g, rect);
    }
    jtextlayout_draw(g, {.text = menu_titles[index],
                         .font = menu_font(object.menufontsize),
                         .box = rect,
                         .horizontal = HorizontalJustification::Centered,
                         .vertical = VerticalJustification::Centered,
                         .color = open ? object.upperdisplaycolor : object.menutitletextcolor});
}

void draw_titles(const Prseq& object, Graphics& g) {
    const MenuBarLayout layout = TQ_Prseq_Menu_CalculateMenuDisplaySize(object.menufontsize);
    for (size_t i = 0; i < layout.titles.size(); ++i) draw_title(object, g, i, layout.titles[i]);
}

/// Two lines that meet in a corner and point along `arms`. They are translucent, so neither lies on the
/// other.
void draw_bracket(Graphics& g, Point corner, Size arms) {
    const double half = std::max(1., std::floor(g.ratio() + 0.5)) / g.ratio() / 2;  // of a line's thickness
    const double x = corner.x - std::copysign(half, arms.width);
    const double y = corner.y + std::copysign(half, arms.height);
    jgraphics_line_draw_fast(g, {x, corner.y}, {corner.x + arms.width, corner.y}, 1);
    jgraphics_line_draw_fast(g, {corner.x, y}, {corner.x, corner.y + arms.height}, 1);
}

void draw_focus_hint(const Prseq& object, Graphics& g) {
    const Rect r = hint_place(object);
    const double width = r.width / 3, height = r.height / 3;
    jgraphics_set_source_rgba(g, 1, 0, 0, object.focus ? 1 : 0.2);
    draw_bracket(g, {r.x, r.y}, {width, height});
    draw_bracket(g, {r.x + r.width, r.y}, {-width, height});
    draw_bracket(g, {r.x + r.width, r.y + r.height}, {-width, -height});
    draw_bracket(g, {r.x, r.y + r.height}, {width, -height});
}

void draw_dirty_hint(const Prseq& object, Graphics& g) {
    const Rect r = hint_place(object);
    jgraphics_set_source_jrgba(g, grey(0, 0.6));
    jgraphics_ellipse(g, {r.x + (r.width - dot_diameter) / 2, r.y + (r.height - dot_diameter) / 2,
                          dot_diameter, dot_diameter});
    jgraphics_fill(g);
}

}  // namespace

Rect upperdisplay_place(const Prseq& object) { return object.layout[Part::UpperDisplay]; }

Rect hint_place(const Prseq& object) {
    const Rect bar = TQ_Prseq_Menu_GetRect(object);
    return {bar.x + bar.width + hint_gap, hint_top, hint_size.width, hint_size.height};
}

void draw_upperdisplay(const Prseq& object, Graphics& g) {
    const Rect place = upperdisplay_place(object);
    jgraphics_set_source_jrgba(g, object.upperdisplaycolor);
    jgraphics_rectangle_fill_fast(g, {0, 0, place.width, place.height});
    if (object.menudisplay) draw_titles(object, g);
    if (object.focusdisplay) draw_focus_hint(object, g);
    if (object.dirtydisplay && prseq_getdirtyflag(object)) draw_dirty_hint(object, g);
    TQ_Prseq_IconMenu_DrawIconMenu(object, g);
}

}  // namespace tq
