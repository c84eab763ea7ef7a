// Notes as they were played, to be written to a MIDI file.
#pragma once

#include <string>
#include <vector>

namespace tq {

/// A point of a pitch curve; the curve is straight between points, a step is two points at one time.
struct PitchPoint {
    double ms;     ///< from the note's start, never falling from point to point
    double pitch;  ///< in semitones, 60 is middle C
    friend bool operator==(const PitchPoint&, const PitchPoint&) = default;
};

/// A note; with a curve, the curve says its pitch from start to end.
struct PartNote {
    double start_ms = 0;
    double duration_ms = 0;
    double pitch = 60;
    double velocity = 100;
    std::vector<PitchPoint> curve;
};

/// What one player plays with one sound.
struct MidiPart {
    std::string name;
    int program = 0;  ///< 0…127; of drums, the kit
    bool drums = false;
    std::vector<PartNote> notes;  ///< in any order
};

}  // namespace tq
