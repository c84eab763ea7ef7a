// Undoable edits of what events hold: what inspectors and the parameter display ask for.
#pragma once

#include <vector>

#include "history/recorders.h"
#include "instance/event.h"

namespace tq {

struct Prseq;

void change_event_label(Prseq& object, const EventRef& event, Symbol label);
void change_event_message(Prseq& object, const EventRef& event, Symbol message);
/// The event plays the whole of the buffer of that name; see TQ_Prseq_Buffer_AttachBufferToEvent().
void change_event_buffer(Prseq& object, const EventRef& event, Symbol name);
/// The ratio follows.
void change_event_buffer_adapt(Prseq& object, const EventRef& event, bool adapt);
/// The ends of the range in ms.
void change_event_buffer_start(Prseq& object, const EventRef& event, double start);
void change_event_buffer_end(Prseq& object, const EventRef& event, double end);
/// Sets each event's value of a parameter, or of "Velocity", to the next one of its change.
void change_event_values(Prseq& object, std::vector<ValueChange> changes, Symbol parameter);

}  // namespace tq
