// Reading and writing all that an event holds.
#pragma once

#include "instance/event_state.h"

namespace tq {

struct Prseq;

EventState event_state(const Event& event);
/// Makes the event what it was. When its track is not in the document any more, it stays where it is.
void restore_event_state(Prseq& object, Event& event, const EventState& state);

}  // namespace tq
