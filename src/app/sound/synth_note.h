// A note as the synthesiser plays it: in samples, with a key and wheel moves.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "app/midi/channel_moves.h"
#include "app/sound/played_note.h"

namespace tq {

struct SampleMove {
    std::int64_t sample;  ///< from the note's start
    int what;             ///< as of a ChannelMove
    int value;
};

struct SynthSample {
    SoundRef sound;
    std::int64_t begin = 0;   ///< the first frame
    double speed = 1;         ///< frames a sample
    float level = 1;          ///< 0…1
    std::int64_t length = 0;  ///< in samples
    bool cut = false;         ///< the note ends before the range does
};

struct SynthNote {
    std::int64_t start = 0;     ///< sample
    std::int64_t duration = 0;  ///< in samples
    int source = 0;
    long track = -1;
    Voice voice;
    int velocity = 0;  ///< 1…127
    KeyBend bend{};
    std::vector<SampleMove> moves;      ///< by time, the first ones at 0; empty: as every channel begins
    std::optional<SynthSample> sample;  ///< plays this, and no voice

    // Kept by the synthesiser while it has the note.
    struct Playing {
        int engine = 0;
        int channel = 0;
        unsigned id = 0;
        std::size_t place = 0;  ///< among those that sound
        std::size_t move = 0;   ///< the next
        int events = 0;         ///< that still speak of the note
        bool sounds = false;
    } playing;
    SynthNote* next = nullptr;  ///< in a mailbox
};

/// The sample nearest to a time.
std::int64_t sample_at(double ms, double rate);

/// Works a note out for a sample rate. The pitch curve is followed in steps of 2 ms.
SynthNote synth_note(const PlayedNote& note, int source, double rate);

/// Whether a note can be heard: finite, of a velocity above 0, within 10^10 ms. The speed of a sample must be
/// above 0.
bool is_audible(const PlayedNote& note);

}  // namespace tq
