// A pitch as what an instrument with keys and a bend wheel can do.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "app/midi/curve_point.h"

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
KeyBend key_bend(double pitch, std::span<const CurvePoint> curve, int widest);

}  // namespace tq
