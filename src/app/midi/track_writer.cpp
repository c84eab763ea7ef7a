#include "app/midi/track_writer.h"

#include <algorithm>

namespace tq {

namespace {

constexpr std::int64_t longest_delta = 0x0fffffff;

void append_variable(std::vector<std::byte>& bytes, std::uint64_t value) {
    int groups = 1;
    while (value >> (7 * groups)) ++groups;
    while (groups-- > 0) {
        const auto low = static_cast<std::uint8_t>(value >> (7 * groups) & 0x7f);
        bytes.push_back(static_cast<std::byte>(groups > 0 ? low | 0x80 : low));
    }
}

// A delta has 28 bits; a longer rest is filled with empty texts.
void append_delta(std::vector<std::byte>& bytes, std::int64_t delta) {
    for (; delta > longest_delta; delta -= longest_delta) {
        append_variable(bytes, static_cast<std::uint64_t>(longest_delta));
        append_number(bytes, 0xff0100, 3);
    }
    append_variable(bytes, static_cast<std::uint64_t>(delta));
}

bool has_two_data_bytes(std::uint8_t status) { return (status & 0xe0) != 0xc0; }

}  // namespace

void append_number(std::vector<std::byte>& bytes, std::uint64_t value, int count) {
    while (count-- > 0) bytes.push_back(static_cast<std::byte>(value >> (8 * count)));
}

void append_text(std::vector<std::byte>& bytes, std::string_view text) {
    const auto* first = reinterpret_cast<const std::byte*>(text.data());
    bytes.insert(bytes.end(), first, first + text.size());
}

void TrackWriter::message(std::int64_t tick, Order order, int status, int first, int second) {
    events_.push_back({tick,
                       order,
                       {static_cast<std::uint8_t>(status), static_cast<std::uint8_t>(first),
                        static_cast<std::uint8_t>(second)}});
}

void TrackWriter::meta(int type, std::string_view data, std::int64_t tick) {
    append_delta(metas_, tick - meta_tick_);
    meta_tick_ = tick;
    append_number(metas_, static_cast<std::uint64_t>(0xff00 | type), 2);
    append_variable(metas_, data.size());
    append_text(metas_, data);
}

void TrackWriter::write(std::vector<std::byte>& file) {
    std::ranges::stable_sort(events_, [](const Event& a, const Event& b) {
        return a.tick != b.tick ? a.tick < b.tick : a.order < b.order;
    });
    append_text(file, "MTrk");
    const std::size_t length_at = file.size();
    append_number(file, 0, 4);
    file.insert(file.end(), metas_.begin(), metas_.end());
    std::int64_t tick = meta_tick_;
    for (const Event& event : events_) {
        append_delta(file, event.tick - tick);
        tick = event.tick;
        for (int i = 0; i < (has_two_data_bytes(event.bytes[0]) ? 3 : 2); ++i) {
            file.push_back(static_cast<std::byte>(event.bytes[static_cast<std::size_t>(i)]));
        }
    }
    append_number(file, 0x00ff2f00, 4);
    const std::size_t length = file.size() - length_at - 4;
    for (std::size_t i = 0; i < 4; ++i) file[length_at + i] = static_cast<std::byte>(length >> (8 * (3 - i)));
}

}  // namespace tq
