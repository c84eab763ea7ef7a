// What painting knows of an event before it looks at the event itself: which row it is on, and whether
// anything is drawn beside its body. A list keeps it beside the event, and sums it up for many.
#pragma once

#include <array>
#include <cstdint>

namespace tq {

struct Event;

struct EventLook {
    enum Flag : std::uint8_t {
        Text = 1,        ///< a label or a message
        Linked = 2,      ///< to a buffer
        Bent = 4,        ///< a curve that is not straight, or leaves the event
        Fractional = 8,  ///< lies on a part of its row and a part of the one above
        OffRows = 16,    ///< a pitch that no row has
        Selected = 32
    };
    std::int16_t row = 0;  ///< the whole pitch at or below that of the event, 0 to 131
    std::uint8_t flags = 0;

    constexpr bool has(unsigned any_of) const { return flags & any_of; }
    friend bool operator==(const EventLook&, const EventLook&) = default;
};

EventLook look_of(const Event& event);
/// The same at another pitch.
EventLook at_pitch(EventLook look, double pitch);

/// The rows that some events touch, and the flags that any of them has.
class EventLooks {
 public:
    static constexpr int row_count = 132;

    constexpr EventLooks() = default;
    constexpr EventLooks(const EventLook& look) {
        add_row(look.row);
        if (look.has(EventLook::Fractional) && look.row + 1 < row_count) add_row(look.row + 1);
        add_flags(look.flags);
    }
    constexpr void add_row(int row) { words_[static_cast<unsigned>(row) >> 6] |= 1ull << (row & 63); }
    constexpr void add_flags(unsigned flags) { words_[2] |= std::uint64_t{flags} << flags_at; }
    constexpr void operator|=(const EventLooks& other) {
        for (unsigned i = 0; i < words_.size(); ++i) words_[i] |= other.words_[i];
    }
    constexpr bool has(unsigned any_of) const { return words_[2] >> flags_at & any_of; }
    constexpr bool has_row(int row) const {
        return words_[static_cast<unsigned>(row) >> 6] >> (row & 63) & 1;
    }
    /// Only the rows, without flags.
    constexpr EventLooks rows() const {
        EventLooks rows = *this;
        rows.words_[2] &= (1ull << flags_at) - 1;
        return rows;
    }
    /// The rows with those that lie up to `reach` above and below them.
    EventLooks widened(int reach) const {
        EventLooks wide = rows();
        for (int i = 0; i < reach; ++i) wide |= wide.shifted();
        return wide.rows();
    }
    /// Whether all its rows are among those of another.
    constexpr bool within(const EventLooks& other) const {
        std::uint64_t outside = 0;
        for (unsigned i = 0; i < words_.size(); ++i) outside |= words_[i] & ~other.words_[i];
        return outside == 0;
    }
    friend bool operator==(const EventLooks&, const EventLooks&) = default;

 private:
    static constexpr int flags_at = 32;  ///< bits 132 - 128 and up of the last word are free of rows

    /// One row up and one row down; both at once.
    EventLooks shifted() const {
        EventLooks out;
        const auto& w = words_;
        out.words_ = {w[0] << 1 | w[0] >> 1 | w[1] << 63, w[1] << 1 | w[0] >> 63 | w[1] >> 1 | w[2] << 63,
                      (w[2] << 1 | w[1] >> 63 | w[2] >> 1) & 0xf};
        return out;
    }

    std::array<std::uint64_t, 3> words_{};
};

}  // namespace tq
