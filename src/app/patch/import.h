// A document from a Standard MIDI File.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "app/midi/reader.h"

namespace tq {

struct Prseq;

struct MidiImport {
    size_t tracks = 0, notes = 0;
};

/// Whether a file is a Standard MIDI File: by its first bytes, or by its name's ending.
bool is_midi_file(const std::string& path, std::string_view bytes);
/// Replaces the document by the song of a file: untitled, with what "track_add" and "event" messages would
/// have made of it; controllers are curves of the events that they fall on. The transport takes the song's
/// first tempo, the meter its bars. What could not be kept is posted in one line. None, and why is posted,
/// when the file cannot be read; the document stays then.
std::optional<MidiImport> import_midi_file(Prseq& object, const std::string& path,
                                           const MidiReading& reading = {});
/// The same of a file's bytes.
std::optional<MidiImport> import_midi_bytes(Prseq& object, const std::string& path, std::string_view bytes,
                                            const MidiReading& reading = {});

}  // namespace tq
