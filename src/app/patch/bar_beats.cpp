#include "app/patch/bar_beats.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tq {

namespace {

double beat_length(const MeasureSpan& span) { return span.length / static_cast<double>(span.beats); }

/// The last of the spans that begin at or before the value; their end when there is none.
template <typename Value>
auto last_from(const Meter& meter, Value MeasureSpan::*begin, Value value) {
    const auto behind = std::ranges::upper_bound(meter.spans, value, {}, begin);
    return behind == meter.spans.begin() ? meter.spans.end() : std::prev(behind);
}

/// A text that is all number.
template <typename Value>
bool read_number(std::string_view text, Value& value) {
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
    return fault == std::errc() && end == text.data() + text.size();
}

}  // namespace

std::optional<BarBeat> bar_beat_at(const Meter& meter, double ms) {
    const auto span = last_from(meter, &MeasureSpan::start, ms);
    if (span == meter.spans.end()) return {};
    const double nth = std::floor((ms - span->start) / span->length);
    const double into_bar = ms - span->start - nth * span->length;
    return BarBeat{meter.firstbarnumber + span->firstmeasure + static_cast<long>(nth),
                   1 + into_bar / beat_length(*span)};
}

std::optional<double> ms_of(const Meter& meter, const BarBeat& place) {
    const long index = place.bar - meter.firstbarnumber;
    const auto span = last_from(meter, &MeasureSpan::firstmeasure, index);
    if (span == meter.spans.end() || place.beat < 1) return {};
    return span->start + static_cast<double>(index - span->firstmeasure) * span->length +
           (place.beat - 1) * beat_length(*span);
}

/// What follows the second point are the digits of a fraction.
std::optional<double> ms_of_bar_text(const Meter& meter, std::string_view text) {
    const size_t point = text.find('.');
    BarBeat place;
    const bool told = read_number(text.substr(0, point), place.bar) &&
                      (point == text.npos || read_number(text.substr(point + 1), place.beat));
    return told ? ms_of(meter, place) : std::nullopt;
}

std::optional<Beat> beat_from(const Meter& meter, double ms) {
    constexpr double rounding = 1e-6;  // of a beat
    const auto span = last_from(meter, &MeasureSpan::start, ms);
    if (span == meter.spans.end()) return {};
    const double nth = std::ceil((ms - span->start) / beat_length(*span) - rounding);
    const double at = span->start + nth * beat_length(*span);
    const auto next = std::next(span);
    if (next != meter.spans.end() && at >= next->start) return Beat{next->start, true};
    return Beat{at, std::fmod(nth, static_cast<double>(span->beats)) == 0};
}

}  // namespace tq
