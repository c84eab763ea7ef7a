#include "app/midi/files.h"

#include <algorithm>
#include <iterator>

#include "temporary_folder.h"

namespace tq::test {
namespace {

void add_text(Bytes& bytes, std::string_view text) {
    for (const char c : text) bytes.push_back(static_cast<std::byte>(c));
}

void add_number(Bytes& bytes, std::size_t value, int count) {
    while (count-- > 0) bytes.push_back(static_cast<std::byte>(value >> (8 * count)));
}

}  // namespace

Bytes from_hex(std::string_view text) {
    std::string digits;
    std::ranges::copy_if(text, std::back_inserter(digits), [](char c) { return c != ' '; });
    Bytes bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes.push_back(static_cast<std::byte>(std::stoi(digits.substr(i, 2), nullptr, 16)));
    return bytes;
}

Bytes midi_file(int format, int division, const std::vector<std::string>& tracks) {
    Bytes bytes;
    add_text(bytes, "MThd");
    add_number(bytes, 6, 4);
    add_number(bytes, static_cast<std::size_t>(format), 2);
    add_number(bytes, tracks.size(), 2);
    add_number(bytes, static_cast<std::size_t>(division), 2);
    for (const std::string& track : tracks) {
        const Bytes events = from_hex(track);
        add_text(bytes, "MTrk");
        add_number(bytes, events.size(), 4);
        bytes.insert(bytes.end(), events.begin(), events.end());
    }
    return bytes;
}

std::string text_of(const Bytes& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

Bytes read_bytes(const std::filesystem::path& path) {
    Bytes bytes;
    add_text(bytes, text_of_file(path));
    return bytes;
}

std::vector<std::filesystem::path> real_files() {
    std::vector<std::filesystem::path> files;
    const std::filesystem::path music = "/usr/share/games/openttd/baseset/openmsx";
    if (!std::filesystem::exists(music)) return files;
    for (const auto& entry : std::filesystem::directory_iterator(music)) {
        if (entry.path().extension() == ".mid") files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

}  // namespace tq::test
