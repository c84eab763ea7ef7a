// A note that the box played, as players get it.
#pragma once

#include <string>
#include <vector>

#include "app/midi/part.h"

namespace tq {

/// What a note sounds like: a General MIDI program, or a drum kit.
struct Voice {
    int program = 0;  ///< 0…127
    bool drums = false;
    friend auto operator<=>(const Voice&, const Voice&) = default;
};

struct PlayedNote {
    double ms = 0;  ///< logical time
    double duration_ms = 0;
    double pitch = 60;              ///< semitones, 60 is middle C
    double velocity = 100;          ///< 1…127; at 0 and under nothing sounds
    std::vector<PitchPoint> curve;  ///< the pitch while the note lasts; empty when it stays
    Voice voice;
    std::string source;  ///< whom a stop stops: the track's number, or the receiver's name
};

}  // namespace tq
