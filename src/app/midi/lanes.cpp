#include "app/midi/lanes.h"

namespace tq {

namespace {

constexpr int drum_channel = 9;

}  // namespace

ChannelPlan::Home ChannelPlan::next_home(bool drums) {
    if (drums) return {0, drum_channel};
    const int port = melodic_ / 15;
    const int index = melodic_++ % 15;
    const int channel = index < drum_channel ? index : index + 1;
    taken_[port].set(static_cast<std::size_t>(channel));
    return {port, channel};
}

int ChannelPlan::claim(int port) {
    auto& taken = taken_[port];
    for (int channel = 0; channel < 16; ++channel) {
        if (channel == drum_channel || taken.test(static_cast<std::size_t>(channel))) continue;
        taken.set(static_cast<std::size_t>(channel));
        return channel;
    }
    return -1;
}

LaneDealer::LaneDealer(ChannelPlan& plan, ChannelPlan::Home home, bool drums, std::int64_t ringing)
    : plan_(plan), home_(home), drums_(drums), ringing_(ringing), layers_(1), lanes_{{0, home.channel}} {
    key_end_.fill(-1);
    if (drums) return;
    for (int channel = 15; channel >= 0; --channel) {
        if (channel != drum_channel && channel != home.channel) spare_.push_back(channel);
    }
}

std::size_t LaneDealer::deal(std::int64_t start, std::int64_t end, int key, bool alone) {
    std::int64_t& key_end = key_end_[static_cast<std::size_t>(key)];
    if (!alone && key_end <= start) {
        key_end = end;
        return 0;
    }
    const std::size_t lane = own_lane(start);
    own_.push({end, lane});
    return lane;
}

// A released note still rings; its channel is moved anew only when there is no other, or after that time.
std::size_t LaneDealer::own_lane(std::int64_t start) {
    const bool silent = !own_.empty() && own_.top().since + ringing_ <= start;
    if (!silent && layers_ == 1 && !drums_) {
        const int channel = plan_.claim(home_.port);
        if (channel >= 0) {
            std::erase(spare_, channel);
            lanes_.push_back({0, channel});
            return lanes_.size() - 1;
        }
    }
    if (own_.empty() || own_.top().since > start) return new_lane();
    const std::size_t lane = own_.top().lane;
    own_.pop();
    return lane;
}

// Channels that other parts have as well, in this part's own tracks: only a reader that tells tracks apart
// keeps them apart, yet it is better than to lose a note.
std::size_t LaneDealer::new_lane() {
    if (spare_.empty()) {
        ++layers_;
        for (int channel = 15; channel >= 0; --channel) {
            if (drums_ == (channel == drum_channel)) spare_.push_back(channel);
        }
    }
    lanes_.push_back({layers_ - 1, spare_.back()});
    spare_.pop_back();
    return lanes_.size() - 1;
}

}  // namespace tq
