#include "view/tiptool.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include "host/graphics.h"
#include "host/text.h"
#include "instance/prseq.h"
#include "instance/utilities.h"

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

struct TiptoolShape {
    std::vector<std::string> lines;
    double width = 0, lineheight = 0;  ///< of a line
    Size box() const {
        return {2 * margin.x + width, 2 * margin.y + static_cast<double>(lines.size()) * lineheight};
    }
};

JFont tiptool_font() { return jfont_create("Geneva", 10); }

TiptoolShape shape_of(const Tiptool& tiptool) {
    TiptoolShape shape{.lines = lines_of(tiptool.text)};
    for (const std::string& line : shape.lines) {
        const Size size = jtextlayout_measure(line, tiptool_font());
        shape.width = std::max(shape.width, size.width);
        shape.lineheight = size.height;
    }
    return shape;
}

}  // namespace

void TQ_Prseq_Tiptool_Set(Prseq& object, const std::string& text, double x, double y, const Rect& constrain) {
    Tiptool& tiptool = object.tiptool;
    tiptool.visible = !text.empty();
    prseq_show(object, Change::Tiptool);
    if (text.empty()) return;
    tiptool.text = cut_text(text, longest_text);
    tiptool.anchor = {x, y};
    tiptool.constrain = constrain;
}

Rect tiptool_place(const Prseq& object) {
    const Tiptool& tiptool = object.tiptool;
    const Rect& within = tiptool.constrain;
    const Size box = shape_of(tiptool).box();
    return {constrained(tiptool.anchor.x + offset.x, box.width, within.x, within.width),
            constrained(tiptool.anchor.y + offset.y, box.height, within.y, within.height), box.width,
            box.height};
}

void TQ_Prseq_Tiptool_Draw(const Prseq& object, Graphics& g) {
    const TiptoolShape shape = shape_of(object.tiptool);
    const Rect all{0, 0, shape.box().width, shape.box().height};
    jgraphics_set_source_jrgba(g, background);
    jgraphics_rectangle_fill_fast(g, all);
    jgraphics_set_source_jrgba(g, frame);
    jgraphics_rectangle_draw_fast(g, all, 1);
    double y = margin.y;
    for (const std::string& line : shape.lines) {
        jtextlayout_draw(
            g, {.text = line, .font = tiptool_font(), .box = {margin.x, y, shape.width, shape.lineheight}});
        y += shape.lineheight;
    }
}

}  // namespace tq
