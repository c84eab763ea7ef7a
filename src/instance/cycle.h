// The loop.
#pragma once

namespace tq {

struct Cycle {
    double start = 0, end = 1000;  ///< ms; the start may lie after the end
    bool active = false;
    friend bool operator==(const Cycle&, const Cycle&) = default;
};

}  // namespace tq
