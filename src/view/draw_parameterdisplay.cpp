#include "view/draw_parameterdisplay.h"

#include <fmt/printf.h>

#include <algorithm>
#include <cmath>

#include "host/text.h"
#include "instance/prseq.h"
#include "model/parameters.h"
#include "model/tracks.h"
#include "view/gradient.h"
#include "view/parameter_bars.h"

namespace tq {

namespace {

constexpr double label_size = 12, darkest = 0.6;
constexpr Point label_offset{5, 3};
constexpr double faintest = 1. / 512;  // what a byte of colour cannot tell any more

/// How often a colour has to be painted over something until nothing is seen of that.
int layers_that_hide(double alpha) {
    if (alpha >= 1) return 1;
    return std::max(1, static_cast<int>(std::ceil(std::log(faintest) / std::log1p(-alpha))));
}

Rgba between(const Rgba& a, const Rgba& b, double at) {
    auto mix = [at](double from, double to) { return from + (to - from) * at; };
    return {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue), mix(a.alpha, b.alpha)};
}

/// A bar's columns of one pixel of the screen each, darker to the right.
std::vector<Rgba> bar_columns(const Rgba& color, const Rect& bar, double ratio) {
    std::vector<Rgba> columns(static_cast<size_t>(std::lround(bar.width * ratio)));
    for (size_t i = 0; i < columns.size(); ++i)
        columns[i] = between(opaque(color), shade(opaque(color), darkest),
                             (static_cast<double>(i) + 0.5) / static_cast<double>(columns.size()));
    return columns;
}

void draw_shaded_bar(Graphics& g, const Rect& bar, const std::vector<Rgba>& columns) {
    const double width = 1 / g.ratio();
    for (size_t i = 0; i < columns.size(); ++i) {
        jgraphics_set_source_jrgba(g, columns[i]);
        jgraphics_rectangle_fill_fast(g, {bar.x + static_cast<double>(i) * width, bar.y, width, bar.height});
    }
}

void draw_bars_of_active_track(const Prseq& object, Graphics& g, const Track& track) {
    const std::vector<ParameterBar> bars = parameter_bars(object, track, g.ratio(), 1);
    if (bars.empty()) return;
    const std::vector<Rgba> plain = bar_columns(track.color, bars[0].rect, g.ratio()),
                            selected = bar_columns(track.selectedcolor, bars[0].rect, g.ratio());
    for (const ParameterBar& bar : bars) draw_shaded_bar(g, bar.rect, bar.selected ? selected : plain);
}

void draw_bars_of_other_track(const Prseq& object, Graphics& g, const Track& track) {
    if (!(track.inactivecolor.alpha > 0)) return;
    jgraphics_set_source_jrgba(g, track.inactivecolor);
    const int layers = layers_that_hide(track.inactivecolor.alpha);
    for (const ParameterBar& bar : parameter_bars(object, track, g.ratio(), layers))
        jgraphics_rectangle_fill_fast(g, bar.rect);
}

void draw_label(const Prseq& object, Graphics& g) {
    JTextLayout text{.text = parameter_label(object),
                     .font = jfont_create("Geneva", label_size),
                     .horizontal = HorizontalJustification::Centered,
                     .color = grey(120 / 255.)};
    const Size size = jtextlayout_measure(text);
    text.box = {label_offset.x, label_offset.y, size.width, size.height};
    jtextlayout_draw(g, text);
}

}  // namespace

void draw_parameterdisplay_background(const Prseq& object, Graphics& g) {
    const Rect& display = object.layout[Part::ParameterDisplay];
    const double w = display.width, h = display.height;
    draw_gradient(g, *vertical_gradient(h, grey(0.8), grey(0.93)), {0, 0, w, h});
    // The lines lie on the first two rows and on the last one.
    jgraphics_set_source_jrgba(g, grey(0.1));
    jgraphics_line_draw_fast(g, {0, 0.5}, {w, 0.5}, 1);
    jgraphics_line_draw_fast(g, {0, h - 0.5}, {w, h - 0.5}, 1);
    jgraphics_set_source_jrgba(g, grey(0.5));
    jgraphics_line_draw_fast(g, {0, 1.5}, {w, 1.5}, 1);
}

void TQ_Prseq_Tracks_DrawParameters(const Prseq& object, Graphics& g) {
    for (const TrackRef& track : object.tracks)
        if (track->visible && track->index != object.activetrack) draw_bars_of_other_track(object, g, *track);
    const Track* active = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (active && active->visible) draw_bars_of_active_track(object, g, *active);
}

std::string parameter_label(const Prseq& object) {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    const auto range = track ? parameter_range(*track, track->displayedparameter) : std::nullopt;
    if (!range) return {};
    return fmt::sprintf("%s (%.2f-%.2f)", track->displayedparameter.text(), range->minimum, range->maximum);
}

void draw_parameterdisplay(const Prseq& object, Graphics& g) {
    TQ_Prseq_Tracks_DrawParameters(object, g);
    draw_label(object, g);
}

}  // namespace tq
