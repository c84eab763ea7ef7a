#include "app/patch/import.h"

#include <fmt/printf.h>

#include <algorithm>
#include <filesystem>
#include <span>

#include "app/midi/reader.h"
#include "edits/track_edits.h"
#include "file/document_writer.h"
#include "file/new_document.h"
#include "host/files.h"
#include "host/host.h"
#include "host/round.h"
#include "instance/change.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "instance/utilities.h"
#include "model/bpfs.h"
#include "model/events.h"
#include "model/track_info.h"
#include "model/tracks.h"
#include "view/zoom.h"

namespace tq {

namespace {

Symbol destination_of(const MidiTrack& track) {
    return gensym(track.drums ? "gm:drums" : "gm:" + std::to_string(track.program));
}

BpfPoints curve_of(std::span<const BendPoint> bend, double duration_ms) {
    BpfPoints points;
    for (const BendPoint& point : bend)
        points.push_back({std::clamp(point.ms / duration_ms, 0.0, 1.0), point.semitones});
    points.front().x = 0;
    points.back().x = 1;
    return points;
}

/// Start and end are rounded to whole ms each, so that rounding does not add up in the duration.
EventRef event_of(Prseq& object, const Track& track, const MidiTrack& source, const MidiNote& note) {
    double start = jgraphics_round(note.start_ms), end = jgraphics_round(note.start_ms + note.duration_ms);
    EventRef event = TQ_Prseq_Events_MakeEvent(object, whole_ms(start), note.pitch, note.velocity,
                                               whole_ms(end - start), Symbol(), Symbol());
    TQ_Prseq_Events_AddBpfsFromExistingBpfTypesOnExistingTrack(track, *event);
    std::span<const BendPoint> bend = source.bend(note);
    if (bend.size() >= 2 && note.duration_ms > 0)
        TQ_Prseq_Events_GetBpfWithGivenName(*event, tq_sym_Pitch)->points = curve_of(bend, note.duration_ms);
    return event;
}

void add_track(Prseq& object, const MidiTrack& source) {
    const Symbol name =
        gensym(source.name.empty() ? fmt::sprintf("Track %ld", ++object.tracknamecounter) : source.name);
    Track& track = *append_track(object, name);
    activate_new_track(object, track);
    TQ_Prseq_Tracks_SetDestination(object, track.index, destination_of(source));
    std::vector<EventRef> events;
    events.reserve(source.notes.size());
    for (const MidiNote& note : source.notes) events.push_back(event_of(object, track, source, note));
    TQ_Prseq_Tracks_InsertAllEvents(object, track, std::move(events));
}

std::optional<MidiSong> song_of(const Prseq& object, const std::string& path, std::string_view bytes) {
    try {
        return read_midi_file(std::as_bytes(std::span(bytes)));
    } catch (const MidiError& error) {
        object_error(object, fmt::sprintf("could not read \"%s\": %s", path, error.what()));
        return {};
    }
}

}  // namespace

bool is_midi_file(const std::string& path, std::string_view bytes) {
    if (bytes.starts_with("MThd")) return true;
    std::string ending = std::filesystem::path(path).extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return std::tolower(c); });
    return ending == ".mid" || ending == ".midi";
}

std::optional<MidiImport> import_midi_file(Prseq& object, const std::string& path) {
    std::string fault;
    if (FileBytes bytes = object.host().patch.read(path, fault))
        return import_midi_bytes(object, path, *bytes);
    object_error(object, fmt::sprintf("could not read \"%s\": %s", path, fault));
    return {};
}

std::optional<MidiImport> import_midi_bytes(Prseq& object, const std::string& path, std::string_view bytes) {
    std::optional<MidiSong> song = song_of(object, path, bytes);
    if (!song) return {};
    if (prseq_getdirtyflag(object))
        object.host().patch.keep_copy(object, TQ_Prseq_Json_MakeDictionary(object, true));
    TQ_Prseq_NewFile(object);
    MidiImport import{.tracks = song->tracks.size(), .ignored_messages = song->ignored_messages};
    for (MidiTrack& track : song->tracks) {
        add_track(object, track);
        import.notes += track.notes.size();
        track = MidiTrack();  // its memory is needed for the next
    }
    settle_timeline_length(object);
    TQ_Prseq_Tracks_OutputTrackInfo(object);
    prseq_setdirtyflag(object, false);
    prseq_show(object, Change::Everything);
    return import;
}

}  // namespace tq
