#include "model/buffers.h"

#include "host/host.h"
#include "shell/prseq.h"
#include "shell/symbols.h"

namespace tq {

namespace {

/// The buffer bound to a name; none when nothing is, or something else.
Object* buffer_named(Prseq& object, Symbol name) {
    static const Symbol buffer_class = gensym("buffer~");
    Object* thing = symbol_thing(object.host(), name);
    return thing && object_classname(*thing) == buffer_class ? thing : nullptr;
}

}  // namespace

void TQ_Prseq_Buffer_AttachBufferToEvent(Prseq& object, Event& event, Symbol name) {
    Object* buffer = name == tq_sym_empty ? nullptr : buffer_named(object, name);
    if (!buffer) {
        TQ_Prseq_Buffer_RemoveBufferFromEvent(event);
        if (event.buffer) event.buffer->name = {};
        return;
    }
    event.make_link().name = name;
    event.make_link().buffer = buffer;
}

void TQ_Prseq_Buffer_RemoveBufferFromEvent(Event& event) {
    if (!event.buffer) return;
    event.buffer->buffer = nullptr;
    event.buffer->length = 0;
}

}  // namespace tq
