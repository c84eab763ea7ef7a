#include "app/midi/reader.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>

#include "app/midi/channel_timeline.h"
#include "app/midi/pedal.h"
#include "app/midi/programs.h"
#include "app/midi/raw_file.h"
#include "app/midi/tempo_map.h"

namespace tq {

namespace {

constexpr int drum_channel = 9;
// Banks, by their coarse numbers, that stand for what a channel is and not for a variation.
constexpr int general_drum_bank = 120;
constexpr int general_melodic_bank = 121;
constexpr int first_extended_drum_bank = 126;

// Many steps under many notes at a time would be a square of the file's size; no music comes near this.
constexpr std::size_t curve_points(std::size_t file_size) { return (std::size_t{1} << 20) + 8 * file_size; }

class SongBuilder {
 public:
    SongBuilder(const RawFile& file, const MidiReading& reading, std::size_t file_size)
        : file_(file),
          reading_(reading),
          tempo_(file),
          timelines_(file),
          points_left_(curve_points(file_size)) {}

    MidiSong build() {
        song_.division = file_.division;
        song_.end = file_.end;
        song_.left_out = file_.left_out;
        song_.length_ms = tempo_.ms(file_.end);
        song_.tempos = tempo_.changes();
        signatures();
        for (std::size_t i = 0; i < file_.tracks.size(); ++i) add_file_track(static_cast<int>(i));
        for (const std::size_t merged : merged_) sort_by_start(song_.tracks[merged]);
        return std::move(song_);
    }

 private:
    // Tracks of one channel, or of one part, found by sound. They are named by place, as `song_.tracks`
    // grows.
    struct VoiceTracks {
        std::map<Voice, std::size_t> by_voice;
        std::optional<Voice> voice;
        std::size_t current = 0;
    };

    void signatures() {
        for (const RawSignature& s : file_.signatures) {
            song_.signatures.push_back({s.tick, tempo_.ms(s.tick), s.beats, s.unit});
        }
        std::ranges::stable_sort(song_.signatures, {}, &TimeSignature::tick);
    }

    void add_file_track(int index) {
        const RawTrack& raw = file_.tracks[static_cast<std::size_t>(index)];
        const bool part = raw.mark != PartMark::None;
        if (raw.mark != PartMark::GoesOn) part_ = {};
        if (raw.channels.empty()) return;
        timelines_.enter(raw);
        const std::size_t first = song_.tracks.size();
        for (const RawChannel& channel : raw.channels) {
            VoiceTracks own;
            add_channel(channel, index, part ? part_ : own);
        }
        name(std::span(song_.tracks).subspan(first), raw.name);
        if (!part) return;
        for (std::size_t i = first; i < song_.tracks.size(); ++i) merged_.push_back(i);
    }

    // A channel that changes its sound becomes one track a sound, since a track has one.
    void add_channel(const RawChannel& raw, int file_track, VoiceTracks& tracks) {
        const ChannelTimeline timeline = timelines_.channel(raw.channel);
        const std::vector<std::int64_t> ends = held_ends(raw, pedal(timeline), file_.end);
        std::size_t program_step = 0;
        Cursors cursors(timeline, reading_.pedal_as_curve);
        for (std::size_t i = 0; i < raw.notes.size(); ++i) {
            const RawNote& note = raw.notes[i];
            while (program_step < timeline.programs.size() && before(timeline.programs[program_step], note))
                ++program_step;
            const Voice voice = program_step == 0
                                    ? voice_of(raw.channel, 0, 0)
                                    : voice_of(raw.channel, timeline.programs[program_step - 1]);
            if (voice != tracks.voice) {
                select(tracks, {.file_track = file_track, .channel = raw.channel, .voice = voice});
                if (timeline.programs.size() <= 1)
                    song_.tracks[tracks.current].notes.reserve(raw.notes.size());
            }
            cursors.advance(note.start);
            add_note(song_.tracks[tracks.current], note, ends[i], cursors);
        }
    }

    /// The steps of the pedal, unless it is to be kept as a curve.
    std::span<const Step> pedal(const ChannelTimeline& timeline) const {
        const auto found =
            std::ranges::find(timeline.controllers, int{Sustain}, &ControllerSteps::controller);
        if (reading_.pedal_as_curve || found == timeline.controllers.end()) return {};
        return found->steps;
    }

    static bool before(const ProgramStep& step, const RawNote& note) {
        return step.tick != note.start ? step.tick < note.start : step.position < note.position;
    }

    Voice voice_of(int channel, const ProgramStep& step) const {
        return voice_of(channel, step.program, step.bank);
    }
    Voice voice_of(int channel, int program, int bank) const {
        const int coarse = bank >> 7;
        const bool drum_bank =
            coarse == general_drum_bank || (file_.extended && coarse >= first_extended_drum_bank);
        if (drum_bank || (channel == drum_channel && coarse != general_melodic_bank))
            return {.program = program, .drums = true};
        return {.program = program,
                .bank = coarse == general_melodic_bank ? 0 : coarse,
                .fine_bank = bank & 0x7f};
    }

    void select(VoiceTracks& tracks, MidiTrack fresh) {
        tracks.voice = fresh.voice;
        const auto [found, added] = tracks.by_voice.try_emplace(fresh.voice, song_.tracks.size());
        if (added) song_.tracks.push_back(std::move(fresh));
        tracks.current = found->second;
    }

    // How far each of a channel's lists of steps has been gone through.
    class Cursor {
     public:
        Cursor(std::span<const Step> steps, double initial) : steps_(steps), value_(initial) {}
        /// Goes behind the steps up to `tick`.
        void advance(std::int64_t tick) {
            for (; !steps_.empty() && steps_.front().tick <= tick; steps_ = steps_.subspan(1))
                value_ = steps_.front().value;
        }
        double value() const { return value_; }
        /// The steps to come.
        std::span<const Step> steps() const { return steps_; }
        /// Whether the value is `level` all the time until `end`.
        bool stays(double level, std::int64_t end) const {
            return value_ == level && (steps_.empty() || steps_.front().tick >= end);
        }

     private:
        std::span<const Step> steps_;
        double value_;
    };
    struct ControllerCursor {
        int controller;
        int key;
        Cursor cursor;
    };
    struct Cursors {
        Cursors(const ChannelTimeline& timeline, bool with_pedal) : bend(timeline.bends, 0) {
            for (const ControllerSteps& steps : timeline.controllers)
                if (with_pedal || steps.controller != Sustain)
                    controllers.push_back({steps.controller, steps.key,
                                           Cursor(steps.steps, controller_initial(steps.controller))});
        }
        void advance(std::int64_t tick) {
            bend.advance(tick);
            for (ControllerCursor& c : controllers) c.cursor.advance(tick);
        }
        Cursor bend;
        std::vector<ControllerCursor> controllers;
    };

    void add_note(MidiTrack& track, const RawNote& raw, std::int64_t end, const Cursors& cursors) {
        const double start_ms = tempo_.ms(raw.start);
        MidiNote note{start_ms, tempo_.ms(end) - start_ms, {}, raw.key, raw.velocity};
        if (!cursors.bend.stays(0, end)) note.bend = add_curve(track.bends, {raw, note, end}, cursors.bend);
        for (const ControllerCursor& c : cursors.controllers) {
            if (c.key != ControllerSteps::all_keys && c.key != raw.key) continue;
            if (c.cursor.stays(controller_initial(c.controller), end)) continue;
            ControllerCurves& curves = curves_of(track, c.controller);
            curves.notes.resize(track.notes.size());
            curves.notes.push_back(add_curve(curves.points, {raw, note, end}, c.cursor));
        }
        track.notes.push_back(note);
    }

    static ControllerCurves& curves_of(MidiTrack& track, int controller) {
        const auto found = std::ranges::find(track.controllers, controller, &ControllerCurves::controller);
        if (found != track.controllers.end()) return *found;
        return track.controllers.emplace_back(ControllerCurves{controller, {}, {}});
    }

    struct Under {
        const RawNote& raw;
        const MidiNote& note;
        std::int64_t end;
    };

    // What is held is drawn as it sounds: level lines joined by steps.
    CurveRange add_curve(std::vector<CurvePoint>& points, const Under& under, const Cursor& cursor) {
        const auto first = static_cast<std::uint32_t>(points.size());
        double level = cursor.value();
        add_point(points, {0, level}, under.raw);
        for (const Step& step : cursor.steps()) {
            if (step.tick >= under.end) break;
            const double ms = tempo_.ms(step.tick) - under.note.start_ms;
            add_point(points, {ms, level}, under.raw);
            level = step.value;
            add_point(points, {ms, level}, under.raw);
        }
        add_point(points, {under.note.duration_ms, level}, under.raw);
        return {first, static_cast<std::uint32_t>(points.size() - first)};
    }

    void add_point(std::vector<CurvePoint>& points, CurvePoint point, const RawNote& note) {
        if (points_left_ == 0)
            throw MidiError("more bends and controllers than can be kept, under the note", note.position);
        --points_left_;
        points.push_back(point);
    }

    // The notes of a part come channel by channel.
    static void sort_by_start(MidiTrack& track) {
        std::vector<std::size_t> order(track.notes.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::ranges::stable_sort(order, {}, [&](std::size_t i) { return track.notes[i].start_ms; });
        const auto sort = [&](auto& list) {
            list.resize(order.size());
            auto sorted = list;
            for (std::size_t i = 0; i < order.size(); ++i) sorted[i] = list[order[i]];
            list = std::move(sorted);
        };
        sort(track.notes);
        for (ControllerCurves& curves : track.controllers) sort(curves.notes);
    }

    // A track of the file that became several tells them apart by their sound, and where that is the same,
    // by their channel.
    static void name(std::span<MidiTrack> tracks, const std::string& given) {
        std::map<std::string, int> uses;
        for (MidiTrack& track : tracks) {
            const std::string sound(track.voice.drums ? "Drums" : midi_program_name(track.voice.program));
            track.name = given.empty() ? sound : tracks.size() == 1 ? given : given + ": " + sound;
            ++uses[track.name];
        }
        if (given.empty()) return;
        for (MidiTrack& track : tracks) {
            if (uses[track.name] > 1) track.name += " (channel " + std::to_string(track.channel + 1) + ")";
        }
    }

    const RawFile& file_;
    MidiReading reading_;
    TempoMap tempo_;
    Timelines timelines_;
    std::size_t points_left_;
    VoiceTracks part_;                 // the part that goes on
    std::vector<std::size_t> merged_;  // tracks that are parts
    MidiSong song_;
};

}  // namespace

MidiSong read_midi_file(std::span<const std::byte> file, const MidiReading& reading) {
    const RawFile raw = parse_midi_file(file);
    return SongBuilder(raw, reading, file.size()).build();
}

}  // namespace tq
