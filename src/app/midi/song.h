// What a Standard MIDI File says, in milliseconds: plain records.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "app/midi/curve_point.h"
#include "app/midi/left_out.h"
#include "app/midi/voice.h"

namespace tq {

/// Where the points of a note's curve stand among those of its track; none: the curve stays where it begins
/// when nobody says anything.
struct CurveRange {
    std::uint32_t first = 0;
    std::uint32_t count = 0;
};

struct MidiNote {
    double start_ms;
    double duration_ms;
    CurveRange bend;        ///< in the track's `bends`: semitones away from the pitch
    std::uint8_t pitch;     ///< 0…127
    std::uint8_t velocity;  ///< 1…127
};

/// What a controller is at while the notes of a track sound.
struct ControllerCurves {
    int controller;  ///< a `Controller`
    std::vector<CurvePoint> points;
    std::vector<CurveRange> notes;  ///< one a note of the track; of those beyond, nothing was said
};

/// The notes of one channel of one track of the file that are played with one sound.
struct MidiTrack {
    std::string name{};  ///< UTF-8, never empty
    int file_track = 0;  ///< which track chunk of the file, from 0
    int channel = 0;     ///< 0…15
    Voice voice{};
    std::vector<MidiNote> notes{};  ///< by start
    std::vector<CurvePoint> bends{};
    std::vector<ControllerCurves> controllers{};  ///< those that ever leave where they begin

    /// The note's curve: empty, or points from 0 to its duration.
    std::span<const CurvePoint> bend(const MidiNote& note) const {
        return std::span(bends).subspan(note.bend.first, note.bend.count);
    }
    /// The same of a controller under note number `note`.
    static std::span<const CurvePoint> curve(const ControllerCurves& curves, std::size_t note) {
        if (note >= curves.notes.size()) return {};
        return std::span(curves.points).subspan(curves.notes[note].first, curves.notes[note].count);
    }
};

/// From `tick` on a quarter note lasts `quarter_us` microseconds.
struct TempoChange {
    std::int64_t tick;
    double ms;
    std::uint32_t quarter_us;
};

/// From `tick` on a bar has `beats` beats, each a 1/`unit` note.
struct TimeSignature {
    std::int64_t tick;
    double ms;
    int beats;
    int unit;
};

struct MidiSong {
    int division = 0;                       ///< ticks a quarter note; 0 when the file counts film frames
    std::int64_t end = 0;                   ///< tick of the end of the longest track
    std::vector<MidiTrack> tracks;          ///< by track of the file, then channel, then first note
    std::vector<TempoChange> tempos;        ///< the first at tick 0; empty when the file counts film frames
    std::vector<TimeSignature> signatures;  ///< as far as the file gives any
    double length_ms = 0;                   ///< to the end of the longest track
    LeftOut left_out;
};

}  // namespace tq
