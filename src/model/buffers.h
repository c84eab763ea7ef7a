// Links of events to the host's audio buffers.
#pragma once

#include "model/event.h"

namespace tq {

struct Prseq;

/// Links the event to the buffer of that name. The empty symbol and "<empty>" unlink; so does a name that no
/// buffer has.
void TQ_Prseq_Buffer_AttachBufferToEvent(Prseq& object, Event& event, Symbol name);
/// The event has no buffer any more; the name and the range are kept.
void TQ_Prseq_Buffer_RemoveBufferFromEvent(Event& event);

}  // namespace tq
