#include "app/patch/import.h"

#include <fmt/printf.h>

#include <algorithm>
#include <filesystem>
#include <span>

#include "app/midi/controllers.h"
#include "app/patch/import_meter.h"
#include "app/patch/receivers.h"
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
#include "model/bars.h"
#include "model/bpfs.h"
#include "model/events.h"
#include "model/track_info.h"
#include "model/tracks.h"
#include "view/zoom.h"

namespace tq {

namespace {

constexpr double full_controller = 127;
constexpr size_t longest_title = 255;  // bytes

/// One song's notes on their way onto one track.
class TrackImport {
 public:
    TrackImport(Prseq& object, const MidiTrack& source)
        : object_(object), source_(source), track_(*append_track(object, name_of(object, source))) {
        activate_new_track(object, track_);
        TQ_Prseq_Tracks_SetDestination(object, track_.index, gensym(receiver_of_voice(source.voice)));
        for (const ControllerCurves& curves : source.controllers)
            types_.push_back(TQ_Prseq_Tracks_AddBpfTypeToTrack(
                object, track_.index, gensym(controller_name(curves.controller)), 0, full_controller,
                controller_initial(curves.controller)));
    }

    void run() {
        std::vector<EventRef> events;
        events.reserve(source_.notes.size());
        for (std::size_t i = 0; i < source_.notes.size(); ++i) events.push_back(event_of(i));
        TQ_Prseq_Tracks_InsertAllEvents(object_, track_, std::move(events));
    }

 private:
    static Symbol name_of(Prseq& object, const MidiTrack& source) {
        return gensym(source.name.empty() ? fmt::sprintf("Track %ld", ++object.tracknamecounter)
                                          : source.name);
    }

    EventRef event_of(std::size_t index) {
        const MidiNote& note = source_.notes[index];
        const double start = kept_time(object_, note.start_ms),
                     end = kept_time(object_, note.start_ms + note.duration_ms);
        EventRef event = TQ_Prseq_Events_MakeEvent(object_, whole_ms(start), note.pitch, note.velocity,
                                                   whole_ms(end - start), Symbol(), Symbol());
        event->start = start;
        event->duration = kept_time(object_, end - start);
        TQ_Prseq_Events_AddBpfsFromExistingBpfTypesOnExistingTrack(track_, *event);
        if (event->duration <= 0) return event;
        set(*event, tq_sym_Pitch, note, source_.bend(note), 1);
        for (std::size_t i = 0; i < types_.size(); ++i)
            set(*event, types_[i]->name, note, MidiTrack::curve(source_.controllers[i], index),
                full_controller);
        return event;
    }

    /// Times are those of the song, whatever the event's start was rounded to.
    static void set(Event& event, Symbol name, const MidiNote& note, std::span<const CurvePoint> curve,
                    double full) {
        if (curve.size() < 2) return;
        BpfPoints points;
        for (const CurvePoint& point : curve) {
            const double ms = note.start_ms + point.ms - event.start;
            points.push_back({std::clamp(ms / event.duration, 0.0, 1.0), point.value / full});
        }
        points.front().x = 0;
        points.back().x = 1;
        TQ_Prseq_Events_GetBpfWithGivenName(event, name)->points = std::move(points);
    }

    Prseq& object_;
    const MidiTrack& source_;
    Track& track_;
    std::vector<BpfType*> types_;  ///< of the controllers, in their order
};

/// The first one, at which the bars are counted.
void set_tempo(Prseq& object, const MidiSong& song) {
    let_bars_follow_tempo(object, true);
    const double bpm =
        song.tempos.empty() ? itm_gettempo(*object.transport) : 60e6 / song.tempos.front().quarter_us;
    if (object.bars_follow_tempo) return begin_song(object, bpm);
    itm_settempo(*object.transport, bpm);
    follow_tempo(object);
}

/// Bars up to the end of the timeline, which must be settled.
void set_meter(Prseq& object, const ImportedMeter& meter) {
    for (const BarRegion& region : meter.regions)
        prseq_bar(object, region.measure + object.meter.firstbarnumber, region.beats, region.notevalue);
    if (meter.regions.empty()) TQ_Prseq_Meter_CalculateMeasures(object.meter, object.timelinelength);
}

/// What the song had that the document has not, in one line.
void post_losses(Prseq& object, const std::string& path, const MidiSong& song, const ImportedMeter& meter) {
    std::string text = text_of(song.left_out);
    if (song.tempos.size() > 1)
        text += (text.empty() ? "" : "; ") +
                fmt::sprintf("the tempo changes %zu times, all times are kept", song.tempos.size() - 1);
    if (!meter.off.empty()) text += (text.empty() ? "" : "; ") + meter.off;
    if (!text.empty()) object_post(object, std::filesystem::path(path).filename().string() + ": " + text);
}

std::optional<MidiSong> song_of(const Prseq& object, const std::string& path, std::string_view bytes,
                                const MidiReading& reading) {
    try {
        return read_midi_file(std::as_bytes(std::span(bytes)), reading);
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

std::optional<MidiImport> import_midi_file(Prseq& object, const std::string& path,
                                           const MidiReading& reading) {
    std::string fault;
    if (FileBytes bytes = object.host().patch.read(path, fault))
        return import_midi_bytes(object, path, *bytes, reading);
    object_error(object, fmt::sprintf("could not read \"%s\": %s", path, fault));
    return {};
}

std::optional<MidiImport> import_midi_bytes(Prseq& object, const std::string& path, std::string_view bytes,
                                            const MidiReading& reading) {
    std::optional<MidiSong> song = song_of(object, path, bytes, reading);
    if (!song) return {};
    if (prseq_getdirtyflag(object))
        object.host().patch.keep_copy(object, TQ_Prseq_Json_MakeDictionary(object, true));
    TQ_Prseq_NewFile(object);
    set_tempo(object, *song);
    object.info.title = cut_text(std::filesystem::path(path).stem().string(), longest_title);
    MidiImport import{.tracks = song->tracks.size()};
    for (MidiTrack& track : song->tracks) {
        TrackImport(object, track).run();
        import.notes += track.notes.size();
        track = MidiTrack();  // its memory is needed for the next
    }
    settle_timeline_length(object);
    const ImportedMeter meter = meter_of(*song, object.meter.wholenote);
    set_meter(object, meter);
    TQ_Prseq_Tracks_OutputTrackInfo(object);
    prseq_setdirtyflag(object, false);
    prseq_show(object, Change::Everything);
    post_losses(object, path, *song, meter);
    return import;
}

}  // namespace tq
