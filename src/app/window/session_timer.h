// Lets a session's time pass with the machine's, from the event loop.
#pragma once

#include <QTimer>
#include <deque>
#include <functional>

#include "app/patch/real_time.h"

namespace tq {

/// Wakes up when the next callback is due, and only then.
class SessionTimer : public QObject {
 public:
    explicit SessionTimer(Scheduler& scheduler);
    /// What a person does now: time is brought up to now before, and the next waking is set after. What comes
    /// while another action waits for a dialog is done when that one is over, so that the box is told one
    /// thing at a time; `action` owns what it refers to.
    void act(std::function<void()> action);
    /// Whether an action waits for a dialog.
    bool acting() const { return acting_; }
    /// Time goes on while an action waits.
    void pass_time() { driver_.catch_up(); }
    void wake();

 private:
    RealTimeDriver driver_;
    QTimer timer_;
    bool acting_ = false;
    std::deque<std::function<void()>> later_;
};

}  // namespace tq
