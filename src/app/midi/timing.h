// The clock of the MIDI files that are written: 9600 ticks a quarter note of 500 ms.
#pragma once

#include <cmath>
#include <cstdint>

namespace tq {

constexpr int written_division = 9600;
constexpr std::uint32_t written_quarter_us = 500000;

/// The nearest tick to a time in ms; a tick is about 0.05 ms.
inline std::int64_t written_tick(double ms) {
    return std::llround(ms * (1000.0 * written_division / written_quarter_us));
}

}  // namespace tq
