// The host's rounding.
#pragma once

#include <cmath>

namespace tq {

/// To the nearest whole number, halves up.
inline double jgraphics_round(double value) { return std::floor(value + 0.5); }

}  // namespace tq
