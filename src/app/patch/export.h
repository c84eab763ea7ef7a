// Sound and notes of a document, written to files while its session goes on.
#pragma once

#include <functional>
#include <string>

#include "app/patch/session.h"

namespace tq {

class NoteListener;
class Recorder;

struct ExportEnd {
    bool written = false;
    std::string fault{};  ///< why not; empty when it was stopped
};

struct ExportWish {
    std::string path;
    bool full_level = false;  ///< sound is as loud as its file can be
};

/// Plays a copy of the session's document through and writes what it plays: sound when the path ends in
/// ".wav" or ".flac", notes when it ends in ".mid" or ".midi". `progress` is told how much is done, 0…1; when
/// it answers false, the file stays as it was.
ExportEnd export_document(Session& session, const ExportWish& wish,
                          const std::function<bool(double)>& progress);

/// Writes the notes that were played in the session, as a MIDI file with its tempo and bars. False, and why,
/// when that failed; throws std::length_error when the notes need more tracks than such a file has.
bool write_notes(const Session& session, const NoteListener& notes, const Recorder& recorder,
                 const std::string& path, std::string& fault);

}  // namespace tq
