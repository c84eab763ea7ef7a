// Where the sounds of buffers come from: files that are named, and files beside the document.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "app/patch/beside_document.h"
#include "host/symbol.h"

namespace tq {

class Session;

/// A buffer's name and its file.
struct NamedSound {
    std::string name, file;
};
/// "NAME=FILE"; none for anything else.
std::optional<NamedSound> parse_named_sound(const std::string& text);

/// Makes the buffers that a session's document links to, as it begins to use them, of the files that lie
/// beside it: "kick" is the sound of kick.wav, kick.flac, kick.aif, kick.aiff or kick.ogg. Buffers that were
/// made otherwise stay as they are. What is missing or cannot be read is posted as an error.
class SoundFiles {
 public:
    /// The session must outlive this. What a session that was brought back links to is its document's own.
    explicit SoundFiles(Session& session);
    ~SoundFiles();
    SoundFiles(const SoundFiles&) = delete;
    SoundFiles& operator=(const SoundFiles&) = delete;

    /// What a sound is to be called in the document, and the file that it is then read from. A name that
    /// means this sound already, by its buffer or the file beside the document, is taken again; else the
    /// first is taken that means nothing, of "kick", "kick-2" … for kick.wav.
    NamedSound name_for(const std::string& file);
    /// The buffer of this name, which was made just now, is the document's own: it stays as long as that
    /// does, wherever it is saved, and is no other document's.
    void adopt(const std::string& name);

 private:
    struct Made {
        SoundFile file;
        long document;  ///< that it was made for, as `document_` tells
    };

    void want(Symbol name);
    std::optional<std::string> meaning(const std::string& name) const;
    void miss(const std::string& name);
    void enter_document();

    Session& session_;
    long document_;                     ///< how many the session had emptied before this one
    std::map<std::string, Made> made_;  ///< by the buffer's name
    std::set<std::filesystem::path> said_missing_;
};

}  // namespace tq
