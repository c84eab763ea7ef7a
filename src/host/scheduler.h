// Logical time: callbacks in the order of their due times, each run with "now" being exactly when it was due.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <unordered_set>
#include <vector>

namespace tq {

class Object;

/// Milliseconds kept on a grid of 2^-20 ms, so that a conversion to ticks and back gives the same number.
double on_time_grid(double ms);

class Scheduler {
 public:
    using Callback = std::function<void()>;
    using Ticket = std::uint64_t;  ///< names a pending call; 0 names none
    /// Among calls due at the same time, positions on the timeline come before what was merely waited for.
    enum class Rank : unsigned char { Position, Wait };

    /// Logical time in ms.
    double now() const { return now_; }

    /// Runs `callback` when logical time reaches `due` ms (at once, in its turn, when that is past).
    Ticket schedule_at(double due, const Object& owner, Callback callback, Rank rank = Rank::Wait);
    /// Takes a pending call back; a ticket that has been used up is ignored.
    void cancel(Ticket ticket) { live_.erase(ticket); }
    /// Runs `callback` once nothing else is due: work of low priority.
    void defer_low(const Object& owner, Callback callback);
    /// Drops every pending call of an object that goes away.
    void forget(const Object& owner);

    /// When the next call is due; none when nothing is pending.
    std::optional<double> next_due();
    /// Runs what is due up to and including `until`, in order, then lets logical time be `until`.
    void run_until(double until);
    /// Whether a call is being run.
    bool running() const { return running_ > 0; }
    /// Runs what is due at this very moment, and the low-priority work that waits.
    void run_due() { run_until(now_); }

 private:
    struct Call {
        double due;
        Rank rank;
        Ticket ticket;
        const Object* owner;
        Callback callback;
    };
    static bool later(const Call& a, const Call& b);
    bool run_next(double until);
    bool run_low();
    void run(const Callback& callback);

    double now_ = 0;
    int running_ = 0;  ///< how many calls, one within the other
    Ticket last_ticket_ = 0;
    std::vector<Call> heap_;
    std::vector<Call> low_;
    std::unordered_set<Ticket> live_;
};

}  // namespace tq
