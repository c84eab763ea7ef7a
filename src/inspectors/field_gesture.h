// A number of an event that is turned: dragged from a press to a release in its field, or typed at once.
#pragma once

#include <string>

#include "history/event_state.h"
#include "host/field.h"
#include "instance/event.h"

namespace tq {

class Edit;
struct Prseq;

/// A number that can be turned.
struct TurnedNumber {
    void (*write)(Prseq&, Event&, double value);
    /// One step of the history; the event holds what it was turned to.
    void (*record)(Edit&, const EventRef& event, const EventState& before);
};

/// What the user does: "mousedown" begins a gesture, "value" is a step of it or a whole one, "mouseup" ends
/// it.
void turn_number(Prseq& object, const TurnedNumber& number, const EventRef& event, const Field& field,
                 const std::string& what);

}  // namespace tq
