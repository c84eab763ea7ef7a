// All that an event holds, as values.
#pragma once

#include <optional>
#include <vector>

#include "model/event.h"

namespace tq {

struct Prseq;

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
        BpfPoints points;
    };
    std::vector<Curve> curves;
};

EventState event_state(const Event& event);
/// Makes the event what it was. When its track is not in the document any more, it stays where it is.
void restore_event_state(Prseq& object, Event& event, const EventState& state);

}  // namespace tq
