// The sustain pedal: how long notes sound that have been let go.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "app/midi/channel_timeline.h"
#include "app/midi/raw_file.h"

namespace tq {

/// When the notes of a channel end that the pedal's steps hold: when the pedal is let go, or the key is
/// struck anew, or at `file_end`. One tick a note; a note that never ended ends at `file_end`.
std::vector<std::int64_t> held_ends(const RawChannel& channel, std::span<const Step> pedal,
                                    std::int64_t file_end);

}  // namespace tq
