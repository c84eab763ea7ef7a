// A burst of "event" messages that becomes one undo item.
#pragma once

#include <vector>

#include "instance/event.h"
#include "instance/event_state.h"
#include "instance/revision.h"

namespace tq {

/// An event that was changed: what it was and what it is.
struct EventModification {
    EventRef event;
    EventState previous, next;
};

/// At most one of the lists holds anything: a burst is of one kind.
struct EventCapture {
    bool active = false;
    BeforeSteps before;
    std::vector<EventRef> inserted;
    std::vector<EventModification> modified;
};

}  // namespace tq
