#include "history/event_state.h"

#include "instance/prseq.h"
#include "instance/track.h"
#include "model/buffers.h"
#include "model/events.h"
#include "model/tracks.h"

namespace tq {

EventState event_state(const Event& event) {
    EventState state{.track = event.track,
                     .start = event.start,
                     .duration = event.duration,
                     .pitch = event.pitch,
                     .velocity = event.velocity,
                     .label = event.label,
                     .message = event.message,
                     .link = event.linked ? std::optional(event.link()) : std::nullopt,
                     .parametervalues = event.parametervalues,
                     .curves = {}};
    for (const BpfRef& bpf : event.bpfs) state.curves.push_back({bpf, bpf->type, bpf->points});
    return state;
}

void restore_event_state(Prseq& object, Event& event, const EventState& state) {
    if (event.start != state.start || event.duration != state.duration)
        TQ_Prseq_Events_SetEventTimes(event, state.start, state.duration);
    event.pitch = state.pitch;
    event.velocity = state.velocity;
    event.label = state.label;
    event.message = state.message;
    if (state.link)
        set_buffer_link(object, event, *state.link);
    else
        event.linked.reset();
    event.parametervalues = state.parametervalues;
    event.bpfs.clear();
    for (const EventState::Curve& curve : state.curves) {
        curve.bpf->type = curve.type;
        curve.bpf->points = curve.points;
        event.bpfs.push_back(curve.bpf);
    }
    if (state.track && event.track && state.track != event.track && state.track->index >= 0)
        move_event_to_track(object, event, *state.track);
    else if (event.track)
        conform_event_to(*event.track, event);
    TQ_Prseq_Events_LookAgain(event);
}

}  // namespace tq
