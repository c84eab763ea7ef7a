// Lets a session's time pass with the machine's, from the event loop.
#pragma once

#include <QTimer>

#include "app/patch/real_time.h"

namespace tq {

/// Wakes up when the next callback is due, and only then.
class SessionTimer : public QObject {
 public:
    explicit SessionTimer(Scheduler& scheduler);
    /// What a person does now: time is brought up to now before, and the next waking is set after.
    template <typename Action>
    void act(Action action) {
        driver_.catch_up();
        action();
        wake();
    }
    void wake();

 private:
    RealTimeDriver driver_;
    QTimer timer_;
};

}  // namespace tq
