// All that an event holds, as values.
#pragma once

#include <optional>
#include <vector>

#include "instance/event.h"

namespace tq {

/// An event's values at one moment. Curves keep their identity: each is written back into the curve it came
/// from.
struct EventState {
    Ref<Track> track;
    double start = 0, duration = 0, pitch = 0, velocity = 0;
    Symbol label, message;
    std::optional<BufferLink> link;
    std::vector<ParameterValue> parametervalues;
    struct Curve {
        BpfRef bpf;
        BpfTypeRef type;
        BpfPoints points;
    };
    std::vector<Curve> curves;
};

}  // namespace tq
