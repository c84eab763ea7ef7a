// A document from a Standard MIDI File.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tq {

struct Prseq;

struct MidiImport {
    size_t tracks = 0, notes = 0;
    size_t ignored_messages = 0;  ///< channel messages that a document has no home for
};

/// Whether a path names a Standard MIDI File: by its first bytes, or by its ending.
bool is_midi_file(const std::string& path);
/// Replaces the document by the song of a file: untitled, with what "track_add" and "event" messages would
/// have made of it. None, and why is posted, when the file cannot be read; the document is empty then.
std::optional<MidiImport> import_midi_file(Prseq& object, const std::string& path);

}  // namespace tq
