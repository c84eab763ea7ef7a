#include "model/buffers.h"

#include <algorithm>

#include "host/host.h"
#include "instance/change.h"
#include "instance/prseq.h"
#include "instance/symbols.h"

namespace tq {

namespace {

double length_of(const Buffer& buffer) { return buffer.use()->ms(); }

/// Another sound than the one that the link knows: what was the whole is the whole again, other ranges are
/// held within it.
void refit(BufferRange& range, double length) {
    const bool whole = range.start == 0 && range.end == range.length;
    range.end = whole ? length : std::min(range.end, length);
    range.start = std::min(range.start, range.end);
    range.length = length;
}

/// Brings the event's link in step with its buffer, which may have come, gone or changed.
void follow_buffer(Event& event) {
    const Buffer* buffer = event.buffer();
    if (!buffer) return TQ_Prseq_Buffer_RemoveBufferFromEvent(event);
    BufferRange& range = event.make_link();
    const double length = length_of(*buffer);
    if (length == range.length) return;
    if (range.awaits)
        range.length = length;
    else if (range.length == 0)
        TQ_Prseq_Buffer_ConfigureEventBuffer(event);
    else
        refit(range, length);
    range.awaits = false;
    TQ_Prseq_Buffer_CalculateBufferRatio(event);
}

}  // namespace

void TQ_Prseq_Buffer_AttachBufferToEvent(Prseq& object, Event& event, Symbol name) {
    if (name == tq_sym_empty) name = {};
    const Ref<BufferOverview> overview = name.empty() ? nullptr : object.buffers.of(name);
    if (!overview || !overview->buffer) {
        if (!event.linked) return;
        TQ_Prseq_Buffer_RemoveBufferFromEvent(event);
        name = {};
    }
    BufferLink link = event.link();
    link.name = name;
    set_buffer_link(object, event, link);
    if (event.buffer()) TQ_Prseq_Buffer_ConfigureEventBuffer(event);
}

void set_buffer_link(Prseq& object, Event& event, const BufferLink& link) {
    if (!event.linked) event.linked = std::make_unique<LinkedBuffer>(event);
    event.linked->set(link, link.name.empty() ? nullptr : object.buffers.of(link.name));
    follow_buffer(event);
}

void TQ_Prseq_Buffer_ConfigureEventBuffer(Event& event) {
    BufferRange& range = event.make_link();
    range.length = range.end = length_of(*event.buffer());
    range.start = 0;
    range.awaits = false;
    TQ_Prseq_Buffer_CalculateBufferRatio(event);
}

void TQ_Prseq_Buffer_RemoveBufferFromEvent(Event& event) {
    if (event.linked) event.make_link().length = 0;
}

void TQ_Prseq_Buffer_CalculateBufferRatio(Event& event) {
    if (!event.linked) return;
    BufferRange& range = event.make_link();
    range.ratio = range.adapt && event.duration > 0 ? range.length / event.duration : 1;
}

void TQ_Prseq_Buffer_FindAllEventsWithNamedBuffer(Prseq& object, Symbol name) {
    BufferOverview* overview = object.buffers.find(name);
    if (!overview) return;
    overview->buffer = buffer_named(object.host(), name);
    TQ_Prseq_Buffer_ModifyBufferOverview(object, *overview);
}

void TQ_Prseq_Buffer_RemoveNamedBufferFromAll(Prseq& object, Symbol name) {
    BufferOverview* overview = object.buffers.find(name);
    if (!overview || !overview->buffer) return;
    overview->buffer = nullptr;
    TQ_Prseq_Buffer_ModifyBufferOverview(object, *overview);
}

void TQ_Prseq_Buffer_ModifyBuffer(Prseq& object, Symbol name) {
    if (BufferOverview* overview = object.buffers.find(name); overview && overview->buffer)
        TQ_Prseq_Buffer_ModifyBufferOverview(object, *overview);
}

void TQ_Prseq_Buffer_ModifyBufferOverview(Prseq& object, BufferOverview& overview) {
    overview.image.reset();
    for (LinkedBuffer& link : overview.links) follow_buffer(link.event());
    prseq_show(object, object.showbuffers ? Change::MainDisplay : Change::Nothing);  // fields show it too
}

}  // namespace tq
