// A Standard MIDI File taken apart, in ticks: what a track says by itself, before tempo and the other tracks
// have their say.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "app/midi/controllers.h"
#include "app/midi/left_out.h"

namespace tq {

/// A note of which `end` is `RawNote::open` when the track never ended it.
struct RawNote {
    static constexpr std::int64_t open = -1;
    std::int64_t start;
    std::int64_t end;
    std::uint32_t position;  ///< of its note-on in the file
    std::uint8_t key;
    std::uint8_t velocity;
};

/// A message that changes how a channel's notes sound.
struct ChannelChange {
    /// The controllers by their numbers, then the rest. A controller, pressure of the channel included, goes
    /// to `value`, 0…127; pressure of a key to key * 128 + value.
    enum What : std::uint8_t {
        Program = controller_count,  ///< to `value`, 0…127
        Bank,                        ///< of the next program to `value`, coarse * 128 + fine
        Bend,                        ///< wheel to `value`, 0…16383
        Range,                       ///< of the wheel, `value` cents up and down
        Tuning,                      ///< of all keys, to `value` cents above −6400
    };
    std::int64_t tick;
    std::uint32_t position;  ///< in the file; orders messages at one tick
    std::uint16_t value;
    std::uint8_t what;  ///< a `Controller` or a `What`
    std::uint8_t channel;
};

struct RawChannel {
    int channel;
    std::vector<RawNote> notes;  ///< by start, never empty
};

/// What `write_midi_file` says of a track: all its channels are one part, begun here or in the track before.
enum class PartMark : std::uint8_t { None, Begins, GoesOn };

struct RawTrack {
    std::string name;
    int port = 0;  ///< of several times 16 channels, which
    PartMark mark = PartMark::None;
    std::vector<RawChannel> channels;
    std::vector<ChannelChange> changes;
};

struct RawTempo {
    std::int64_t tick;
    std::uint32_t quarter_us;
};

struct RawSignature {
    std::int64_t tick;
    int beats;
    int unit;
};

struct RawFile {
    int format = 0;
    int division = 0;          ///< ticks a quarter note; 0 when film frames are counted
    double frame_tick_ms = 0;  ///< then this long is a tick
    std::vector<RawTrack> tracks;
    std::vector<RawTempo> tempos;          ///< as they come, track after track
    std::vector<RawSignature> signatures;  ///< likewise
    std::int64_t end = 0;                  ///< tick of the latest end of a track
    std::size_t messages = 0;              ///< of channels
    bool extended = false;                 ///< begins with the reset by which banks 126 and 127 are drums
    LeftOut left_out;
};

/// What a file of more than these may be refused for: each becomes a few hundred bytes.
inline constexpr std::size_t most_messages = std::size_t{1} << 25;

/// Takes a file apart. Throws MidiError.
RawFile parse_midi_file(std::span<const std::byte> file);

}  // namespace tq
