#include "host/utf8.h"

#include <cstdint>

namespace tq {

namespace {

// How many bytes a sequence has that begins with `first`, and the least code point it may spell.
struct Sequence {
    std::size_t length;
    std::uint32_t least;
};

Sequence sequence(std::uint8_t first) {
    if (first < 0x80) return {1, 0};
    if ((first & 0xe0) == 0xc0) return {2, 0x80};
    if ((first & 0xf0) == 0xe0) return {3, 0x800};
    if ((first & 0xf8) == 0xf0) return {4, 0x10000};
    return {0, 0};
}

// The length of the valid character at the beginning of `text`, or 0.
std::size_t character(std::string_view text) {
    const auto first = static_cast<std::uint8_t>(text[0]);
    const auto [length, least] = sequence(first);
    if (length == 0 || length > text.size()) return 0;
    std::uint32_t point = length == 1 ? first : first & (0x7fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<std::uint8_t>(text[i]);
        if ((byte & 0xc0) != 0x80) return 0;
        point = point << 6 | (byte & 0x3f);
    }
    const bool surrogate = point >= 0xd800 && point < 0xe000;
    return point >= least && !surrogate && point <= 0x10ffff ? length : 0;
}

std::string from_latin1(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<std::uint8_t>(c);
        if (byte < 0x80) {
            result += c;
        } else {
            result += static_cast<char>(0xc0 | byte >> 6);
            result += static_cast<char>(0x80 | (byte & 0x3f));
        }
    }
    return result;
}

}  // namespace

bool is_utf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = character(bytes);
        if (length == 0) return false;
        bytes.remove_prefix(length);
    }
    return true;
}

std::string valid_utf8(std::string_view bytes) {
    return is_utf8(bytes) ? std::string(bytes) : from_latin1(bytes);
}

}  // namespace tq
