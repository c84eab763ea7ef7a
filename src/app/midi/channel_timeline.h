// What a channel's program and pitch bend are at each time.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "app/midi/raw_file.h"

namespace tq {

struct ProgramStep {
    std::int64_t tick;
    std::uint32_t position;  ///< in the file; tells whether a note at the same tick comes before or after
    int program;
};

/// From `tick` on a channel is `semitones` away from what its keys say.
struct BendStep {
    std::int64_t tick;
    double semitones;
};

/// Steps in rising order; equal bends that follow each other are one.
struct ChannelTimeline {
    std::span<const ProgramStep> programs;
    std::span<const BendStep> bends;
};

/// The timelines of the channels of one track after the other.
///
/// A channel belongs to the whole file, so a program or bend may stand in another track than the notes. Yet
/// files also use one channel in several tracks for different sounds and mean each track to be its own. So
/// what a track says itself counts; only about what it leaves unsaid (programs, bends, the range of bends)
/// all are heard.
class Timelines {
 public:
    explicit Timelines(const RawFile& file);

    /// Turns to the channels of a track of the file.
    void enter(const RawTrack& track);
    /// Of a channel, 0…15, of the track entered last; good until the next call of either.
    ChannelTimeline channel(int channel);

 private:
    using Changes = std::array<std::vector<ChannelChange>, ChannelChange::kinds>;
    /// What all tracks together say about a channel, worked out when first asked for: once, however many
    /// tracks ask.
    struct Shared {
        Changes changes;
        std::optional<std::vector<ProgramStep>> programs;
        std::optional<std::vector<BendStep>> bends;
    };

    std::span<const ProgramStep> programs(const Changes& own, Shared& shared);
    std::span<const BendStep> bends(const Changes& own, Shared& shared);

    std::vector<Shared> shared_;  // 16 channels of each of 128 ports
    std::array<Changes, 16> own_;
    std::size_t first_shared_ = 0;  // of the entered track's port
    std::vector<ProgramStep> own_programs_;
    std::vector<BendStep> own_bends_;
};

}  // namespace tq
