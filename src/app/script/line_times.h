// Times in beats and bars, as the lines of a driver may tell them.
#pragma once

#include <string>

#include "instance/meter.h"

namespace tq {

/// What such times stand for.
struct BeatsInTime {
    double tempo;  ///< beats a minute
    const Meter& meter;
};

/// The line with its times in ms. Where a line takes a time, "2b" is two beats of the tempo and "2/3b" two
/// thirds of one; where it takes a position, "@5.2" is the second beat of the fifth bar too. All other words,
/// and those in quotes, stay as they are. Times are whole ms, as documents hold them, but for waits and
/// grids.
std::string line_in_ms(const std::string& line, const BeatsInTime& beats);

}  // namespace tq
