// A pitch as what an instrument with keys and a bend wheel can do.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "app/midi/part.h"

namespace tq {

/// The key to press for a note, and how far its wheel must reach.
struct KeyBend {
    int key;    ///< 0…127
    int range;  ///< semitones up and down, 2 or more
    bool bent;  ///< false: the key alone is the pitch, all the time

    /// The wheel's position for a pitch, 0…16383, 8192 being the middle.
    int wheel(double pitch) const;
};

/// The key nearest to a note's pitch, or, when its curve goes further than `widest` semitones from there, to
/// the middle of the curve. Any finite pitches; what the widest range cannot reach is cut.
KeyBend key_bend(double pitch, std::span<const PitchPoint> curve, int widest);

/// The wheel moves to `wheel`, `ms` after the note's start.
struct WheelMove {
    double ms;
    int wheel;
};

/// How the wheel follows a curve: in stairs of `step_ms` at most, level where the curve is, none that changes
/// nothing. The first move, at 0, is always there. Points outside 0…duration are cut.
std::vector<WheelMove> wheel_moves(const KeyBend& bend, double pitch, std::span<const PitchPoint> curve,
                                   double duration_ms, double step_ms);

}  // namespace tq
