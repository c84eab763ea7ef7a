#include "app/midi/writer.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "app/midi/key_bend.h"
#include "app/midi/lanes.h"
#include "app/midi/timing.h"
#include "app/midi/track_writer.h"

namespace tq {

namespace {

using Order = TrackWriter::Order;

constexpr int widest_range = 96;
constexpr double stair_ms = 5;
constexpr double latest_ms = 1e10;

bool writable(const PartNote& note) {
    const auto time = [](double ms) { return ms >= 0 && ms <= latest_ms; };
    return time(note.start_ms) && time(note.duration_ms) && std::isfinite(note.pitch) &&
           std::isfinite(note.velocity) && std::ranges::all_of(note.curve, [](const PitchPoint& p) {
               return std::isfinite(p.ms) && std::isfinite(p.pitch);
           });
}

std::vector<const PartNote*> in_order(const MidiPart& part) {
    std::vector<const PartNote*> notes;
    for (const PartNote& note : part.notes) {
        if (writable(note)) notes.push_back(&note);
    }
    std::ranges::stable_sort(notes, {}, [](const PartNote* note) { return written_tick(note->start_ms); });
    return notes;
}

class PartWriter {
 public:
    PartWriter(ChannelPlan& plan, const MidiPart& part, int& next_port)
        : part_(part),
          home_(plan.next_home(part.drums)),
          dealer_(plan, home_, part.drums),
          next_port_(next_port) {}

    std::vector<TrackWriter> tracks() {
        track(0);
        for (const PartNote* note : in_order(part_)) add(*note);
        return std::move(tracks_);
    }

 private:
    // What a lane's instrument has been told so far.
    struct LaneState {
        bool ready = false;
        int range = 0;  // unsaid
        int wheel = 8192;
    };

    TrackWriter& track(int layer) {
        while (std::ssize(tracks_) <= layer) {
            TrackWriter& fresh = tracks_.emplace_back();
            if (!part_.name.empty()) fresh.meta(0x03, std::string_view(part_.name).substr(0, 1000));
            const int port = tracks_.size() == 1 ? home_.port : next_port_++ % 128;
            const char byte = static_cast<char>(port);
            if (port > 0) fresh.meta(0x21, {&byte, 1});
        }
        return tracks_[static_cast<std::size_t>(layer)];
    }

    void add(const PartNote& note) {
        const KeyBend bend = key_bend(note.pitch, note.curve, widest_range);
        const std::int64_t start = written_tick(note.start_ms);
        const std::int64_t end = written_tick(note.start_ms + note.duration_ms);
        const std::size_t index = dealer_.deal(start, end, bend.key, bend.bent);
        const Lane lane = dealer_.lanes()[index];
        if (index >= states_.size()) states_.resize(index + 1);
        TrackWriter& out = track(lane.layer);
        prepare(out, lane.channel, states_[index], start, bend.bent ? bend.range : 0);
        if (index > 0) move_wheel(out, lane.channel, states_[index], note, bend);
        const auto velocity = static_cast<int>(std::lround(std::clamp(note.velocity, 1.0, 127.0)));
        out.message(start, Order::Press, 0x90 | lane.channel, bend.key, velocity);
        out.message(end, end > start ? Order::Release : Order::ReleaseAtOnce, 0x80 | lane.channel, bend.key,
                    64);
    }

    // Each lane says its program and bend itself, and its range when it bends, so that no other
    // track's can be taken for its own.
    void prepare(TrackWriter& out, int channel, LaneState& state, std::int64_t tick, int range) {
        if (!state.ready) {
            state.ready = true;
            out.message(0, Order::Setup, 0xc0 | channel, std::clamp(part_.program, 0, 127));
            out.message(0, Order::Setup, 0xe0 | channel, 0, 64);
        }
        if (range == 0 || range == state.range) return;
        state.range = range;
        const int selected[][2] = {{101, 0}, {100, 0}, {6, range}, {38, 0}, {101, 127}, {100, 127}};
        for (const auto& [number, value] : selected)
            out.message(tick, Order::Setup, 0xb0 | channel, number, value);
    }

    void move_wheel(TrackWriter& out, int channel, LaneState& state, const PartNote& note,
                    const KeyBend& bend) {
        const std::int64_t end = written_tick(note.start_ms + note.duration_ms);
        for (const WheelMove& move : wheel_moves(bend, note.pitch, note.curve, note.duration_ms, stair_ms)) {
            std::int64_t tick = written_tick(note.start_ms + move.ms);
            // Where the curve ends is told just before the note does, or it would not be heard.
            if (tick >= end && move.ms > 0) tick = std::max(end - 1, written_tick(note.start_ms));
            if (move.wheel == state.wheel) continue;
            state.wheel = move.wheel;
            out.message(tick, Order::Setup, 0xe0 | channel, move.wheel & 0x7f, move.wheel >> 7);
        }
    }

    const MidiPart& part_;
    ChannelPlan::Home home_;
    LaneDealer dealer_;
    int& next_port_;
    std::vector<TrackWriter> tracks_;
    std::vector<LaneState> states_;
};

TrackWriter tempo_track() {
    TrackWriter track;
    std::vector<std::byte> tempo;
    append_number(tempo, written_quarter_us, 3);
    track.meta(0x51, {reinterpret_cast<const char*>(tempo.data()), tempo.size()});
    return track;
}

}  // namespace

std::vector<std::byte> write_midi_file(std::span<const MidiPart> parts) {
    // All homes come first, so that no part's bends take a channel that another part lives on.
    ChannelPlan plan;
    const auto melodic = std::ranges::count(parts, false, &MidiPart::drums);
    int next_port = 1 + static_cast<int>(melodic) / 15;
    std::vector<PartWriter> writers;
    writers.reserve(parts.size());
    for (const MidiPart& part : parts) writers.emplace_back(plan, part, next_port);
    std::vector<TrackWriter> tracks = {tempo_track()};
    for (PartWriter& writer : writers) std::ranges::move(writer.tracks(), std::back_inserter(tracks));
    if (tracks.size() > 0xffff) throw std::length_error("the notes need more tracks than a MIDI file has");
    std::vector<std::byte> file;
    append_text(file, "MThd");
    append_number(file, 6, 4);
    append_number(file, 1, 2);
    append_number(file, tracks.size(), 2);
    append_number(file, written_division, 2);
    for (TrackWriter& track : tracks) track.write(file);
    return file;
}

}  // namespace tq
