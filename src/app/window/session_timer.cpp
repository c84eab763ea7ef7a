#include "app/window/session_timer.h"

#include <algorithm>
#include <cmath>

namespace tq {

namespace {

/// ms; a callback that is farther away is looked at again after this long.
constexpr double longest_wait = 60000;

}  // namespace

SessionTimer::SessionTimer(Scheduler& scheduler) : driver_(scheduler) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, [this] {
        if (acting_)
            pass_time();
        else
            act([] {});
        wake();
    });
}

void SessionTimer::act(std::function<void()> action) {
    later_.push_back(std::move(action));
    if (acting_) return;
    acting_ = true;
    while (!later_.empty()) {
        std::function<void()> next = std::move(later_.front());
        later_.pop_front();
        driver_.catch_up();
        next();
    }
    acting_ = false;
    wake();
}

void SessionTimer::wake() {
    if (std::optional<double> wait = driver_.ms_until_next()) {
        timer_.start(static_cast<int>(std::ceil(std::min(*wait, longest_wait))));
    } else {
        timer_.stop();
    }
}

}  // namespace tq
