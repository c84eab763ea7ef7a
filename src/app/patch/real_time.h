// Moves a scheduler's logical time with the machine's monotonic clock.
#pragma once

#include <algorithm>
#include <chrono>
#include <optional>

#include "host/scheduler.h"

namespace tq {

class RealTimeDriver {
 public:
    /// From now on, logical time goes on from where it is.
    explicit RealTimeDriver(Scheduler& scheduler) : scheduler_(scheduler), logical_begin_(scheduler.now()) {}

    /// Runs everything that has become due, each at its own logical time. A wait that went on too long is
    /// caught up with; nothing is skipped.
    void catch_up() { scheduler_.run_until(logical_now()); }
    /// ms until the next call is due; 0 when it is already, none when nothing is pending.
    std::optional<double> ms_until_next() const {
        std::optional<double> due = scheduler_.next_due();
        if (!due) return {};
        return std::max(0.0, *due - logical_now());
    }
    /// The logical time of this moment, in ms, on the scheduler's grid: differences of such times are exact,
    /// so that what was recorded with them is repeated at the same times.
    double logical_now() const {
        std::chrono::duration<double, std::milli> passed = Clock::now() - begin_;
        return on_time_grid(logical_begin_ + passed.count());
    }

 private:
    using Clock = std::chrono::steady_clock;
    Scheduler& scheduler_;
    double logical_begin_;
    Clock::time_point begin_ = Clock::now();
};

}  // namespace tq
