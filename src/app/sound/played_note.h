// A note that the box played, as players get it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/midi/part.h"
#include "host/sound.h"

namespace tq {

/// A part of a sampled sound.
struct PlayedSample {
    SoundRef sound;
    double start_ms = 0, end_ms = 0;  ///< of the sound; nothing sounds of what lies outside, or is reversed
    double speed = 1;                 ///< at 2, the sound lasts half as long and is an octave higher
};

struct PlayedNote {
    double ms = 0;  ///< logical time
    double duration_ms = 0;
    double pitch = 60;                ///< semitones, 60 is middle C
    double velocity = 100;            ///< 1…127; at 0 and under nothing sounds
    std::vector<CurvePoint> curve{};  ///< the pitch while the note lasts; empty when it stays
    std::vector<ControllerCurve> controllers{};
    Voice voice{};
    std::string source{};                  ///< whom a stop stops: the track's number, or the receiver's name
    long track = -1;                       ///< whose muting ends it; −1: nobody's
    std::optional<PlayedSample> sample{};  ///< heard in the note's stead, at full level at velocity 127
    bool only_sample = false;              ///< there is no note at all, pitch and velocity stand for nothing
};

}  // namespace tq
