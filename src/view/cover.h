// What of a picture is covered already, when events are dealt with from the topmost down.
#pragma once

#include <algorithm>
#include <bit>
#include <vector>

#include "instance/event_look.h"

namespace tq {

/// Rows of pitches by columns of pixels of the screen. Kept twice: by row, to ask for one event, and by
/// column, to ask for a whole stretch of events at once.
class Cover {
 public:
    explicit Cover(int columns)
        : columns_(std::max(columns, 0)),
          words_(static_cast<size_t>(columns_ + 63) / 64),
          by_row_(words_ * EventLooks::row_count),
          by_column_(static_cast<size_t>(columns_)) {}

    int columns() const { return columns_; }

    void add_row(int row) { add(row, 0, columns_); }
    /// The columns from `left` up to, but not, `right`.
    void add(int row, int left, int right) {
        each_word(row, left, right, [&](size_t word, std::uint64_t mask) {
            std::uint64_t fresh = mask & ~by_row_[word];
            by_row_[word] |= mask;
            const size_t column = (word - words_ * static_cast<size_t>(row)) * 64;
            for (; fresh; fresh &= fresh - 1)
                by_column_[column + static_cast<size_t>(std::countr_zero(fresh))].add_row(row);
            return true;
        });
    }
    bool covers(int row, int left, int right) const {
        return each_word(row, left, right,
                         [&](size_t word, std::uint64_t mask) { return (mask & ~by_row_[word]) == 0; });
    }
    /// All of these rows. False also for what is too wide to be worth asking.
    bool covers(const EventLooks& rows, int left, int right) const {
        left = std::max(left, 0);
        right = std::min(right, columns_);
        if (right - left > widest_question) return false;
        for (int column = left; column < right; ++column)
            if (!rows.within(by_column_[static_cast<size_t>(column)])) return false;
        return true;
    }

 private:
    static constexpr int widest_question = 64;

    /// Calls does(word, mask) until one returns false, and returns false then.
    template <typename Do>
    bool each_word(int row, int left, int right, Do does) const {
        left = std::max(left, 0);
        right = std::min(right, columns_);
        for (int column = left; column < right;) {
            const int in_word = column & 63, count = std::min(64 - in_word, right - column);
            const std::uint64_t ones = count == 64 ? ~0ull : (1ull << count) - 1;
            const size_t word = words_ * static_cast<size_t>(row) + static_cast<size_t>(column) / 64;
            if (!does(word, ones << in_word)) return false;
            column += count;
        }
        return true;
    }

    int columns_;
    size_t words_;  ///< a row
    std::vector<std::uint64_t> by_row_;
    std::vector<EventLooks> by_column_;
};

}  // namespace tq
