#include "view/grid.h"

#include <algorithm>
#include <cmath>

#include "instance/prseq.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

constexpr long rows_per_octave = 12;
constexpr double subdivisions = 10;  // of a main division

bool is_black(long row_in_octave) {
    constexpr long black[] = {1, 3, 5, 8, 10};  // from the top: A#, G#, F#, D#, C#
    return std::ranges::find(black, row_in_octave) != std::end(black);
}

/// Collects lines from left to right, one a pixel of the screen; a main division wins over what is there.
class Lines {
 public:
    explicit Lines(const EventView& view) : view_(view) {}
    void add(double exact, bool main, bool part = false) {
        const double x = view_.snap(exact);
        if (x < 0 || x >= view_.width) return;
        if (lines_.empty() || lines_.back().x != x) {
            lines_.push_back({x, main, part});
        } else if (main) {
            lines_.back() = {x, true, false};
        }
    }
    std::vector<GridLine> take() { return std::move(lines_); }

 private:
    const EventView& view_;
    std::vector<GridLine> lines_;
};

/// Parts of a beat that are too close to each other to be told apart are not shown.
long parts_shown(const EventView& view, const MeasureSpan& span, long parts) {
    constexpr double least = 4;  // pixels
    const double beat = span.length / static_cast<double>(span.beats) * view.pixels_per_ms;
    return beat / static_cast<double>(parts) >= least ? parts : 1;
}

/// Each beat of as many parts.
void add_bars(Lines& lines, const EventView& view, const MeasureSpan& span, long parts) {
    const double from = view.ms_at(0), to = view.ms_at(view.width);
    const double last_bar = static_cast<double>(span.count) - 1;
    const double first = std::clamp(std::floor((from - span.start) / span.length), 0., last_bar);
    const double last = std::clamp(std::floor((to - span.start) / span.length), 0., last_bar);
    // Bars, or beats, closer than a pixel of the screen fill it however many of them are drawn.
    const double pixels = span.length * view.pixels_per_ms * view.ratio;
    const double step = std::max(1., std::floor(1 / pixels));
    const long beats = std::clamp(static_cast<long>(std::ceil(pixels)), 1L, span.beats);
    for (double bar = first; bar <= last; bar += step) {
        const double start = span.start + bar * span.length;
        lines.add(view.x_of(start), true);
        for (long line = 1; line < beats * parts; ++line)
            lines.add(view.x_of(start +
                                span.length * static_cast<double>(line) / static_cast<double>(beats * parts)),
                      false, line % parts != 0);
    }
}

/// Each line is found by its number, so that it is on the same place of the page however far that is
/// scrolled.
void add_divisions(Lines& lines, const EventView& view, double bigbarsize) {
    if (!(bigbarsize > 0)) return;
    const double step = bigbarsize / subdivisions;
    const double stride =
        std::max(1., std::floor(1 / (step * view.ratio)));  // those on one pixel are one line
    const double last = (view.horizontalscroll + view.width) / step + 1;
    for (double i = std::max(0., std::floor(view.horizontalscroll / step / stride) * stride); i <= last;
         i += stride)
        lines.add(i * bigbarsize / subdivisions - view.horizontalscroll,
                  stride >= subdivisions || std::fmod(i, subdivisions) == 0);
}

}  // namespace

std::vector<NoteLane> build_note_lanes(const EventView& view) {
    const auto rows = static_cast<long>(pitch_rows);
    const double h = view.rowheight;
    std::vector<NoteLane> lanes;
    if (!(h > 0)) return lanes;
    const auto first = static_cast<long>(std::clamp(std::floor(view.verticalscroll / h), 0., pitch_rows));
    for (long row = first; row < rows; ++row) {
        const double exact = static_cast<double>(row) * h - view.verticalscroll;
        if (exact > view.height) break;
        const double top = view.snap(exact), bottom = view.snap(exact + h);
        lanes.push_back({{0, top, view.width, bottom - top},
                         is_black(row % rows_per_octave),
                         row % rows_per_octave == 0});
    }
    return lanes;
}

std::vector<GridLine> build_grid(const Prseq& object, const EventView& view) {
    Lines lines(view);
    if (object.timedisplaytype == static_cast<long>(TimeDisplayType::BarsBeats)) {
        for (const MeasureSpan& span : object.meter.spans)
            add_bars(lines, view, span, parts_shown(view, span, std::max(object.snap_division, 1L)));
    } else {
        add_divisions(lines, view, object.maindisplay.bigbarsize);
    }
    return lines.take();
}

}  // namespace tq
