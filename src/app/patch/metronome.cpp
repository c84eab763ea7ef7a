#include "app/patch/metronome.h"

#include <algorithm>
#include <cmath>

#include "app/patch/bar_beats.h"
#include "instance/symbols.h"

namespace tq {

namespace {

constexpr double high_click = 76, low_click = 77;  // wood blocks
constexpr double click_ms = 30;
constexpr double shortest_beat = 1;  // ms; clicks never come closer
constexpr double rounding = 1e-3;    // ms

}  // namespace

Metronome::Metronome(Session& session, Player& player)
    : session_(session), player_(player), last_click_(session.host().scheduler.now() - shortest_beat) {
    session.listen(*this);
}

void Metronome::turn(bool on) {
    on_ = on;
    follow();
}

double Metronome::position() const {
    const Itm& transport = *session_.box().transport;
    return itm_tickstoms(transport, itm_getticks(transport));
}

void Metronome::disarm() {
    if (ticket_) session_.host().scheduler.cancel(ticket_);
    ticket_ = 0;
}

void Metronome::follow() {
    if (!runs()) return disarm();
    const double now = session_.host().scheduler.now(), here = position();
    const bool just_clicked = now - last_click_ < shortest_beat;
    const std::optional<Beat> beat =
        beat_from(session_.box().meter, just_clicked ? here + shortest_beat : here);
    if (!beat) return disarm();
    const double due = now + std::max(0.0, beat->ms - here);
    if (ticket_ && std::abs(due - due_) < rounding) return;
    arm(due);
}

void Metronome::arm(double due) {
    disarm();
    due_ = due;
    ticket_ = session_.host().scheduler.schedule_at(due, session_.box(), [this] {
        ticket_ = 0;
        arrive();
    });
}

/// At a beat, unless the position has jumped or the bars have changed since.
void Metronome::arrive() {
    const double now = session_.host().scheduler.now(), here = position();
    const std::optional<Beat> beat = beat_from(session_.box().meter, std::max(0.0, here - rounding));
    if (runs() && beat && std::abs(beat->ms - here) <= rounding && now - last_click_ >= shortest_beat) {
        player_.note({.ms = now,
                      .duration_ms = click_ms,
                      .pitch = beat->begins_bar ? high_click : low_click,
                      .voice = {.drums = true},
                      .source = "metronome"});
        last_click_ = now;
    }
    follow();
}

/// The transport is told of a jump after its listeners are.
void Metronome::outlet(int outlet, Symbol selector, AtomSpan) {
    if (outlet == OutletSystemInfo && selector == tq_sym_ticks && runs())
        arm(session_.host().scheduler.now());
}

}  // namespace tq
