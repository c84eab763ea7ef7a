#include "app/patch/beside_document.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <vector>

#include "host/files.h"
#include "instance/prseq.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

/// In the order in which they are looked for; cards of recorders have them in capitals.
constexpr std::array endings = {".wav", ".flac", ".aif", ".aiff", ".ogg",
                                ".WAV", ".FLAC", ".AIF", ".AIFF", ".OGG"};

bool have_same_bytes(std::ifstream& one, std::ifstream& other) {
    constexpr std::streamsize piece = 1 << 16;
    std::vector<char> here(piece), there(piece);
    do {
        one.read(here.data(), piece);
        other.read(there.data(), piece);
        if (one.bad() || other.bad() || one.gcount() != other.gcount()) return false;
        if (!std::equal(here.data(), here.data() + one.gcount(), there.data())) return false;
    } while (one && other);
    return one.eof() && other.eof();
}

}  // namespace

std::optional<SoundFile> sound_file_at(const fs::path& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return {};
    return SoundFile{path.string(), fs::last_write_time(path, error)};
}

std::string small_ending(const std::string& path) {
    std::string ending = fs::path(path).extension().string();
    for (char& c : ending) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return ending;
}

bool has_sound_ending(const std::string& path) {
    return std::ranges::find(endings, small_ending(path)) != endings.end();
}

fs::path folder_of(const DocumentInfo& document) {
    if (document.filename.empty()) return {};
    return fs::path(path_in_folder(document.folder, document.filename)).parent_path();
}

bool can_lie_beside(const std::string& name) {
    return !name.empty() && name.find_first_of(std::string_view("/\\\0", 3)) == name.npos;
}

std::optional<SoundFile> sound_beside(const DocumentInfo& document, const std::string& name) {
    if (document.filename.empty() || !can_lie_beside(name)) return {};
    for (const char* ending : endings)
        if (auto file = sound_file_at(folder_of(document) / (name + ending))) return file;
    return {};
}

bool is_same_file(const std::string& one, const std::string& other) {
    std::error_code error;
    if (fs::equivalent(one, other, error)) return true;
    for (const std::string& path : {one, other})  // a pipe would be waited for
        if (!fs::is_regular_file(path, error)) return false;
    if (fs::file_size(one, error) != fs::file_size(other, error) || error) return false;
    std::ifstream here(one, std::ios::binary), there(other, std::ios::binary);
    return here && there && have_same_bytes(here, there);
}

}  // namespace tq
