#include "app/midi/shared_channel.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace tq {

namespace {

std::set<int> kinds(std::span<const WrittenMove> moves) {
    std::set<int> result;
    for (const WrittenMove& move : moves) result.insert(move.what);
    return result;
}

}  // namespace

std::vector<SharedChannel::Level> SharedChannel::levels(std::span<const WrittenMove> moves, int what) {
    std::vector<Level> result;
    for (const WrittenMove& move : moves)
        if (move.what == what) result.push_back({move.tick, move.value});
    return result;
}

bool SharedChannel::suits(std::span<const WrittenMove> moves, std::int64_t start, std::int64_t end) const {
    const std::int64_t common = std::min(end, busy_until_);  // until then others hear what this note says
    if (common <= start) return true;
    for (const int what : kinds(moves)) {
        const auto told = told_.find(what);
        if (told == told_.end()) continue;  // whoever sounds does not care
        const std::vector<Level> wanted = levels(moves, what);
        const std::vector<Level>& there = told->second;
        // The level at the start, then every step until `common`, must be the same.
        auto ours = wanted.begin();
        auto theirs = std::ranges::upper_bound(there, start + slack_, {}, &Level::tick);
        if (theirs == there.begin() || std::prev(theirs)->value != ours->value) return false;
        const auto in_common = [&](auto at, auto last) { return at != last && at->tick < common - slack_; };
        for (++ours; in_common(ours, wanted.end()) && in_common(theirs, there.end()); ++ours, ++theirs)
            if (ours->value != theirs->value || std::abs(ours->tick - theirs->tick) > slack_) return false;
        if (in_common(ours, wanted.end()) || in_common(theirs, there.end())) return false;
    }
    return true;
}

std::vector<WrittenMove> SharedChannel::take(std::span<const WrittenMove> moves, std::int64_t start,
                                             std::int64_t end) {
    std::vector<WrittenMove> fresh;
    for (const int what : kinds(moves)) {
        std::vector<Level>& told = told_[what];
        // What is past is not asked for again, as starts do not fall; nor what was said of a time after all
        // notes.
        const auto now = std::ranges::upper_bound(told, start, {}, &Level::tick);
        if (now != told.begin()) told.erase(told.begin(), std::prev(now));
        for (const Level& level : levels(moves, what)) {
            if (!told.empty() && (level.tick <= told.back().tick + slack_ && level.tick < busy_until_))
                continue;
            if (!told.empty() && told.back().value == level.value) continue;
            told.push_back(level);
            fresh.push_back({level.tick, what, level.value});
        }
    }
    busy_until_ = std::max(busy_until_, end);
    return fresh;
}

}  // namespace tq
