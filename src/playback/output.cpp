#include "playback/output.h"

#include <algorithm>

#include "host/host.h"
#include "host/outlet.h"
#include "instance/geometry.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "instance/track.h"
#include "instance/utilities.h"
#include "model/selection.h"

namespace tq {

namespace {

void append(Atoms& atoms, std::initializer_list<Atom> more) { atoms.insert(atoms.end(), more); }

void append_note(const Event& event, Atoms& atoms) {
    append(atoms, {tq_sym_tag_note_open, event.pitch, event.velocity, tq_sym_tag_note_close});
}

void append_message(const Atoms& message, Atoms& atoms) {
    atoms.push_back(tq_sym_tag_message_open);
    atoms.insert(atoms.end(), message.begin(), message.end());
    atoms.push_back(tq_sym_tag_message_close);
}

void append_parameters(const Event& event, Atoms& atoms) {
    if (event.parametervalues.empty()) return;
    atoms.push_back(tq_sym_tag_parameter_open);
    for (const ParameterValue& value : event.parametervalues) append(atoms, {value.name(), value.value});
    atoms.push_back(tq_sym_tag_parameter_close);
}

void append_range(const BufferLink& link, Atoms& atoms) {
    append(atoms, {link.name, link.start, link.end, link.ratio});
}

double point_value(const Event& event, const Bpf& bpf, const BpfPoint& point) {
    const BpfType& type = *bpf.type;
    return type.name == tq_sym_Pitch ? event.pitch + point.y
                                     : scale(point.y, 0, 1, type.minimum, type.maximum);
}

/// While playing: each point's value, then the ms since the point before.
void append_playing_curve(const Event& event, const Bpf& bpf, Atoms& atoms) {
    atoms.push_back(bpf.name());
    double previous = 0;
    for (const BpfPoint& point : bpf.points) {
        double step = point.x == 0 ? 0 : (point.x - previous) * event.duration;
        append(atoms, {point_value(event, bpf, point), step});
        previous = point.x;
    }
}

/// When selected: each point's ms since the event's start, then its value.
void append_selected_curve(const Event& event, const Bpf& bpf, Atoms& atoms) {
    atoms.push_back(bpf.name());
    for (const BpfPoint& point : bpf.points)
        append(atoms, {point.x * event.duration, point_value(event, bpf, point)});
}

/// The relay behind a track's destination; none when nobody listens there.
Object* relay_of(Prseq& object, const Track& track) {
    Object* receiver = symbol_thing(object.host(), track.destination);
    return receiver && object_classname(*receiver) == tq_sym_through ? receiver : nullptr;
}

void output_selected_event(Prseq& object, const Event& event, long position) {
    Atoms atoms{position,
                tq_sym_id,
                event.id,
                tq_sym_track,
                event.track ? event.track->index : -1L,
                tq_sym_start,
                whole_ms(event.start),
                tq_sym_duration,
                whole_ms(event.duration)};
    if (!event.label.empty()) append(atoms, {tq_sym_label, event.label});
    TQ_Prseq_Output_BuildEventForOutputWhenSelected(event, atoms);
    outlet_anything(object, OutletSelected, tq_sym_event, atoms);
}

/// Whether the next event is still to be sent: it has not left the document since it was chosen, nor been
/// moved, on its track or to another one, to where it will come by itself.
bool is_due(const Prseq& object) {
    const Event& event = *object.nextevent;
    const Track *track = event.track, *chosen = object.nextevent_track.get();
    if (!track || track->index < 0 || event.start > chosen->nextplace.start) return false;
    return track == chosen || !track->nextevent || track->nextplace.is_behind({event.start, event.id});
}

void tell_stop(Prseq& object, const Track& track) {
    if (track.destination.empty())
        outlet_list(object, OutletPlaying, Atoms{track.index, tq_sym_stop});
    else if (Object* relay = relay_of(object, track))
        object_method_typed(*relay, tq_sym_stop, {});
}

void system_info(Prseq& object, Symbol selector, const Atoms& atoms) {
    outlet_anything(object, OutletSystemInfo, selector, atoms);
}

}  // namespace

void TQ_Prseq_Output_EventOutputWhilePlaying(Prseq& object) {
    if (!object.nextevent || !object.playing || !is_due(object)) return;
    const Event* event = object.nextevent.get();
    const Track& track = *event->track;
    if (track.mute) return;
    Atoms atoms;
    if (track.destination.empty()) append(atoms, {track.index, tq_sym_event});
    append(atoms, {tq_sym_duration, whole_ms(event->duration)});
    TQ_Prseq_Output_BuildEventForOutputWhilePlaying(track, *event, atoms);
    if (track.destination.empty())
        outlet_list(object, OutletPlaying, atoms);
    else if (Object* relay = relay_of(object, track))
        object_method_typed(*relay, tq_sym_event, atoms);
}

void TQ_Prseq_Output_BuildEventForOutputWhilePlaying(const Track& track, const Event& event, Atoms& atoms) {
    if (!track.discardnoteoutput) append_note(event, atoms);
    if (Atoms message = atom_setparse(event.message.text()); !message.empty()) append_message(message, atoms);
    if (event.buffer()) {
        atoms.push_back(tq_sym_tag_buffer_open);
        append_range(event.link(), atoms);
        atoms.push_back(tq_sym_tag_buffer_close);
    }
    append_parameters(event, atoms);
    bool without_pitch = track.discarddefaultpitchbpfoutput;
    if (event.bpfs.empty() || (event.bpfs.size() == 1 && without_pitch)) return;
    atoms.push_back(tq_sym_tag_bpf_open);
    for (const BpfRef& bpf : event.bpfs)
        if (bpf->name() != tq_sym_Pitch || !without_pitch) append_playing_curve(event, *bpf, atoms);
    atoms.push_back(tq_sym_tag_bpf_close);
}

void prseq_dump_selected(Prseq& object) { TQ_Prseq_Output_OutputSelectedEvents(object); }

void TQ_Prseq_Output_OutputSelectedEvents(Prseq& object) {
    list_selected_events(object);
    outlet_anything(object, OutletSelected, tq_sym_event, Atoms{tq_sym_clear});
    long position = 0;
    for (const EventRef& event : object.selection) output_selected_event(object, *event, position++);
    outlet_anything(object, OutletSelected, tq_sym_event, Atoms{tq_sym_done});
}

void TQ_Prseq_Output_BuildEventForOutputWhenSelected(const Event& event, Atoms& atoms) {
    append_note(event, atoms);
    if (!event.message.empty()) {
        Atoms message = atom_setparse(event.message.text());
        append_message(message.empty() ? Atoms{Symbol()} : message, atoms);
    }
    if (const BufferLink& link = event.link(); !link.name.empty()) {
        atoms.push_back(tq_sym_tag_buffer_open);
        if (event.buffer())
            append_range(link, atoms);
        else
            atoms.push_back(Symbol());
        atoms.push_back(tq_sym_tag_buffer_close);
    }
    append_parameters(event, atoms);
    if (event.bpfs.empty()) return;
    atoms.push_back(tq_sym_tag_bpf_open);
    for (const BpfRef& bpf : event.bpfs) append_selected_curve(event, *bpf, atoms);
    atoms.push_back(tq_sym_tag_bpf_close);
}

void TQ_Prseq_Output_Stop(Prseq& object) {
    for (const TrackRef& track : object.tracks) tell_stop(object, *track);
}

void stop_tracks_from(Prseq& object, long first) {
    if (!object.playing) return;
    for (size_t i = static_cast<size_t>(std::max(first, 0L)); i < object.tracks.size(); ++i)
        tell_stop(object, *object.tracks[i]);
}

void TQ_Prseq_Output_Cycle(Prseq& object) { system_info(object, tq_sym_cycle, {long{object.cycle.active}}); }

void TQ_Prseq_Output_CycleRange(Prseq& object) {
    system_info(object, tq_sym_cyclerange, {whole_ms(object.cycle.start), whole_ms(object.cycle.end)});
}

void TQ_Prseq_Output_Position(Prseq& object, double ticks) { system_info(object, tq_sym_ticks, {ticks}); }

}  // namespace tq
