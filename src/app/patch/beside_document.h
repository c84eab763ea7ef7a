// The sound files that lie beside a document, where it finds its buffers.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace tq {

struct DocumentInfo;

/// A sound's file, as it was at a moment.
struct SoundFile {
    std::string path;
    std::filesystem::file_time_type written;
    friend bool operator==(const SoundFile&, const SoundFile&) = default;
};
/// What the path leads to now; none where that is no regular file.
std::optional<SoundFile> sound_file_at(const std::filesystem::path& path);

/// How the files of sounds end that documents find, as a sentence tells it.
inline constexpr const char* sound_endings_told = ".wav, .flac, .aif, .aiff or .ogg";
/// A path's ending in small letters, with its dot.
std::string small_ending(const std::string& path);
/// Whether a path has one of these endings, in capitals or not.
bool has_sound_ending(const std::string& path);

/// Where the document's file is; for a document without one, the empty path.
std::filesystem::path folder_of(const DocumentInfo& document);
/// Whether a file can have that name in a folder, so that it leads nowhere else.
bool can_lie_beside(const std::string& name);
/// The file beside the document that is the sound of a buffer's name; none for a document without a file.
std::optional<SoundFile> sound_beside(const DocumentInfo& document, const std::string& name);

/// Whether two paths lead to the same file, or to files of the same bytes. Those that cannot be read are
/// other ones.
bool is_same_file(const std::string& one, const std::string& other);

}  // namespace tq
