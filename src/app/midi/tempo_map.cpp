#include "app/midi/tempo_map.h"

#include <algorithm>
#include <limits>

namespace tq {

TempoMap::TempoMap(const RawFile& file) : units_per_ms_(1000.0 * file.division), frames_(file.division == 0) {
    if (frames_) {
        units_per_ms_ = 1;
        segments_.push_back({0, 0, file.frame_tick_ms});
    } else {
        segments_.push_back({0, 0, 500000});
        std::vector<RawTempo> tempos = file.tempos;
        std::ranges::stable_sort(tempos, {}, &RawTempo::tick);
        for (const RawTempo& tempo : tempos) add(tempo);
    }
    seek(0);
}

void TempoMap::add(const RawTempo& tempo) {
    Segment& last = segments_.back();
    if (tempo.tick == last.tick) {
        last.tick_units = tempo.quarter_us;
        return;
    }
    const double sum = last.sum + static_cast<double>(tempo.tick - last.tick) * last.tick_units;
    segments_.push_back({tempo.tick, sum, static_cast<double>(tempo.quarter_us)});
}

void TempoMap::seek(std::int64_t tick) {
    const auto after = std::ranges::upper_bound(segments_, tick, {}, &Segment::tick);
    near_ = static_cast<std::size_t>(after - segments_.begin()) - 1;
    next_tick_ = after == segments_.end() ? std::numeric_limits<std::int64_t>::max() : after->tick;
}

std::vector<TempoChange> TempoMap::changes() {
    std::vector<TempoChange> result;
    if (frames_) return result;
    for (const Segment& segment : segments_) {
        result.push_back(
            {segment.tick, segment.sum / units_per_ms_, static_cast<std::uint32_t>(segment.tick_units)});
    }
    return result;
}

}  // namespace tq
