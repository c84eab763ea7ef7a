// Reads big-endian numbers from a stretch of a file and never past its end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "app/midi/error.h"

namespace tq {

class ByteReader {
 public:
    /// Reads bytes [begin, end) of `file`; positions are those in the whole file.
    ByteReader(std::span<const std::byte> file, std::size_t begin, std::size_t end)
        : data_(file.data()), position_(begin), end_(end) {}

    std::size_t position() const { return position_; }
    std::size_t left() const { return end_ - position_; }

    std::uint8_t peek() const {
        need(1);
        return std::to_integer<std::uint8_t>(data_[position_]);
    }
    std::uint8_t u8() {
        const std::uint8_t value = peek();
        ++position_;
        return value;
    }
    std::uint32_t number(int bytes) {
        std::uint32_t value = 0;
        while (bytes-- > 0) value = value << 8 | u8();
        return value;
    }
    /// A number of variable length, four bytes at most.
    std::uint32_t variable() {
        const std::size_t begin = position_;
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) {
            const std::uint8_t byte = u8();
            value = value << 7 | (byte & 0x7f);
            if (!(byte & 0x80)) return value;
        }
        throw MidiError("a number longer than four bytes", begin);
    }
    /// The next `count` bytes.
    std::string_view bytes(std::size_t count) {
        need(count);
        const std::string_view text(reinterpret_cast<const char*>(data_ + position_), count);
        position_ += count;
        return text;
    }

 private:
    void need(std::size_t count) const {
        if (left() >= count) return;
        throw MidiError("the data ends in the middle of something: " + std::to_string(count) +
                            " bytes wanted, " + std::to_string(left()) + " left",
                        position_);
    }

    const std::byte* data_;
    std::size_t position_;
    std::size_t end_;
};

}  // namespace tq
