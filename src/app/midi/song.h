// What a Standard MIDI File says, in milliseconds: plain records.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tq {

/// A point of a pitch-bend curve; the curve is straight between points, a step is two points at one time.
struct BendPoint {
    double ms;         ///< from the note's start
    double semitones;  ///< offset from the note's pitch
};

/// A note; its pitch-bend points, if any, stand in the track's `bends`.
struct MidiNote {
    double start_ms;
    double duration_ms;
    std::uint32_t first_bend;
    std::uint32_t bend_count;  ///< 0: the note does not bend
    std::uint8_t pitch;        ///< 0…127
    std::uint8_t velocity;     ///< 1…127
};

/// The notes of one channel of one track of the file that are played with one program.
struct MidiTrack {
    std::string name;             ///< UTF-8, never empty
    int file_track;               ///< which track chunk of the file, from 0
    int channel;                  ///< 0…15
    int program;                  ///< 0…127
    bool drums;                   ///< channel 9: keys are drums, the program is a drum kit
    std::vector<MidiNote> notes;  ///< by start
    std::vector<BendPoint> bends;

    /// The note's curve: empty, or points from 0 to its duration.
    std::span<const BendPoint> bend(const MidiNote& note) const {
        return std::span(bends).subspan(note.first_bend, note.bend_count);
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
    std::vector<MidiTrack> tracks;          ///< by track of the file, then channel, then first note
    std::vector<TempoChange> tempos;        ///< the first at tick 0; empty when the file counts film frames
    std::vector<TimeSignature> signatures;  ///< as far as the file gives any
    double length_ms = 0;                   ///< to the end of the longest track
    std::size_t ignored_messages = 0;       ///< channel messages that say nothing about notes
};

}  // namespace tq
