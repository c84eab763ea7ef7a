#include "app/patch/add_sounds.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "app/patch/exact_atom.h"
#include "app/patch/session.h"
#include "app/patch/sound_files.h"
#include "edits/time_grid.h"
#include "instance/geometry.h"
#include "instance/symbols.h"
#include "interaction/insert_gesture.h"
#include "interaction/pointer.h"
#include "model/selected_events.h"
#include "model/tracks.h"

namespace tq {

namespace {

constexpr double full_level = 127;  // the velocity at which no sound is softer than it is

/// In whole ms nothing of the sound is cut off.
double duration_of(const Prseq& box, const Sound& sound) {
    constexpr double shortest = 1, rounding = 1e-6;  // ms
    const double ms = sound.ms();
    return std::max(box.meter.followstempo ? ms : std::ceil(ms - rounding), shortest);
}

/// What came before it in a burst of "event" messages is a step of its own: this goes to the slot that the
/// burst takes when it is closed.
void end_burst(Session& session) {
    const Prseq& box = session.box();
    if (box.capture.inserted.empty() && box.capture.modified.empty()) return;
    session.call(MessageCall{gensym("undoredo"), {box.history.cursor + 1}, {}});
}

void add_event(Session& session, const NamedSound& sound, SoundPlace place, double duration) {
    const Atoms atoms{tq_sym_start,           exact_atom(place.start), tq_sym_duration,
                      exact_atom(duration),   tq_sym_tag_note_open,    exact_atom(place.pitch),
                      exact_atom(full_level), tq_sym_tag_note_close,   tq_sym_tag_buffer_open,
                      gensym(sound.name),     tq_sym_tag_buffer_close};
    end_burst(session);
    session.call(MessageCall{gensym("event"), atoms, {}});
    end_burst(session);
}

/// The buffer; none, which is posted, when the file is no sound.
const Buffer* make_buffer(Session& session, SoundFiles& sounds, const NamedSound& sound) {
    if (!session.call(BufferCall{sound.name, sound.file})) return nullptr;
    sounds.adopt(sound.name);
    return buffer_named(session.host(), gensym(sound.name));
}

}  // namespace

SoundPlace place_at(const Prseq& box, Point at) {
    if (!TQRectContainsPoint(box.layout[Part::MainDisplay], at.x, at.y))
        return {.start = position_to_insert(box)};
    const Pointer pointer = pointer_at(box, at.x, at.y, 0);
    return {start_to_insert(box, pointer), pitch_to_insert(box, pointer)};
}

SoundPlace place_at_position(const Prseq& box) {
    SoundPlace place{.start = position_to_insert(box)};
    if (const auto selected = all_selected_events(box); !selected.empty())
        place.pitch = selected.front()->pitch;
    return place;
}

bool add_sounds(Session& session, SoundFiles& sounds, std::span<const std::string> files, SoundPlace place) {
    const Prseq& box = session.box();
    if (const Track* track = TQ_Prseq_Tracks_GetActiveTrack(box); track && !track->visible) {
        object_error(box, fmt::format("no sound was added: the track \"{}\" is hidden", track->name));
        return false;
    }
    bool added = true;
    for (const std::string& file : files) {
        const bool is_sound = has_sound_ending(file);
        if (!is_sound) object_error(box, fmt::format("\"{}\" is no sound ({})", file, sound_endings_told));
        const NamedSound sound = is_sound ? sounds.name_for(file) : NamedSound();
        const Buffer* buffer = is_sound ? make_buffer(session, sounds, sound) : nullptr;
        added = added && buffer;
        if (!buffer) continue;
        const double duration = duration_of(box, *buffer->use());
        if (!TQ_Prseq_Tracks_GetActiveTrack(box)) {
            const std::string name = std::filesystem::path(file).stem().string();
            session.call(MessageCall{gensym("track_add"), {gensym(name)}, {}});
        }
        add_event(session, sound, place, duration);
        place.start += duration;
    }
    return added;
}

}  // namespace tq
