// Which track and channel of a MIDI file each note of a part goes to.
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <map>
#include <queue>
#include <vector>

namespace tq {

/// A channel of one of a part's tracks.
struct Lane {
    int layer;    ///< which track of the part
    int channel;  ///< 0…15
};

/// The channels of a file that parts have taken, port by port (a port is sixteen channels).
class ChannelPlan {
 public:
    struct Home {
        int port;
        int channel;
    };
    /// Of the next part: a channel of its own, or channel 9 for drums.
    Home next_home(bool drums);
    /// A channel that no part has yet, now taken; −1 when the port has no more.
    int claim(int port);

 private:
    int melodic_ = 0;
    std::map<int, std::bitset<16>> taken_;  // by port
};

/// Deals the notes of one part, in order of their start, out to lanes.
///
/// Notes that no other note can disturb share the home channel. A note that is to be alone (it bends, say),
/// or whose key sounds already, gets a lane that is its own while it lasts; when a track's channels are all
/// in use, the part gets another track.
class LaneDealer {
 public:
    /// `ringing`: ticks that a released note may still be heard.
    LaneDealer(ChannelPlan& plan, ChannelPlan::Home home, bool drums, std::int64_t ringing);

    const std::vector<Lane>& lanes() const { return lanes_; }
    /// The lane (an index into lanes()) of a note from `start` to `end`, in ticks; starts must not fall.
    std::size_t deal(std::int64_t start, std::int64_t end, int key, bool alone);

 private:
    // A lane that has been used: the one that is free for longest comes first.
    struct Free {
        std::int64_t since;
        std::size_t lane;
        bool operator<(const Free& other) const { return since > other.since; }
    };

    std::size_t own_lane(std::int64_t start);
    std::size_t new_lane();

    ChannelPlan& plan_;
    ChannelPlan::Home home_;
    bool drums_;
    std::int64_t ringing_;
    int layers_ = 0;
    std::vector<Lane> lanes_;
    std::vector<int> spare_;  // channels of the last layer that are not in use
    std::priority_queue<Free> own_;
    std::array<std::int64_t, 128> key_end_{};  // on the home channel
};

}  // namespace tq
