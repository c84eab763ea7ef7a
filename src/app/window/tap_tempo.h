// The tempo of taps.
#pragma once

#include <cmath>
#include <deque>
#include <optional>

namespace tq {

/// Beats a minute from the times of taps, over the last eight; a pause begins anew.
class TapTempo {
 public:
    /// A tap at a time in ms. The tempo, to a tenth; none before the second tap.
    std::optional<double> tap(double ms) {
        constexpr double longest_pause = 2500;
        constexpr size_t counted = 8;
        if (!taps_.empty() && ms - taps_.back() > longest_pause) taps_.clear();
        taps_.push_back(ms);
        if (taps_.size() > counted) taps_.pop_front();
        const double span = taps_.back() - taps_.front();
        if (span <= 0) return {};
        return std::round(static_cast<double>(taps_.size() - 1) * 600000 / span) / 10;
    }

 private:
    std::deque<double> taps_;
};

}  // namespace tq
