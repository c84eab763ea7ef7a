// A metronome on the document's beats.
#pragma once

#include "app/patch/session.h"
#include "app/sound/player.h"

namespace tq {

/// While the session plays, clicks on each beat at its exact time, the first of a bar higher. Only its player
/// hears of that: nothing leaves the box. Off to begin with. Neither the session nor the player may go before
/// it.
class Metronome : private SessionListener {
 public:
    Metronome(Session& session, Player& player);
    ~Metronome() override { disarm(); }

    void turn(bool on);
    /// To be called when the session may have started, stopped, or got another tempo or other bars; jumps it
    /// hears of by itself.
    void follow();

 private:
    void outlet(int outlet, Symbol selector, AtomSpan atoms) override;
    void arm(double due);
    void disarm();
    void arrive();
    bool runs() const { return on_ && session_.box().playing; }
    double position() const;

    Session& session_;
    Player& player_;
    bool on_ = false;
    double last_click_;             ///< logical ms
    double due_ = 0;                ///< logical ms, while armed
    Scheduler::Ticket ticket_ = 0;  ///< 0: not armed
};

}  // namespace tq
