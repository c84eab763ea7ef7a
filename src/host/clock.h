// A clock: calls back once after a delay, and can be set again or unset.
#pragma once

#include <functional>

#include "host/scheduler.h"

namespace tq {

class Clock {
 public:
    Clock(Scheduler& scheduler, const Object& owner, std::function<void()> callback)
        : scheduler_(scheduler), owner_(owner), callback_(std::move(callback)) {}
    ~Clock() { scheduler_.cancel(ticket_); }
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;

    friend void clock_fdelay(Clock& clock, double ms);
    friend void clock_unset(Clock& clock);

 private:
    Scheduler& scheduler_;
    const Object& owner_;
    std::function<void()> callback_;
    Scheduler::Ticket ticket_ = 0;
};

/// Calls the clock's owner back in `ms` milliseconds, instead of whenever it was set for before.
inline void clock_fdelay(Clock& clock, double ms) {
    clock.scheduler_.cancel(clock.ticket_);
    clock.ticket_ = clock.scheduler_.schedule_at(clock.scheduler_.now() + ms, clock.owner_, clock.callback_);
}

inline void clock_unset(Clock& clock) { clock.scheduler_.cancel(clock.ticket_); }

}  // namespace tq
