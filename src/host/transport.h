// The transport (ITM): a position in ticks that moves with the tempo, and time objects that follow it.
#pragma once

#include <functional>
#include <vector>

#include "host/object.h"
#include "host/scheduler.h"

namespace tq {

class TimeObject;

/// Beats a minute, to begin with.
constexpr double usual_tempo = 120;

/// 480 ticks a quarter note; 120 quarter notes a minute to begin with; at tick 0 and paused when made.
class Itm : public Object {
 public:
    explicit Itm(Host& host);

 private:
    friend class TimeObject;
    friend double itm_getticks(const Itm& itm);
    friend double itm_gettempo(const Itm& itm);
    friend bool itm_getstate(const Itm& itm);
    friend double itm_tickstoms(const Itm& itm, double ticks);
    friend double itm_mstoticks(const Itm& itm, double ms);
    friend void itm_resume(Itm& itm);
    friend void itm_pause(Itm& itm);
    friend void itm_settempo(Itm& itm, double bpm);
    friend void itm_setticks(Itm& itm, double ticks);
    friend void time_stop(TimeObject& time);
    void rebase();
    void rearm_all();

    double tempo_ = usual_tempo;
    bool running_ = false;
    double base_ticks_ = 0;  ///< the position at base_now_
    double base_now_ = 0;    ///< logical ms
    std::vector<TimeObject*> armed_;
};

/// The transport's position in ticks (480 a quarter note).
double itm_getticks(const Itm& itm);
/// Beats a minute.
double itm_gettempo(const Itm& itm);
/// Whether the transport is running.
bool itm_getstate(const Itm& itm);
/// Conversions by the tempo of now.
double itm_tickstoms(const Itm& itm, double ticks);
double itm_mstoticks(const Itm& itm, double ms);
void itm_resume(Itm& itm);
void itm_pause(Itm& itm);
/// Sets the tempo, 1 to 10000 beats a minute; the position in ticks stays.
void itm_settempo(Itm& itm, double bpm);
/// Jumps. Positions on the way are not reached; waits go on with what is left of them.
void itm_setticks(Itm& itm, double ticks);
/// The transport of a name, made when there is none yet; the empty symbol names the default transport.
Itm& itm_getnamed(Host& host, Symbol name);

/// What the host's time objects can be told; the values are the host's.
enum TimeFlags : int {
    TIME_FLAGS_LOCATION = 1,      ///< the value is a position on the transport, not a distance from now
    TIME_FLAGS_TICKSONLY = 2,     ///< the value is in ticks, not in ms
    TIME_FLAGS_USECLOCK = 16,     ///< calls back
    TIME_FLAGS_PERMANENT = 128,   ///< setting the value arms it
    TIME_FLAGS_POSITIVE = 16384,  ///< a distance below zero counts as zero
};

/// Calls back after a distance in ticks of the running transport (once), at a position in ticks (each time
/// the transport reaches it), or after a number of ms of logical time (once).
class TimeObject {
 public:
    TimeObject(Itm& itm, const Object& owner, std::function<void()> callback, int flags);
    ~TimeObject();
    TimeObject(const TimeObject&) = delete;
    TimeObject& operator=(const TimeObject&) = delete;

 private:
    friend class Itm;
    friend void itm_setticks(Itm& itm, double ticks);
    friend void time_setvalue(TimeObject& time, double value);
    friend void time_schedule(TimeObject& time);
    friend void time_stop(TimeObject& time);
    friend Itm& time_getitm(const TimeObject& time);
    friend void time_setitm(TimeObject& time, Itm& itm);
    void arm();
    void rearm();
    void fire();

    Itm* itm_;
    const Object& owner_;
    std::function<void()> callback_;
    int flags_;
    double value_ = 0;
    double target_ticks_ = 0;
    Scheduler::Ticket ticket_ = 0;
    bool armed_ = false;
};

/// Sets the value (ticks or ms, by the flags); a permanent time object is armed by it.
void time_setvalue(TimeObject& time, double value);
/// Arms the time object with its value.
void time_schedule(TimeObject& time);
/// Disarms it.
void time_stop(TimeObject& time);
Itm& time_getitm(const TimeObject& time);
/// Follows another transport from now on, disarmed.
void time_setitm(TimeObject& time, Itm& itm);

}  // namespace tq
