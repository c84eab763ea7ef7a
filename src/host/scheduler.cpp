#include "host/scheduler.h"

#include <algorithm>
#include <cmath>

namespace tq {

double on_time_grid(double ms) { return std::nearbyint(ms * 0x1p20) * 0x1p-20; }

bool Scheduler::later(const Call& a, const Call& b) {
    if (a.due != b.due) return a.due > b.due;
    if (a.rank != b.rank) return a.rank > b.rank;
    return a.ticket > b.ticket;
}

Scheduler::Ticket Scheduler::schedule_at(double due, const Object& owner, Callback callback, Rank rank) {
    Ticket ticket = ++last_ticket_;
    heap_.push_back({std::max(on_time_grid(due), now_), rank, ticket, &owner, std::move(callback)});
    std::push_heap(heap_.begin(), heap_.end(), later);
    live_.insert(ticket);
    return ticket;
}

void Scheduler::defer_low(const Object& owner, Callback callback) {
    low_.push_back({now_, Rank::Wait, ++last_ticket_, &owner, std::move(callback)});
}

void Scheduler::forget(const Object& owner) {
    for (const Call& call : heap_)
        if (call.owner == &owner) live_.erase(call.ticket);
    std::erase_if(low_, [&](const Call& call) { return call.owner == &owner; });
}

std::optional<double> Scheduler::next_due() {
    while (!heap_.empty() && !live_.contains(heap_.front().ticket)) {
        std::pop_heap(heap_.begin(), heap_.end(), later);
        heap_.pop_back();
    }
    if (!low_.empty()) return now_;
    if (heap_.empty()) return {};
    return heap_.front().due;
}

bool Scheduler::run_next(double until) {
    while (!heap_.empty() && heap_.front().due <= until) {
        std::pop_heap(heap_.begin(), heap_.end(), later);
        Call call = std::move(heap_.back());
        heap_.pop_back();
        if (live_.erase(call.ticket) == 0) continue;  // cancelled meanwhile
        now_ = call.due;
        run(call.callback);
        return true;
    }
    return false;
}

bool Scheduler::run_low() {
    if (low_.empty()) return false;
    Call call = std::move(low_.front());
    low_.erase(low_.begin());
    run(call.callback);
    return true;
}

void Scheduler::run(const Callback& callback) {
    ++running_;
    callback();
    --running_;
}

void Scheduler::run_until(double until) {
    // Low-priority work waits only for what is due at the same moment, not for the whole stretch.
    while (run_next(now_) || run_low() || run_next(until)) {}
    now_ = std::max(now_, until);
}

}  // namespace tq
