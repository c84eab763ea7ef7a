#include "model/events.h"

#include <algorithm>

#include "instance/prseq.h"
#include "instance/utilities.h"
#include "model/bpfs.h"
#include "model/buffers.h"
#include "model/parameters.h"
#include "model/tracks.h"

namespace tq {

namespace {

/// Whether events have curves of the type: of several types named "Pitch" they have that of the first.
bool has_curves(const Track& track, const BpfType& type) {
    return TQ_Prseq_Tracks_GetBpfTypeWithGivenName(track, type.name) == &type;
}

/// Whether the event has exactly the track's curves and values, in its order.
bool conforms(const Track& track, const Event& event) {
    auto curve = event.bpfs.begin();
    for (const BpfTypeRef& type : track.bpftypes)
        if (curve != event.bpfs.end() && (*curve)->type == type)
            ++curve;
        else if (has_curves(track, *type))
            return false;
    return curve == event.bpfs.end() &&
           std::ranges::equal(event.parametervalues, track.parametertypes, {}, &ParameterValue::type);
}

void conform_curves(const Track& track, Event& event) {
    const auto curves = std::move(event.bpfs);
    event.bpfs.clear();
    for (const BpfTypeRef& type : track.bpftypes) {
        if (!has_curves(track, *type)) continue;
        auto own = std::ranges::find(curves, type, [](const BpfRef& b) { return b->type; });
        if (own == curves.end())
            own = std::ranges::find(curves, type->name, [](const BpfRef& b) { return b->name(); });
        event.bpfs.push_back(own != curves.end() ? *own : TQ_Prseq_Events_MakeBpfFromBpfType(*type));
    }
    size_t i = 0;  // only now: names are looked up among the curves as they were
    for (const BpfTypeRef& type : track.bpftypes)
        if (has_curves(track, *type)) event.bpfs[i++]->type = type;
    activate_bpf_of_track(track, event);
}

void conform_values(const Track& track, Event& event) {
    const std::vector<ParameterValue> values = std::move(event.parametervalues);
    event.parametervalues.clear();
    TQ_Prseq_Parameters_AddExistingParameterTypesToEvent(track, event);
    for (ParameterValue& value : event.parametervalues) {
        auto own = std::ranges::find(values, value.type, &ParameterValue::type);
        if (own == values.end()) own = std::ranges::find(values, value.name(), &ParameterValue::name);
        if (own != values.end()) value.value = own->value;
    }
}

}  // namespace

EventRef TQ_Prseq_Events_MakeEvent(Prseq& object, long start, double pitch, double velocity, long duration,
                                   Symbol label, Symbol message) {
    EventRef event = make_ref<Event>();
    event->id = TQ_Prseq_Utilities_IncreaseEventID(object);
    event->start = static_cast<double>(start);
    event->duration = static_cast<double>(duration);
    event->pitch = pitch;
    event->velocity = velocity;
    event->label = label;
    event->message = message;
    return event;
}

EventRef TQ_Prseq_Events_DuplicateEvent(Prseq& object, const Event& event) {
    EventRef copy = make_ref<Event>();
    copy->id = TQ_Prseq_Utilities_IncreaseEventID(object);
    copy->start = event.start;
    copy->duration = event.duration;
    copy->pitch = event.pitch;
    copy->velocity = event.velocity;
    copy->label = event.label;
    copy->message = event.message;
    copy->parametervalues = event.parametervalues;
    if (event.linked) set_buffer_link(object, *copy, event.link());
    for (const BpfRef& bpf : event.bpfs) copy->bpfs.push_back(TQ_Prseq_Events_CopyBpf(*bpf));
    return copy;
}

Event* TQ_Prseq_Events_FindEventFromID(const Prseq& object, long id) { return object.events_by_id.find(id); }

void TQ_Prseq_Events_SetEventTimes(Event& event, double start, double duration) {
    if (event.track) {
        event.track->events.retime(event, start, duration);
    } else {
        event.start = start;
        event.duration = duration;
    }
}

void TQ_Prseq_Events_SetEventsTimes(std::span<const EventTimes> times) {
    while (!times.empty()) {
        Track* track = times.front().event->track;
        auto end = std::ranges::find_if(times, [&](const EventTimes& t) { return t.event->track != track; });
        const auto of_one_track = times.first(static_cast<size_t>(end - times.begin()));
        if (track)
            track->events.retime(of_one_track);
        else
            for (const EventTimes& t : of_one_track)
                TQ_Prseq_Events_SetEventTimes(*t.event, t.start, t.duration);
        times = times.subspan(of_one_track.size());
    }
}

void TQ_Prseq_Events_LookAgain(const Event& event) {
    if (event.track) event.track->events.renew(event);
}

void TQ_Prseq_Events_SetEventStart(Event& event, double start) {
    TQ_Prseq_Events_SetEventTimes(event, start, event.duration);
}

void TQ_Prseq_Events_SetEventDuration(Event& event, double duration) {
    TQ_Prseq_Events_SetEventTimes(event, event.start, duration);
    if (event.buffer()) TQ_Prseq_Buffer_CalculateBufferRatio(event);
}

void TQ_Prseq_Events_ResizeEvent(Event& event, double duration, double offset) {
    double old_duration = event.duration;
    TQ_Prseq_Events_SetEventTimes(event, event.start, duration);
    if (duration <= 0) return;
    for (const BpfRef& bpf : event.bpfs)
        for (BpfPoint& point : bpf->points) point.x = point.x * old_duration / duration + offset / duration;
}

void TQ_Prseq_Events_ModifyEventFromDictionary(Prseq& object, Event& event,
                                               const EventDictionary& dictionary) {
    if (dictionary.start || dictionary.duration)
        TQ_Prseq_Events_SetEventTimes(event, dictionary.start.value_or(event.start),
                                      dictionary.duration.value_or(event.duration));
    if (dictionary.pitch) event.pitch = *dictionary.pitch;
    if (dictionary.velocity) event.velocity = *dictionary.velocity;
    if (dictionary.label) event.label = *dictionary.label;
    if (dictionary.message) event.message = *dictionary.message;
    if (dictionary.buffername) TQ_Prseq_Buffer_AttachBufferToEvent(object, event, *dictionary.buffername);
    if (dictionary.bufferadapt) event.make_link().adapt = *dictionary.bufferadapt;
    if (dictionary.bufferstart) event.make_link().start = *dictionary.bufferstart;
    if (dictionary.bufferend) event.make_link().end = *dictionary.bufferend;
    if (dictionary.duration || dictionary.bufferadapt) TQ_Prseq_Buffer_CalculateBufferRatio(event);
    for (const BpfDictionary& curve : dictionary.bpfs)
        if (Bpf* bpf = TQ_Prseq_Events_GetBpfWithGivenName(event, curve.name))
            TQ_Prseq_Events_SetBpfFromDictionary(curve, *bpf);
    for (const auto& [name, value] : dictionary.parameters)
        TQ_Prseq_Parameters_SetEventParameterValue(event, name, value);
    if (dictionary.track && event.track && dictionary.track != event.track && dictionary.track->index >= 0)
        move_event_to_track(object, event, *dictionary.track);
    else
        TQ_Prseq_Events_LookAgain(event);
}

void conform_event_to(const Track& track, Event& event) {
    if (conforms(track, event)) return;
    conform_curves(track, event);
    conform_values(track, event);
}

void move_event_to_track(Prseq& object, Event& event, Track& track) {
    EventRef moving(&event);
    TQ_Prseq_Tracks_DeleteEventReferenceFromTrack(object, event);
    conform_event_to(track, event);
    TQ_Prseq_Tracks_InsertEvent(object, track, moving);
}

}  // namespace tq
