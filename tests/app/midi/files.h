// MIDI files for tests: made from bytes as people write them, and those that the machine has.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tq::test {

using Bytes = std::vector<std::byte>;

/// "90 3c 40" as three bytes; blanks are free.
Bytes from_hex(std::string_view text);
/// A whole file; each track in hex, without its chunk header.
Bytes midi_file(int format, int division, const std::vector<std::string>& tracks);
std::string text_of(const Bytes& bytes);
Bytes read_bytes(const std::filesystem::path& path);
/// Real music, where the machine has it installed; sorted.
std::vector<std::filesystem::path> real_files();

}  // namespace tq::test
