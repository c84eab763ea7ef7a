#include "view/draw_timedisplay.h"

#include "instance/prseq.h"
#include "view/gradient.h"
#include "view/loop_bar.h"
#include "view/ruler.h"

namespace tq {

namespace {

/// A dark line, and close on its right a light one.
void draw_ticks(Graphics& g, const std::vector<RulerTick>& ticks, double height) {
    for (const RulerTick& tick : ticks) {
        const double top = height - tick.length;
        jgraphics_set_source_jrgba(g, grey(0.59));
        jgraphics_rectangle_fill_fast(g, {tick.x, top, 1, tick.length});
        jgraphics_set_source_jrgba(g, grey(0.98));
        jgraphics_rectangle_fill_fast(g, {tick.x + 1, top, 0.5, tick.length});
    }
}

void draw_texts(Graphics& g, const std::vector<RulerText>& texts) {
    for (const RulerText& text : texts)
        jtextlayout_draw(g, {.text = text.text,
                             .font = ruler_font(),
                             .box = {text.at.x, text.at.y, 0, 0},
                             .color = grey(0.2)});
}

}  // namespace

void draw_timedisplay(const Prseq& object, Graphics& g) {
    const double width = object.layout[Part::TimeDisplay].width,
                 height = object.layout[Part::TimeDisplay].height;
    const Rgba& color = object.timedisplaycolor;
    draw_gradient(g, *vertical_gradient(height, color, shade(color, 1.2)), {0, 0, width, height});
    draw_loop_bar(object, g);
    const Ruler ruler = build_ruler(object, g.ratio());
    draw_ticks(g, ruler.ticks, height);
    draw_texts(g, ruler.texts);
    if (object.timedisplaytype == static_cast<long>(TimeDisplayType::BarsBeats)) return;
    jgraphics_set_source_jrgba(g, grey(0.39));
    jgraphics_rectangle_fill_fast(g, {0, height - 1, width, 1});
}

}  // namespace tq
