// Positions in the document's own bars and beats.
#pragma once

#include <optional>
#include <string_view>

#include "instance/meter.h"

namespace tq {

/// A place in a bar, as it is told: both count from 1, the bar from the meter's first bar number on, and the
/// part of a beat that has passed is the beat's fraction.
struct BarBeat {
    long bar = 1;
    double beat = 1;
};

struct Beat {
    double ms = 0;
    bool begins_bar = false;
};

// Bars go on behind the last one that the document has, in its signature.

/// None before 0, and without bars.
std::optional<BarBeat> bar_beat_at(const Meter& meter, double ms);
/// In ms; none before the first bar or its first beat. Beats beyond the bar's lie in those that follow.
std::optional<double> ms_of(const Meter& meter, const BarBeat& place);
/// The position in ms of a place as text: "3" is the beginning of bar 3, "3.2" its second beat, "3.2.5" half
/// a beat later. None when the text says no place.
std::optional<double> ms_of_bar_text(const Meter& meter, std::string_view text);
/// The first beat at or after a position in ms; none before 0, and without bars.
std::optional<Beat> beat_from(const Meter& meter, double ms);

}  // namespace tq
