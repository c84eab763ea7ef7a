// The clock of the MIDI files that are written.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tq {

/// Ticks that those of nearly all files divide, fine enough for 0.02 ms at tempos above 60, and for 0.6 ms at
/// the slowest that a file can say.
class WrittenClock {
 public:
    /// A tempo in quarter notes a minute; what a file cannot say is taken to the nearest that it can.
    explicit WrittenClock(double bpm)
        : quarter_us_(std::llround(std::clamp(60e6 / bpm, 1.0, 16777215.0))),
          division_(quarter_us_ > slow_us ? 0x7fff : usual_division) {}

    std::int64_t quarter_us() const { return quarter_us_; }
    int division() const { return division_; }  ///< ticks a quarter note
    /// The nearest tick to a time in ms.
    std::int64_t tick(double ms) const {
        return std::llround(ms * 1000.0 * division_ / static_cast<double>(quarter_us_));
    }

 private:
    static constexpr int usual_division = 30720;
    static constexpr std::int64_t slow_us = 2000000;
    std::int64_t quarter_us_;
    int division_;
};

}  // namespace tq
