// Where the sounds of buffers come from: files that are named, and files beside the document.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/symbol.h"

namespace tq {

class Session;

/// Makes the buffers that a session's document links to, as it begins to use them, of the files that lie
/// beside it: "kick" is the sound of kick.wav, kick.flac, kick.aif, kick.aiff or kick.ogg. Buffers that were
/// made otherwise stay as they are. What is missing or cannot be read is posted as an error.
class SoundFiles {
 public:
    /// The session must outlive this.
    explicit SoundFiles(Session& session);
    ~SoundFiles();
    SoundFiles(const SoundFiles&) = delete;
    SoundFiles& operator=(const SoundFiles&) = delete;

 private:
    struct File {
        std::string path;
        std::filesystem::file_time_type written;
        friend bool operator==(const File&, const File&) = default;
    };

    void want(Symbol name);
    std::optional<File> beside_document(const std::string& name) const;
    void miss(const std::string& name);
    void enter_folder();

    Session& session_;
    std::string folder_;                ///< the document's
    std::map<std::string, File> made_;  ///< by the buffer's name
    std::set<std::filesystem::path> said_missing_;
};

/// A buffer's name and its file.
struct NamedSound {
    std::string name, file;
};
/// "NAME=FILE"; none for anything else.
std::optional<NamedSound> parse_named_sound(const std::string& text);

}  // namespace tq
