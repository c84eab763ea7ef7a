#include "view/ruler.h"

#include <fmt/printf.h>

#include <algorithm>
#include <cmath>

#include "host/round.h"
#include "instance/prseq.h"
#include "view/eventview.h"

namespace tq {

namespace {

constexpr double long_tick = 9, middle_tick = 7, short_tick = 6;
constexpr double tick_width = 2;  // a dark line and a light one
constexpr double least_tick_distance = 3, text_gap = 6, first_text_x = 2;
constexpr long divisions = 10;

std::string time_text(TimeDisplayType type, double ms) {
    const auto whole = static_cast<long>(jgraphics_round(ms));
    if (type == TimeDisplayType::Milliseconds) return fmt::sprintf("%ld", whole);
    const long seconds = whole / 1000;
    return fmt::sprintf("%02d:%02d.%d", seconds / 60 % 60, seconds % 60, whole % 1000);
}

/// The least of 1, 2, 5, 10, 20, 50 … of which steps of `pixels` make at least `least` pixels.
double thinned(double pixels, double least) {
    for (double decade = 1; decade < 1e15; decade *= 10)
        for (double factor : {1., 2., 5.})
            if (decade * factor * pixels >= least) return decade * factor;
    return 1e15;
}

class RulerBuilder {
 public:
    RulerBuilder(const Prseq& object, double ratio)
        : object_(object), view_(object, ratio), height_(object.layout[Part::TimeDisplay].height) {}

    Ruler build() {
        if (!(view_.width > 0 && view_.pixels_per_ms > 0)) return {};
        if (object_.timedisplaytype == static_cast<long>(TimeDisplayType::BarsBeats))
            add_bars();
        else
            add_times();
        return std::move(ruler_);
    }

 private:
    static Size measure(const std::string& text) { return jtextlayout_measure(text, ruler_font()); }

    /// Of two that would cover each other the longer one stays.
    void add_tick(double ms, double length) {
        const double x = view_.snap(view_.x_of(ms));
        if (x < -1 || x >= view_.width) return;
        const bool beside = !ruler_.ticks.empty() && x - ruler_.ticks.back().x < tick_width;
        if (!beside)
            ruler_.ticks.push_back({x, length});
        else if (length > ruler_.ticks.back().length)
            ruler_.ticks.back() = {x, length};
    }

    /// Centred on a time; at the timeline's begin, beside it.
    double text_x(double ms, double width) const {
        return ms > 0 ? view_.x_of(ms) - width / 2 : first_text_x - view_.horizontalscroll;
    }

    void add_text(const std::string& text, double ms, double y) {
        const double width = measure(text).width, x = text_x(ms, width);
        if (x + width > 0 && x < view_.width) ruler_.texts.push_back({text, {x, y}});
    }

    void add_times() {
        const double big = object_.maindisplay.mslabelincrement, pixels = big * view_.pixels_per_ms;
        const auto type = static_cast<TimeDisplayType>(object_.timedisplaytype);
        const double widest = measure(time_text(type, object_.timelinelength)).width;
        const double step = thinned(pixels, std::min(widest + text_gap, 100.));
        const long parts = pixels / divisions >= least_tick_distance ? divisions : 1;
        const double last = std::floor(view_.ms_at(view_.width) / big);
        for (double k = std::floor(view_.ms_at(0) / big / step) * step; k <= last; k += step) {
            for (long i = 0; i < parts; ++i)
                add_tick(big * (k + static_cast<double>(i) / divisions), i == 0               ? long_tick
                                                                         : i == divisions / 2 ? middle_tick
                                                                                              : short_tick);
            add_text(time_text(type, k * big), k * big, 0);
        }
    }

    void add_bars() {
        const std::vector<MeasureSpan>& spans = object_.meter.spans;
        const double from = view_.ms_at(0), to = view_.ms_at(view_.width);
        const auto begins_after = [](double ms, const MeasureSpan& span) { return ms < span.start; };
        // One more on both sides: its text may reach into the view.
        auto first = std::upper_bound(spans.begin(), spans.end(), from, begins_after);
        first -= std::min<std::ptrdiff_t>(first - spans.begin(), 2);
        auto last = std::upper_bound(first, spans.end(), to, begins_after);
        if (last != spans.end()) ++last;
        for (auto span = first; span != last; ++span) {
            add_bar_ticks(*span);
            const bool room = span == spans.begin() || has_room(*std::prev(span), *span);
            if (room) add_text(signature(*span), span->start, 0);
            add_bar_numbers(*span, room, std::next(span) == spans.end() ? HUGE_VAL : std::next(span)->start);
        }
    }

    static std::string signature(const MeasureSpan& span) {
        return fmt::sprintf("%ld/%ld", span.beats, span.notevalue);
    }
    std::string number(const MeasureSpan& span, double nth) const {
        return fmt::sprintf("%ld", span.firstmeasure + static_cast<long>(nth) + object_.meter.firstbarnumber);
    }

    /// Whether what is written at a span's begin stands clear of what is written at that of the one before.
    bool has_room(const MeasureSpan& before, const MeasureSpan& span) const {
        const auto half = [&](const MeasureSpan& s) {
            const double widest = std::max(measure(signature(s)).width, measure(number(s, 0)).width);
            return s.start > 0 ? widest / 2 : widest + first_text_x;
        };
        return (span.start - before.start) * view_.pixels_per_ms >= half(before) + half(span) + text_gap;
    }

    /// The bars of a span that may show in the view, from the first to the last.
    std::pair<double, double> bars_in_view(const MeasureSpan& span, double margin) const {
        const double most = static_cast<double>(span.count) - 1;
        return {
            std::clamp(std::floor((view_.ms_at(-margin) - span.start) / span.length), 0., most),
            std::clamp(std::floor((view_.ms_at(view_.width + margin) - span.start) / span.length), 0., most)};
    }

    void add_bar_ticks(const MeasureSpan& span) {
        const double pixels = span.length * view_.pixels_per_ms, step = thinned(pixels, least_tick_distance);
        const bool beats = pixels / static_cast<double>(span.beats) >= least_tick_distance;
        const auto [first, last] = bars_in_view(span, 1);
        for (double bar = std::floor(first / step) * step; bar <= last; bar += step) {
            add_tick(span.start + bar * span.length, long_tick);
            if (beats) add_beats(span, span.start + bar * span.length);
        }
    }

    void add_beats(const MeasureSpan& span, double bar) {
        const double count = static_cast<double>(span.beats), beat = span.length / count;
        const double first = std::max(1., std::floor((view_.ms_at(0) - bar) / beat));
        const double last = std::min(count - 1, std::ceil((view_.ms_at(view_.width) - bar) / beat));
        for (double j = first; j <= last; ++j) add_tick(bar + j * span.length / count, short_tick);
    }

    /// Bar numbers, as many as stand clear of each other and of the next span's.
    void add_bar_numbers(const MeasureSpan& span, bool numbers_first, double next_span) {
        const Size widest = measure(number(span, static_cast<double>(span.count) - 1));
        const double needed = widest.width + text_gap, y = height_ - widest.height - long_tick;
        const double step = thinned(span.length * view_.pixels_per_ms, needed);
        const auto [first, last] = bars_in_view(span, widest.width);
        for (double bar = std::floor(first / step) * step; bar <= last; bar += step) {
            const double ms = span.start + bar * span.length;
            const bool clear = bar == 0 ? numbers_first : (next_span - ms) * view_.pixels_per_ms >= needed;
            if (clear) add_text(number(span, bar), ms, y);
        }
    }

    const Prseq& object_;
    EventView view_;
    double height_;
    Ruler ruler_;
};

}  // namespace

JFont ruler_font() { return jfont_create("Geneva", 10); }

Ruler build_ruler(const Prseq& object, double ratio) { return RulerBuilder(object, ratio).build(); }

}  // namespace tq
