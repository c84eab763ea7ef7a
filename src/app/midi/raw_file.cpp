#include "app/midi/raw_file.h"

#include <limits>

#include "app/midi/byte_reader.h"
#include "app/midi/track_parser.h"

namespace tq {

namespace {

struct Chunk {
    std::string_view type;
    std::size_t begin;
    std::size_t end;
};

bool holds_a_chunk(ByteReader reader) {
    if (reader.left() < 8) return false;
    reader.bytes(4);
    const std::uint32_t length = reader.number(4);
    return length <= reader.left();
}

Chunk read_chunk(ByteReader& reader) {
    const std::string_view type = reader.bytes(4);
    const std::size_t where = reader.position();
    const std::uint32_t length = reader.number(4);
    if (length > reader.left()) {
        throw MidiError("a chunk of " + std::to_string(length) + " bytes where " +
                            std::to_string(reader.left()) + " are left",
                        where);
    }
    const std::size_t begin = reader.position();
    reader.bytes(length);
    return {type, begin, begin + length};
}

// Either ticks a quarter note, or film frames a second (negative) and ticks a frame.
void read_division(ByteReader& reader, RawFile& file) {
    const std::size_t where = reader.position();
    const std::uint32_t division = reader.number(2);
    if (!(division & 0x8000)) {
        if (division == 0) throw MidiError("a division of zero ticks a quarter note", where);
        file.division = static_cast<int>(division);
        return;
    }
    const int frames = 0x100 - static_cast<int>(division >> 8);
    const int ticks = static_cast<int>(division & 0xff);
    if ((frames != 24 && frames != 25 && frames != 29 && frames != 30) || ticks == 0) {
        throw MidiError("a division of " + std::to_string(frames) + " frames a second and " +
                            std::to_string(ticks) + " ticks a frame",
                        where);
    }
    const double rate = frames == 29 ? 30000.0 / 1001.0 : frames;
    file.frame_tick_ms = 1000.0 / (rate * ticks);
}

// Returns how many tracks the header promises; one that promises none says nothing.
std::uint32_t read_header(ByteReader reader, RawFile& file) {
    const std::size_t where = reader.position();
    if (reader.left() < 6) throw MidiError("a header shorter than six bytes", where);
    file.format = static_cast<int>(reader.number(2));
    if (file.format == 2)
        throw MidiError("the file holds separate patterns (format 2), which have no common time", where);
    if (file.format > 2) throw MidiError("an unknown file format " + std::to_string(file.format), where);
    const std::uint32_t tracks = reader.number(2);
    read_division(reader, file);
    return tracks;
}

}  // namespace

RawFile parse_midi_file(std::span<const std::byte> file) {
    if (file.size() > std::numeric_limits<std::uint32_t>::max()) {
        throw MidiError("the file is larger than 4 gigabytes, it ends", file.size());
    }
    RawFile result;
    ByteReader reader(file, 0, file.size());
    if (reader.left() < 4 || ByteReader(reader).bytes(4) != "MThd") throw MidiError("no MIDI file header", 0);
    const Chunk header = read_chunk(reader);
    const std::uint32_t promised = read_header(ByteReader(file, header.begin, header.end), result);
    // Before the promised tracks are complete stray bytes are a file cut short; after, they are forgiven, and
    // whole tracks counted.
    while (result.tracks.size() < promised ? reader.left() > 0 : holds_a_chunk(reader)) {
        const Chunk chunk = read_chunk(reader);
        if (chunk.type != "MTrk") continue;
        if (promised > 0 && result.tracks.size() == promised)
            ++result.left_out.tracks;
        else
            TrackParser(ByteReader(file, chunk.begin, chunk.end), result).run();
    }
    if (result.tracks.size() < promised) {
        throw MidiError("the header promises " + std::to_string(promised) + " tracks, the file ends after " +
                            std::to_string(result.tracks.size()),
                        file.size());
    }
    return result;
}

}  // namespace tq
