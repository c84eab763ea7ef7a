#include "app/midi/text.h"

#include <algorithm>
#include <cstdint>

#include "host/utf8.h"

namespace tq {

namespace {

constexpr std::size_t longest = 200;

}  // namespace

std::string midi_text(std::string_view bytes) {
    std::string text = valid_utf8(bytes);
    std::size_t end = std::min(text.size(), longest);
    while (end < text.size() && end > 0 && (text[end] & 0xc0) == 0x80) --end;  // not through a character
    text.resize(end);
    for (char& c : text) {
        if (static_cast<std::uint8_t>(c) < 0x20 || c == 0x7f) c = ' ';
    }
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace tq
