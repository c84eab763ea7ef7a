// A document from a Standard MIDI File.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tq {

struct Prseq;

struct MidiImport {
    size_t tracks = 0, notes = 0;
    size_t ignored_messages = 0;  ///< channel messages that a document has no home for
};

/// Whether a file is a Standard MIDI File: by its first bytes, or by its name's ending.
bool is_midi_file(const std::string& path, std::string_view bytes);
/// Replaces the document by the song of a file: untitled, with what "track_add" and "event" messages would
/// have made of it. None, and why is posted, when the file cannot be read; the document stays then.
std::optional<MidiImport> import_midi_file(Prseq& object, const std::string& path);
/// The same of a file's bytes.
std::optional<MidiImport> import_midi_bytes(Prseq& object, const std::string& path, std::string_view bytes);

}  // namespace tq
