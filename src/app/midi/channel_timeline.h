// What a channel's program, wheel and controllers are at each time.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "app/midi/raw_file.h"

namespace tq {

struct ProgramStep {
    std::int64_t tick;
    std::uint32_t position;  ///< in the file; tells whether a note at the same tick comes before or after
    int program;
    int bank;  ///< coarse * 128 + fine
};

/// From `tick` on something is at `value`.
struct Step {
    std::int64_t tick;
    double value;
};
using Steps = std::vector<Step>;

/// A controller's steps; of the pressures of keys, those of one key.
struct ControllerSteps {
    static constexpr int all_keys = -1;
    int controller;
    int key;
    std::span<const Step> steps;
};

/// Steps in rising order, one a tick; equal ones that follow each other are one.
struct ChannelTimeline {
    std::span<const ProgramStep> programs;
    std::span<const Step> bends;  ///< semitones away from what the keys say
    std::vector<ControllerSteps> controllers;
};

/// The timelines of the channels of one track after the other.
///
/// A channel belongs to the whole file, so a program or bend may stand in another track than the notes. Yet
/// files also use one channel in several tracks for different sounds and mean each track to be its own. So
/// what a track says itself counts; only about what it leaves unsaid (programs, bends, each controller) all
/// are heard.
class Timelines {
 public:
    explicit Timelines(const RawFile& file);

    /// Turns to the channels of a track of the file.
    void enter(const RawTrack& track);
    /// Of a channel, 0…15, of the track entered last; good until the next call of either.
    ChannelTimeline channel(int channel);

 private:
    // By what is said; of the pressures of keys, each key apart.
    using Changes = std::map<int, std::vector<ChannelChange>>;
    struct Worked {
        std::vector<ProgramStep> programs;
        std::optional<Steps> bends;        ///< none: nothing is said
        std::map<int, Steps> controllers;  ///< by what is said, as changes are
    };
    /// What all tracks together say about a channel, worked out when first asked for: once, however many
    /// tracks ask.
    struct Shared {
        Changes changes;
        std::optional<Worked> worked;
    };

    static void add(Changes& changes, const ChannelChange& change);
    static const std::vector<ChannelChange>& list(const Changes& changes, int what);
    static Worked work_out(const Changes& changes);
    static Worked work_out(const Changes& own, const Changes& shared);

    std::vector<Shared> shared_;  // 16 channels of each of 128 ports
    std::array<Changes, 16> own_;
    std::size_t first_shared_ = 0;  // of the entered track's port
    Worked own_worked_;
};

}  // namespace tq
