#include "view/tiptool.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include "host/graphics.h"
#include "host/layers.h"
#include "host/text.h"
#include "shell/prseq.h"
#include "shell/utilities.h"
#include "view/invalidate.h"

namespace tq {

namespace {

constexpr size_t longest_text = 4095;
constexpr Point offset{10, 10}, margin{4, 2};
constexpr Rgba background{1, 1, 0.79, 1}, frame{0.85, 0.85, 0.85, 1};

/// A place for `size` that begins at `at` or earlier, within a stretch.
double constrained(double at, double size, double begin, double length) {
    if (at <= begin) return begin;
    return std::min(at, begin + length - size);
}

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

}  // namespace

void TQ_Prseq_Tiptool_Set(Prseq& object, const std::string& text, double x, double y, const Rect& constrain) {
    Tiptool& tiptool = object.tiptool;
    tiptool.visible = !text.empty();
    if (text.empty()) return;
    tiptool.text = cut_text(text, longest_text);
    tiptool.anchor = {x, y};
    tiptool.constrain = constrain;
}

void TQ_Prseq_Tiptool_Draw(Prseq& object, Graphics& view) {
    const Tiptool& tiptool = object.tiptool;
    const JFont font = jfont_create("Geneva", 10);
    const std::vector<std::string> lines = lines_of(tiptool.text);
    double width = 0, lineheight = 0;
    for (const std::string& line : lines) {
        const Size size = jtextlayout_measure(line, font);
        width = std::max(width, size.width);
        lineheight = size.height;
    }
    const Size box{2 * margin.x + width, 2 * margin.y + static_cast<double>(lines.size()) * lineheight};
    invalidate_layer(object, tq_sym_tiptool_layer);
    if (auto g = jbox_start_layer(object, view, tq_sym_tiptool_layer, box.width, box.height)) {
        const Rect all{0, 0, box.width, box.height};
        jgraphics_set_source_jrgba(*g, background);
        jgraphics_rectangle_fill_fast(*g, all);
        jgraphics_set_source_jrgba(*g, frame);
        jgraphics_rectangle_draw_fast(*g, all, 1);
        double y = margin.y;
        for (const std::string& line : lines) {
            jtextlayout_draw(*g, {.text = line, .font = font, .box = {margin.x, y, width, lineheight}});
            y += lineheight;
        }
        jbox_end_layer(object, tq_sym_tiptool_layer);
    }
    const Rect& within = tiptool.constrain;
    jbox_paint_layer(object, view, tq_sym_tiptool_layer,
                     constrained(tiptool.anchor.x + offset.x, box.width, within.x, within.width),
                     constrained(tiptool.anchor.y + offset.y, box.height, within.y, within.height));
}

}  // namespace tq
