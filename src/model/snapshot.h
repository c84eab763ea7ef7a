// What an event was before it is moved or resized.
#pragma once

#include "model/event.h"

namespace tq {

struct UndoEventSnapshot {
    double start = 0, duration = 0;  ///< ms
    double pitch = 0;
    EventRef event;
};

}  // namespace tq
