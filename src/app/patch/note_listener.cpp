#include "app/patch/note_listener.h"

#include <algorithm>

#include "app/midi/controllers.h"
#include "app/patch/receivers.h"
#include "app/sound/event_message.h"
#include "instance/symbols.h"
#include "instance/utilities.h"
#include "model/tracks.h"

namespace tq {

namespace {

constexpr Voice voice_without_destination{};  // a piano
constexpr double full_controller = 127;

std::string source_of_track(long index) { return "track " + std::to_string(index); }

/// Controllers are told in their curve types' own ranges.
void scale_controllers(const Track& track, PlayedNote& note) {
    for (ControllerCurve& curve : note.controllers) {
        const auto is_of = [&](const BpfTypeRef& t) {
            return controller_named(t->name.text()) == curve.controller;
        };
        const auto found = std::ranges::find_if(track.bpftypes, is_of);
        if (found == track.bpftypes.end()) continue;
        const double low = (*found)->minimum, range = (*found)->maximum - low;
        for (CurvePoint& point : curve.points)
            point.value = range == 0 ? 0 : (point.value - low) / range * full_controller;
    }
}

}  // namespace

/// A track that is not solo while others are. The box sends its events all the same.
bool NoteListener::silenced(long track) const {
    const auto& tracks = session_.box().tracks;
    const Track* played = track_at(session_.box(), track);
    return played && !played->solo &&
           std::ranges::any_of(tracks, &Track::solo, [](const TrackRef& t) -> const Track& { return *t; });
}

std::optional<PlayedNote> NoteListener::note_of(AtomSpan arguments) const {
    std::optional<PlayedNote> note = parse_event_note(arguments);
    const std::optional<EventBuffer> part = parse_event_buffer(arguments);
    const Buffer* buffer = part ? buffer_named(session_.host(), part->name) : nullptr;
    if (!buffer) return note;
    if (!note) {
        note = PlayedNote{.duration_ms = part->duration_ms, .velocity = 127};
        note->only_sample = true;
    }
    note->sample = {buffer->use(), part->start_ms, part->end_ms, part->ratio};
    return note;
}

/// What leaves the box tells whole ms; notes of a song whose bars follow the tempo end between them.
double NoteListener::exact_duration(double told) const {
    const EventRef& event = session_.box().nextevent;
    const bool sent = !session_.sending && event && static_cast<double>(whole_ms(event->duration)) == told;
    return sent ? event->duration : told;
}

void NoteListener::play(AtomSpan arguments, const Voice& voice, const std::string& source, long track) {
    if (silenced(track)) return;
    std::optional<PlayedNote> note = note_of(arguments);
    if (!note) return;
    note->ms = now();
    note->duration_ms = exact_duration(note->duration_ms);
    note->voice = voice;
    note->source = source;
    note->track = track;
    if (const Track* found = track_at(session_.box(), track)) scale_controllers(*found, *note);
    for (Player* player : players_) player->note(*note);
}

void NoteListener::outlet(int outlet, Symbol selector, AtomSpan atoms) {
    if (outlet == OutletSystemInfo && selector == tq_sym_ticks)
        for (Player* player : players_) player->stop_all(now());
    if (outlet == OutletTrackInfo) return mute(atoms);
    if (outlet != OutletPlaying) return;
    std::optional<OutletList> list = parse_outlet_list(atoms);
    if (!list) return;
    std::string source = source_of_track(list->track);
    if (list->kind == OutletList::Kind::Event)
        play(list->arguments, voice_without_destination, source, list->track);
    else
        for (Player* player : players_) player->stop(source, now());
}

/// "mute INDEX 1": a track is muted, and what it has begun ends.
void NoteListener::mute(AtomSpan atoms) {
    if (atoms.size() < 3 || atoms[0].as_symbol() != tq_sym_mute || atoms[2].as_long() == 0) return;
    for (Player* player : players_) player->stop_track(atoms[1].as_long(), now());
}

/// What a receiver gets does not say of which track it is: of that whose event is being sent.
long NoteListener::track_that_plays() const {
    const EventRef& event = session_.box().nextevent;
    if (session_.sending) return -1;
    return event && event->track ? event->track->index : -1;
}

void NoteListener::receiver(Symbol name, Symbol selector, AtomSpan atoms) {
    std::optional<Voice> voice = voice_of_receiver(name.text());
    if (!voice) return;
    if (selector == tq_sym_event)
        play(atoms, *voice, name.text(), track_that_plays());
    else if (selector == tq_sym_stop)
        for (Player* player : players_) player->stop(name.text(), now());
}

std::map<long, std::string> NoteListener::track_names() const {
    std::map<long, std::string> names;
    for (const TrackRef& track : session_.box().tracks) names.emplace(track->index, track->name);
    return names;
}

}  // namespace tq
