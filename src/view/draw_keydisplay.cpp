#include "view/draw_keydisplay.h"

#include <fmt/printf.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "host/text.h"
#include "instance/prseq.h"
#include "view/gradient.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

constexpr long rows_per_octave = 12, keys_per_octave = 7, last_row = 131;
constexpr double black_key_share = 0.7, label_size = 10, label_margin = 2;
constexpr std::array<long, 12> white_key_of{0, -1, 1, -1, 2, 3, -1, 4, -1, 5, -1, 6};  // −1: a black key

struct Keys {
    long first, last;  ///< from the top, those that are visible: to before the last
};

Keys visible_keys(const KeyDisplay& kd, double broadness, long count) {
    if (!(broadness > 0)) return {0, 0};
    const double most = static_cast<double>(count);
    const auto at = [&](double y) {
        return static_cast<long>(std::clamp(std::floor(y / broadness), 0., most));
    };
    return {at(kd.scroll), std::min(at(kd.scroll + kd.rect.height) + 1, count)};
}

void draw_label(const Prseq& object, Graphics& g, long octave, double bottom) {
    JTextLayout label{.text = fmt::sprintf("C%d", octave - 2),
                      .font = jfont_create("Geneva", label_size),
                      .horizontal = HorizontalJustification::Right,
                      .color = object.keydisplaylabelcolor};
    const Size size = jtextlayout_measure(label);
    label.box = {0, bottom - size.height, object.keydisplay.rect.width - label_margin, size.height};
    jtextlayout_draw(g, label);
}

void draw_white_keys(const Prseq& object, Graphics& g, std::optional<long> lit) {
    const KeyDisplay& kd = object.keydisplay;
    const double W = kd.whitekeybroadness;
    const Keys keys = visible_keys(kd, W, kd.whitekeycount);
    for (long i = keys.first; i < keys.last; ++i) {
        const Rect key{0, static_cast<double>(i) * W, kd.keylength, W};
        jgraphics_set_source_jrgba(
            g, i == lit ? object.keydisplayhighlightcolor : object.keydisplaywhitekeybordercolor);
        if (i == lit) jgraphics_rectangle_fill_fast(g, key);
        // Neighbours share the line between them.
        else
            jgraphics_rectangle_draw_fast(g, {key.x, key.y, key.width, W + 1 / g.ratio()}, 0.5);
    }
}

void draw_black_keys(const Prseq& object, Graphics& g, std::optional<long> lit) {
    const KeyDisplay& kd = object.keydisplay;
    const double B = kd.blackkeybroadness;
    const Keys rows = visible_keys(kd, B, last_row + 1);
    for (long row = rows.first; row < rows.last; ++row) {
        const long pitch = last_row - row;
        if (white_key_of[static_cast<size_t>(pitch % rows_per_octave)] >= 0) continue;
        jgraphics_set_source_jrgba(
            g, pitch == lit ? object.keydisplayhighlightcolor : object.keydisplayblackkeycolor);
        jgraphics_rectangle_fill_fast(g,
                                      {0, static_cast<double>(row) * B, kd.keylength * black_key_share, B});
    }
}

/// The octaves' names, over the black keys that stand close above a C where rows are low.
void draw_labels(const Prseq& object, Graphics& g) {
    const KeyDisplay& kd = object.keydisplay;
    const double octave = static_cast<double>(keys_per_octave) * kd.whitekeybroadness;
    const Keys visible = visible_keys(kd, octave, kd.octavecount);
    for (long i = visible.first; i < visible.last; ++i)
        draw_label(object, g, kd.octavecount - 1 - i, static_cast<double>(i + 1) * octave);
}

/// The white key of a pitch, from the top; none for a black one.
std::optional<long> white_key(const KeyDisplay& kd, std::optional<long> pitch) {
    if (!pitch) return {};
    const long key = white_key_of[static_cast<size_t>(*pitch % rows_per_octave)];
    if (key < 0) return {};
    return kd.whitekeycount - 1 - (*pitch / rows_per_octave * keys_per_octave + key);
}

}  // namespace

std::optional<long> lit_pitch(const Prseq& object) {
    const MainDisplay& md = object.maindisplay;
    if (!object.keyhighlight || object.hover.part != Part::MainDisplay || md.mousemode == MouseMode::EditBpf)
        return {};
    if (!(md.rowheight > 0)) return {};
    const double pitch = TQ_Prseq_Maindisplay_CalculatePitchFromMouse(md, object.hover.at.y - md.rect.y);
    return static_cast<long>(std::clamp(std::floor(pitch), 0., Prseq::maximumpitch));
}

void TQ_Prseq_Keydisplay_Draw(const Prseq& object, Graphics& g) {
    const KeyDisplay& kd = object.keydisplay;
    const std::optional<long> lit = lit_pitch(object);
    jgraphics_set_source_jrgba(g, object.keydisplaywhitekeycolor);
    jgraphics_rectangle_fill_fast(g, {0, 0, kd.rect.width, kd.rect.height});
    jgraphics_translate(g, 0, -kd.scroll);
    draw_white_keys(object, g, white_key(kd, lit));
    draw_black_keys(object, g, lit);
    draw_labels(object, g);
    jgraphics_translate(g, 0, kd.scroll);
    jgraphics_set_source_jrgba(g, grey(0.3));
    jgraphics_rectangle_fill_fast(g, {kd.rect.width - 1, 0, 1, kd.rect.height});
}

}  // namespace tq
