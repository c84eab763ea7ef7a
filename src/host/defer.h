// Calling a function with an object later.
#pragma once

#include <concepts>

#include "host/host.h"

namespace tq {

/// From the scheduler, at this same logical time, after what is due already.
template <std::derived_from<Object> T>
void schedule_fdefer(T& object, void (*function)(T&)) {
    Scheduler& scheduler = object.host().scheduler;
    scheduler.schedule_at(scheduler.now(), object, [&object, function] { function(object); });
}

/// From the main thread, once nothing else is due.
template <std::derived_from<Object> T, typename Function>
void defer_low(T& object, Function function) {
    object.host().scheduler.defer_low(object, [&object, function] { function(object); });
}

}  // namespace tq
