// Linking events to audio buffers, and what becomes of the links as buffers come, go and change.
#pragma once

#include "instance/event.h"

namespace tq {

struct Prseq;

/// Links the event to the whole of the buffer of that name. The empty symbol and "<empty>" unlink; so does a
/// name that no buffer has.
void TQ_Prseq_Buffer_AttachBufferToEvent(Prseq& object, Event& event, Symbol name);
/// Gives the event a link with these values, whether there is such a buffer or not. Values that a buffer has
/// outdated meanwhile are brought in step with it.
void set_buffer_link(Prseq& object, Event& event, const BufferLink& link);

/// Takes length and range from the event's buffer: the range is all of it.
void TQ_Prseq_Buffer_ConfigureEventBuffer(Event& event);
/// The event's buffer is gone; the name and the range are kept.
void TQ_Prseq_Buffer_RemoveBufferFromEvent(Event& event);
/// length / duration when the link adapts, else 1.
void TQ_Prseq_Buffer_CalculateBufferRatio(Event& event);

// What notifications of buffers do; the cost grows with the events that link to the name.

/// A buffer of this name has come.
void TQ_Prseq_Buffer_FindAllEventsWithNamedBuffer(Prseq& object, Symbol name);
/// The buffer of this name goes.
void TQ_Prseq_Buffer_RemoveNamedBufferFromAll(Prseq& object, Symbol name);
/// The sound of the buffer of this name is another.
void TQ_Prseq_Buffer_ModifyBuffer(Prseq& object, Symbol name);
/// Brings every link to a name in step with its buffer; its picture is made again when it is next painted.
void TQ_Prseq_Buffer_ModifyBufferOverview(Prseq& object, BufferOverview& overview);

}  // namespace tq
