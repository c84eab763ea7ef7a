#include "app/midi/pedal.h"

#include <algorithm>
#include <array>

namespace tq {

namespace {

constexpr double down = 64;

struct Held {
    std::int64_t from, until;
};

std::vector<Held> held_times(std::span<const Step> pedal, std::int64_t file_end) {
    std::vector<Held> times;
    bool is_down = false;
    for (const Step& step : pedal) {
        if ((step.value >= down) == is_down) continue;
        is_down = !is_down;
        if (is_down)
            times.push_back({step.tick, file_end});
        else
            times.back().until = step.tick;
    }
    return times;
}

}  // namespace

std::vector<std::int64_t> held_ends(const RawChannel& channel, std::span<const Step> pedal,
                                    std::int64_t file_end) {
    const std::vector<Held> times = held_times(pedal, file_end);
    std::vector<std::int64_t> ends(channel.notes.size());
    std::array<std::int64_t, 128> struck_anew{};
    struck_anew.fill(file_end);
    for (std::size_t i = channel.notes.size(); i-- > 0;) {
        const RawNote& note = channel.notes[i];
        std::int64_t end = note.end == RawNote::open ? file_end : note.end;
        const auto after = std::ranges::lower_bound(times, end, {}, &Held::from);
        if (after != times.begin() && end < after[-1].until)
            end = std::max(end, std::min(after[-1].until, struck_anew[note.key]));
        struck_anew[note.key] = note.start;
        ends[i] = end;
    }
    return ends;
}

}  // namespace tq
