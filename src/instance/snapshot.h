// What an event was before it is moved or resized.
#pragma once

#include <optional>

#include "instance/event.h"

namespace tq {

struct UndoEventSnapshot {
    double start = 0, duration = 0;  ///< ms
    double pitch = 0;
    EventRef event;
    std::optional<double> bufferend;  ///< of the range of its buffer, ms; none without a buffer
};

}  // namespace tq
