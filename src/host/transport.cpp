#include "host/transport.h"

#include <algorithm>

#include "host/class.h"
#include "host/host.h"

namespace tq {

namespace {

const Class& itm_class() {
    static const Class the_class("itm");
    return the_class;
}

// 480 ticks a quarter note and 60000 ms a minute: ticks = ms * tempo / 125. Multiplied before it is divided,
// so that whole milliseconds at whole tempos give exact ticks.
constexpr double ms_tempo_per_tick = 60000.0 / 480.0;

}  // namespace

Itm::Itm(Host& host) : Object(host, itm_class()) {}

double itm_getticks(const Itm& itm) {
    if (!itm.running_) return itm.base_ticks_;
    return itm.base_ticks_ + itm_mstoticks(itm, itm.host().scheduler.now() - itm.base_now_);
}

double itm_gettempo(const Itm& itm) { return itm.tempo_; }
bool itm_getstate(const Itm& itm) { return itm.running_; }
double itm_tickstoms(const Itm& itm, double ticks) {
    return on_time_grid(ticks * ms_tempo_per_tick / itm.tempo_);
}
double itm_mstoticks(const Itm& itm, double ms) { return ms * itm.tempo_ / ms_tempo_per_tick; }

/// Makes now the moment from which the position is counted; before anything that bends the line.
void Itm::rebase() {
    base_ticks_ = itm_getticks(*this);
    base_now_ = host().scheduler.now();
}

void Itm::rearm_all() {
    for (TimeObject* time : armed_) time->rearm();
}

void itm_resume(Itm& itm) {
    if (itm.running_) return;
    itm.rebase();
    itm.running_ = true;
    itm.rearm_all();
}

void itm_pause(Itm& itm) {
    if (!itm.running_) return;
    itm.rebase();
    itm.running_ = false;
    itm.rearm_all();
}

void itm_settempo(Itm& itm, double bpm) {
    itm.rebase();
    itm.tempo_ = std::clamp(bpm, 1.0, 10000.0);
    itm.rearm_all();
}

void itm_setticks(Itm& itm, double ticks) {
    itm.rebase();
    double jump = ticks - itm.base_ticks_;
    itm.base_ticks_ = ticks;
    for (TimeObject* time : itm.armed_)
        if (!(time->flags_ & TIME_FLAGS_LOCATION)) time->target_ticks_ += jump;
    itm.rearm_all();
}

TimeObject::TimeObject(Itm& itm, const Object& owner, std::function<void()> callback, int flags)
    : itm_(&itm), owner_(owner), callback_(std::move(callback)), flags_(flags) {}

TimeObject::~TimeObject() { time_stop(*this); }

void time_setvalue(TimeObject& time, double value) {
    time.value_ = value;
    if (time.flags_ & TIME_FLAGS_PERMANENT) time.arm();
}

void time_schedule(TimeObject& time) { time.arm(); }

void time_stop(TimeObject& time) {
    time.itm_->host().scheduler.cancel(time.ticket_);
    time.ticket_ = 0;
    std::erase(time.itm_->armed_, &time);
    time.armed_ = false;
}

Itm& time_getitm(const TimeObject& time) { return *time.itm_; }

void time_setitm(TimeObject& time, Itm& itm) {
    time_stop(time);
    time.itm_ = &itm;
}

void TimeObject::arm() {
    time_stop(*this);
    if (!(flags_ & TIME_FLAGS_TICKSONLY)) {  // ms pass whether or not the transport runs
        Scheduler& scheduler = itm_->host().scheduler;
        ticket_ = scheduler.schedule_at(scheduler.now() + value_, owner_, callback_);
        return;
    }
    armed_ = true;
    itm_->armed_.push_back(this);
    target_ticks_ = flags_ & TIME_FLAGS_LOCATION ? value_ : itm_getticks(*itm_) + std::max(value_, 0.0);
    rearm();
}

void TimeObject::rearm() {
    Scheduler& scheduler = itm_->host().scheduler;
    scheduler.cancel(ticket_);
    ticket_ = 0;
    if (!itm_->running_) return;
    bool location = (flags_ & TIME_FLAGS_LOCATION) != 0;
    // A position is reached by moving up to it, not by jumping onto it or past it.
    if (location && itm_tickstoms(*itm_, target_ticks_ - itm_getticks(*itm_)) <= 0) return;
    double due = itm_->base_now_ + itm_tickstoms(*itm_, target_ticks_ - itm_->base_ticks_);
    ticket_ = scheduler.schedule_at(
        due, owner_, [this] { fire(); }, location ? Scheduler::Rank::Position : Scheduler::Rank::Wait);
}

void TimeObject::fire() {
    if (flags_ & TIME_FLAGS_LOCATION)
        ticket_ = 0;  // stays armed: the transport may come by again
    else
        time_stop(*this);
    callback_();
}

}  // namespace tq
