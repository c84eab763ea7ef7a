#include "app/midi/channel_timeline.h"

#include <algorithm>

namespace tq {

namespace {

using Kind = ChannelChange::Kind;
using ChangeList = std::vector<ChannelChange>;

template <class Changes>
auto& of(Changes& changes, Kind kind) {
    return changes[static_cast<std::size_t>(kind)];
}

bool earlier(const ChannelChange& a, const ChannelChange& b) {
    return a.tick != b.tick ? a.tick < b.tick : a.position < b.position;
}

// The wheel's and the range's changes, merged; one step a tick, none that changes nothing.
std::vector<BendStep> bend_steps(const ChangeList& wheel, const ChangeList& ranges) {
    ChangeList changes;
    std::ranges::merge(wheel, ranges, std::back_inserter(changes), earlier);
    std::vector<BendStep> steps;
    double position = 0;
    double range = 2;
    double before = 0;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (changes[i].kind == Kind::Bend) position = (changes[i].value - 8192) / 8192.0;
        if (changes[i].kind == Kind::Range) range = changes[i].value / 100.0;
        const bool last_at_tick = i + 1 == changes.size() || changes[i + 1].tick != changes[i].tick;
        if (!last_at_tick || position * range == before) continue;
        before = position * range;
        steps.push_back({changes[i].tick, before});
    }
    return steps;
}

// The ranges among `all` that are in effect when one of the wheel's changes comes; so the work is in
// proportion to the wheel's changes, however long the other list is.
ChangeList ranges_for(const ChangeList& wheel, const ChangeList& all) {
    ChangeList result;
    for (const ChannelChange& change : wheel) {
        const auto after = std::ranges::upper_bound(all, change.tick, {}, &ChannelChange::tick);
        if (after == all.begin()) continue;
        result.push_back(*std::prev(after));
        result.back().tick = change.tick;
        result.back().position = change.position;
    }
    return result;
}

}  // namespace

Timelines::Timelines(const RawFile& file) : shared_(std::size_t{128} * 16) {
    for (const RawTrack& track : file.tracks) {
        for (const ChannelChange& change : track.changes) {
            Shared& shared = shared_[static_cast<std::size_t>(track.port) * 16 + change.channel];
            of(shared.changes, change.kind).push_back(change);
        }
    }
    for (Shared& shared : shared_) {
        for (ChangeList& changes : shared.changes) std::ranges::sort(changes, earlier);
    }
}

void Timelines::enter(const RawTrack& track) {
    for (Changes& channel : own_) {
        for (ChangeList& changes : channel) changes.clear();
    }
    for (const ChannelChange& change : track.changes) of(own_[change.channel], change.kind).push_back(change);
    first_shared_ = static_cast<std::size_t>(track.port) * 16;
}

ChannelTimeline Timelines::channel(int channel) {
    const auto at = static_cast<std::size_t>(channel);
    return {programs(own_[at], shared_[first_shared_ + at]), bends(own_[at], shared_[first_shared_ + at])};
}

std::span<const ProgramStep> Timelines::programs(const Changes& own, Shared& shared) {
    const ChangeList& changes = of(own, Kind::Program);
    if (!changes.empty()) {
        own_programs_.clear();
        for (const ChannelChange& c : changes) own_programs_.push_back({c.tick, c.position, c.value});
        return own_programs_;
    }
    if (!shared.programs) {
        shared.programs.emplace();
        // At one tick another track's program comes before the note: the order of tracks means nothing.
        for (const ChannelChange& c : of(shared.changes, Kind::Program))
            shared.programs->push_back({c.tick, 0, c.value});
    }
    return *shared.programs;
}

std::span<const BendStep> Timelines::bends(const Changes& own, Shared& shared) {
    const ChangeList& wheel = of(own, Kind::Bend);
    if (!wheel.empty()) {
        const ChangeList& ranges = of(own, Kind::Range);
        own_bends_ =
            bend_steps(wheel, ranges.empty() ? ranges_for(wheel, of(shared.changes, Kind::Range)) : ranges);
        return own_bends_;
    }
    if (!shared.bends)
        shared.bends = bend_steps(of(shared.changes, Kind::Bend), of(shared.changes, Kind::Range));
    return *shared.bends;
}

}  // namespace tq
