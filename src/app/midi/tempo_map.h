// From ticks to milliseconds.
#pragma once

#include <vector>

#include "app/midi/raw_file.h"
#include "app/midi/song.h"

namespace tq {

/// The tempo changes of all tracks, merged. Ask in rising order to be quick; any order is right.
class TempoMap {
 public:
    explicit TempoMap(const RawFile& file);

    /// The time of a tick, 0 or more, in ms.
    double ms(std::int64_t tick) {
        if (tick < segments_[near_].tick || tick >= next_tick_) seek(tick);
        const Segment& segment = segments_[near_];
        return (segment.sum + static_cast<double>(tick - segment.tick) * segment.tick_units) / units_per_ms_;
    }
    /// The tempo in effect from each change on; empty when ticks are fractions of film frames.
    std::vector<TempoChange> changes();

 private:
    // Times are whole numbers of 1/division microseconds, so that summing them up loses nothing.
    struct Segment {
        std::int64_t tick;
        double sum;         // units before the segment
        double tick_units;  // units a tick: microseconds a quarter note
    };
    void add(const RawTempo& tempo);
    void seek(std::int64_t tick);

    std::vector<Segment> segments_;
    double units_per_ms_;
    bool frames_;
    std::size_t near_ = 0;
    std::int64_t next_tick_ = 0;  // where the segment after `near_` begins
};

}  // namespace tq
