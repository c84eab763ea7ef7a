// A point of a curve under a note.
#pragma once

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace tq {

/// The curve is straight between points; a step is two points at one time.
struct CurvePoint {
    double ms;     ///< from the note's start, never falling from point to point
    double value;  ///< of pitches semitones, of controllers 0…127
    friend bool operator==(const CurvePoint&, const CurvePoint&) = default;
};

/// Whether all numbers of a curve are.
inline bool is_finite(std::span<const CurvePoint> curve) {
    return std::ranges::all_of(
        curve, [](const CurvePoint& point) { return std::isfinite(point.ms) && std::isfinite(point.value); });
}

/// What a controller is at while a note lasts; it says nothing of what comes after the last point.
struct ControllerCurve {
    int controller;  ///< a `Controller`
    std::vector<CurvePoint> points;
    friend bool operator==(const ControllerCurve&, const ControllerCurve&) = default;
};

}  // namespace tq
