// Notes as they were played, to be written to a MIDI file.
#pragma once

#include <string>
#include <vector>

#include "app/midi/curve_point.h"
#include "app/midi/voice.h"

namespace tq {

/// A note; with a curve, the curve says its pitch (60 is middle C) from start to end.
struct PartNote {
    double start_ms = 0;
    double duration_ms = 0;
    double pitch = 60;
    double velocity = 100;
    std::vector<CurvePoint> curve{};
    std::vector<ControllerCurve> controllers{};
};

/// From `quarters` on, in quarter notes from the beginning, a bar has `beats` beats, each a 1/`unit` note.
struct PartSignature {
    double quarters = 0;
    int beats = 4;  ///< 1…255
    int unit = 4;   ///< a power of two up to 128
    friend bool operator==(const PartSignature&, const PartSignature&) = default;
};

/// Tempo and bars; they move no note.
struct PartMeter {
    double bpm = 120;
    std::vector<PartSignature> signatures{};  ///< in time order
};

/// What one player plays with one sound.
struct MidiPart {
    std::string name;
    Voice voice;
    std::vector<PartNote> notes;  ///< in any order
};

}  // namespace tq
