// The bytes of one track chunk, put together from events in any order.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tq {

class TrackWriter {
 public:
    /// What comes first among events of one tick: a key is let go before it, or its channel's wheel, moves.
    enum class Order : std::uint8_t { Release, Setup, Press, ReleaseAtOnce };

    /// A message of a channel; a program change has no second data byte.
    void message(std::int64_t tick, Order order, int status, int first, int second = 0);
    /// A meta event before all messages, at a tick that does not fall; `data` has 65535 bytes at most.
    void meta(int type, std::string_view data, std::int64_t tick = 0);
    /// Appends the track chunk to `file`.
    void write(std::vector<std::byte>& file);

 private:
    struct Event {
        std::int64_t tick;
        Order order;
        std::array<std::uint8_t, 3> bytes;
    };
    std::vector<Event> events_;
    std::vector<std::byte> metas_;
    std::int64_t meta_tick_ = 0;  // of the last one
};

/// Appends a number, high byte first.
void append_number(std::vector<std::byte>& bytes, std::uint64_t value, int count);
void append_text(std::vector<std::byte>& bytes, std::string_view text);

}  // namespace tq
