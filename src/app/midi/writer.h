// Writes Standard MIDI Files.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "app/midi/part.h"

namespace tq {

/// A file of format 1: a track for tempo and time signatures, then each part's track, or tracks if it is very
/// dense. Times are kept to 0.03 ms (at tempos below 60 to less), velocities rounded to 1…127; bends and
/// controllers follow their curves in stairs of 5 ms. Notes whose numbers are not finite, or whose times are
/// negative or beyond 10^10 ms, are left out. Throws std::length_error when more than 65535 tracks would be
/// needed.
std::vector<std::byte> write_midi_file(std::span<const MidiPart> parts, const PartMeter& meter = {});

}  // namespace tq
