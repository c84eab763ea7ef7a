#include "app/midi/reader.h"

#include <algorithm>
#include <map>

#include "app/midi/channel_timeline.h"
#include "app/midi/programs.h"
#include "app/midi/raw_file.h"
#include "app/midi/tempo_map.h"

namespace tq {

namespace {

constexpr int drum_channel = 9;

// Many bends under many notes at a time would be a square of the file's size; no music comes near this.
constexpr std::size_t bend_points(std::size_t file_size) { return (std::size_t{1} << 20) + 4 * file_size; }

class SongBuilder {
 public:
    SongBuilder(const RawFile& file, std::size_t file_size)
        : file_(file), tempo_(file), timelines_(file), bends_left_(bend_points(file_size)) {}

    MidiSong build() {
        song_.ignored_messages = file_.ignored_messages;
        song_.length_ms = tempo_.ms(file_.end);
        song_.tempos = tempo_.changes();
        signatures();
        for (std::size_t i = 0; i < file_.tracks.size(); ++i) add_file_track(static_cast<int>(i));
        return std::move(song_);
    }

 private:
    // Tracks of one channel, found by program. The tracks are named by place, as `song_.tracks` grows.
    struct ChannelTracks {
        std::map<int, std::size_t> by_program;
        int program = -1;
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
        if (raw.channels.empty()) return;
        timelines_.enter(raw);
        const std::size_t first = song_.tracks.size();
        for (const RawChannel& channel : raw.channels) add_channel(channel, index);
        name(std::span(song_.tracks).subspan(first), raw.name);
    }

    // A channel that changes its program becomes one track a program, since a track has one sound. A drum
    // channel stays one track: its programs are kits of the same drums.
    void add_channel(const RawChannel& raw, int file_track) {
        const ChannelTimeline timeline = timelines_.channel(raw.channel);
        const bool drums = raw.channel == drum_channel;
        ChannelTracks tracks;
        std::size_t program_step = 0;
        std::size_t bend_step = 0;
        for (const RawNote& note : raw.notes) {
            while (program_step < timeline.programs.size() && before(timeline.programs[program_step], note))
                ++program_step;
            while (bend_step < timeline.bends.size() && timeline.bends[bend_step].tick <= note.start)
                ++bend_step;
            const int program = program_step == 0 ? 0 : timeline.programs[program_step - 1].program;
            if (program != tracks.program && (!drums || tracks.program < 0)) {
                select(tracks, program, {{}, file_track, raw.channel, program, drums, {}, {}});
                if (timeline.programs.size() <= 1)
                    song_.tracks[tracks.current].notes.reserve(raw.notes.size());
            }
            add_note(song_.tracks[tracks.current], note, timeline.bends, bend_step);
        }
    }

    static bool before(const ProgramStep& step, const RawNote& note) {
        return step.tick != note.start ? step.tick < note.start : step.position < note.position;
    }

    void select(ChannelTracks& tracks, int program, MidiTrack fresh) {
        const auto [found, added] = tracks.by_program.try_emplace(program, song_.tracks.size());
        if (added) song_.tracks.push_back(std::move(fresh));
        tracks.program = program;
        tracks.current = found->second;
    }

    void add_note(MidiTrack& track, const RawNote& raw, std::span<const BendStep> bends, std::size_t next) {
        const std::int64_t end = raw.end == RawNote::open ? file_.end : raw.end;
        const double start_ms = tempo_.ms(raw.start);
        MidiNote note{start_ms, tempo_.ms(end) - start_ms, 0, 0, raw.key, raw.velocity};
        const double offset = next == 0 ? 0 : bends[next - 1].semitones;
        const bool bends_inside = next < bends.size() && bends[next].tick < end;
        if (offset != 0 || bends_inside) {
            note.first_bend = static_cast<std::uint32_t>(track.bends.size());
            add_curve(track, note, {raw, end, offset}, bends.subspan(next));
            note.bend_count = static_cast<std::uint32_t>(track.bends.size() - note.first_bend);
        }
        track.notes.push_back(note);
    }

    struct Bending {
        const RawNote& note;
        std::int64_t end;
        double offset;  // semitones, at the start
    };

    // Held bends are drawn as they sound: level lines joined by steps.
    void add_curve(MidiTrack& track, const MidiNote& note, const Bending& bending,
                   std::span<const BendStep> steps) {
        double level = bending.offset;
        add_point(track, {0, level}, bending.note);
        for (const BendStep& step : steps) {
            if (step.tick >= bending.end) break;
            const double ms = tempo_.ms(step.tick) - note.start_ms;
            add_point(track, {ms, level}, bending.note);
            level = step.semitones;
            add_point(track, {ms, level}, bending.note);
        }
        add_point(track, {note.duration_ms, level}, bending.note);
    }

    void add_point(MidiTrack& track, BendPoint point, const RawNote& note) {
        if (bends_left_ == 0)
            throw MidiError("more pitch bends than can be kept, under the note", note.position);
        --bends_left_;
        track.bends.push_back(point);
    }

    // A track of the file that became several tells them apart by their sound, and where that is the same,
    // by their channel.
    static void name(std::span<MidiTrack> tracks, const std::string& given) {
        std::map<std::string, int> uses;
        for (MidiTrack& track : tracks) {
            const std::string sound(track.drums ? "Drums" : midi_program_name(track.program));
            track.name = given.empty() ? sound : tracks.size() == 1 ? given : given + ": " + sound;
            ++uses[track.name];
        }
        if (given.empty()) return;
        for (MidiTrack& track : tracks) {
            if (uses[track.name] > 1) track.name += " (channel " + std::to_string(track.channel + 1) + ")";
        }
    }

    const RawFile& file_;
    TempoMap tempo_;
    Timelines timelines_;
    std::size_t bends_left_;
    MidiSong song_;
};

}  // namespace

MidiSong read_midi_file(std::span<const std::byte> file) {
    const RawFile raw = parse_midi_file(file);
    return SongBuilder(raw, file.size()).build();
}

}  // namespace tq
