#include "app/patch/note_listener.h"

#include <charconv>

#include "app/sound/event_message.h"
#include "instance/symbols.h"

namespace tq {

namespace {

constexpr Voice voice_without_destination{.program = 0, .drums = false};  // a piano

std::string source_of_track(long index) { return "track " + std::to_string(index); }

}  // namespace

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

void NoteListener::play(AtomSpan arguments, const Voice& voice, const std::string& source) {
    std::optional<PlayedNote> note = note_of(arguments);
    if (!note) return;
    note->ms = now();
    note->voice = voice;
    note->source = source;
    for (Player* player : players_) player->note(*note);
}

void NoteListener::outlet(int outlet, Symbol selector, AtomSpan atoms) {
    if (outlet == OutletSystemInfo && selector == tq_sym_ticks)
        for (Player* player : players_) player->stop_all(now());
    if (outlet != OutletPlaying) return;
    std::optional<OutletList> list = parse_outlet_list(atoms);
    if (!list) return;
    std::string source = source_of_track(list->track);
    if (list->kind == OutletList::Kind::Event)
        play(list->arguments, voice_without_destination, source);
    else
        for (Player* player : players_) player->stop(source, now());
}

void NoteListener::receiver(Symbol name, Symbol selector, AtomSpan atoms) {
    std::optional<Voice> voice = voice_of_receiver(name.text());
    if (!voice) return;
    if (selector == tq_sym_event)
        play(atoms, *voice, name.text());
    else if (selector == tq_sym_stop)
        for (Player* player : players_) player->stop(name.text(), now());
}

std::map<std::string, std::string> NoteListener::source_names() const {
    std::map<std::string, std::string> names;
    for (const TrackRef& track : session_.box().tracks)
        names.emplace(track->destination.empty() ? source_of_track(track->index) : track->destination.text(),
                      track->name);
    return names;
}

std::optional<Voice> voice_of_receiver(const std::string& name) {
    if (!name.starts_with("gm:")) return {};
    if (name == "gm:drums") return Voice{.program = 0, .drums = true};
    int program = -1;
    const char *first = name.data() + 3, *last = name.data() + name.size();
    auto [end, fault] = std::from_chars(first, last, program);
    bool valid = fault == std::errc() && end == last && program >= 0 && program <= 127;
    return valid ? std::optional(Voice{.program = program, .drums = false}) : std::nullopt;
}

}  // namespace tq
