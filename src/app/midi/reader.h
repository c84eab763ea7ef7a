// Reads Standard MIDI Files.
#pragma once

#include <cstddef>
#include <span>

#include "app/midi/error.h"
#include "app/midi/song.h"

namespace tq {

struct MidiReading {
    bool pedal_as_curve = false;  ///< the sustain pedal is a controller like others, and lengthens nothing
};

/// The song in the bytes of a file of format 0 or 1. Throws MidiError when they are no such file; whatever
/// the bytes are, time and memory stay in proportion to their number.
MidiSong read_midi_file(std::span<const std::byte> file, const MidiReading& reading = {});

}  // namespace tq
