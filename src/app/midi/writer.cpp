#include "app/midi/writer.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <map>
#include <stdexcept>

#include "app/midi/channel_moves.h"
#include "app/midi/lanes.h"
#include "app/midi/part_mark.h"
#include "app/midi/shared_channel.h"
#include "app/midi/timing.h"
#include "app/midi/track_writer.h"

namespace tq {

namespace {

using Order = TrackWriter::Order;

constexpr int widest_range = 96;
constexpr double stair_ms = 5;
constexpr double ringing_ms = 500;
constexpr double slack_ms = 1;  // by so much rounding may set the curves of two notes apart
constexpr double latest_ms = 1e10;

bool writable(const PartNote& note) {
    const auto time = [](double ms) { return ms >= 0 && ms <= latest_ms; };
    return time(note.start_ms) && time(note.duration_ms) && std::isfinite(note.pitch) &&
           std::isfinite(note.velocity) && is_finite(note.curve) &&
           std::ranges::all_of(note.controllers,
                               [](const ControllerCurve& c) { return is_finite(c.points); });
}

std::vector<const PartNote*> in_order(const MidiPart& part, const WrittenClock& clock) {
    std::vector<const PartNote*> notes;
    for (const PartNote& note : part.notes) {
        if (writable(note)) notes.push_back(&note);
    }
    std::ranges::stable_sort(notes, {}, [&](const PartNote* note) { return clock.tick(note->start_ms); });
    return notes;
}

class PartWriter {
 public:
    PartWriter(ChannelPlan& plan, const MidiPart& part, const WrittenClock& clock, int& next_port)
        : part_(part),
          clock_(clock),
          home_(plan.next_home(part.voice.drums)),
          dealer_(plan, home_, part.voice.drums, clock.tick(ringing_ms)),
          shared_(clock.tick(slack_ms)),
          next_port_(next_port) {}

    std::vector<TrackWriter> tracks() {
        track(0);
        for (const PartNote* note : in_order(part_, clock_)) add(*note);
        return std::move(tracks_);
    }

 private:
    // What a lane's instrument has been told so far; of what is not there, nothing.
    struct LaneState {
        bool ready = false;
        int range = 0;
        std::map<int, int> values;
    };

    TrackWriter& track(int layer) {
        while (std::ssize(tracks_) <= layer) {
            TrackWriter& fresh = tracks_.emplace_back();
            if (!part_.name.empty()) fresh.meta(0x03, std::string_view(part_.name).substr(0, 1000));
            fresh.meta(0x7f, tracks_.size() == 1 ? part_begins : part_goes_on);
            const int port = tracks_.size() == 1 ? home_.port : next_port_++ % 128;
            const char byte = static_cast<char>(port);
            if (port > 0) fresh.meta(0x21, {&byte, 1});
        }
        return tracks_[static_cast<std::size_t>(layer)];
    }

    struct Span {
        std::int64_t start, end;
    };

    void add(const PartNote& note) {
        const KeyBend bend = key_bend(note.pitch, note.curve, widest_range);
        const Span span{clock_.tick(note.start_ms), clock_.tick(note.start_ms + note.duration_ms)};
        const std::vector<WrittenMove> moves = moves_of(note, bend, span);
        std::vector<WrittenMove> controllers;
        std::ranges::copy_if(moves, std::back_inserter(controllers),
                             [](const WrittenMove& move) { return move.what != pitch_wheel; });
        const bool alone = bend.bent || !shared_.suits(controllers, span.start, span.end);
        const std::size_t index = dealer_.deal(span.start, span.end, bend.key, alone);
        const Lane lane = dealer_.lanes()[index];
        if (index >= states_.size()) states_.resize(index + 1);
        TrackWriter& out = track(lane.layer);
        prepare(out, lane.channel, states_[index], span.start, bend.bent ? bend.range : 0);
        if (index == 0)
            tell(out, lane.channel, shared_.take(controllers, span.start, span.end));
        else
            tell(out, lane.channel, news(states_[index], moves));
        const auto velocity = static_cast<int>(std::lround(std::clamp(note.velocity, 1.0, 127.0)));
        out.message(span.start, Order::Press, 0x90 | lane.channel, bend.key, velocity);
        out.message(span.end, span.end > span.start ? Order::Release : Order::ReleaseAtOnce,
                    0x80 | lane.channel, bend.key, 64);
    }

    std::vector<WrittenMove> moves_of(const PartNote& note, const KeyBend& bend, const Span& span) const {
        std::vector<WrittenMove> moves;
        for (const ChannelMove& move :
             channel_moves({bend, note.pitch, note.curve, note.controllers, note.duration_ms}, stair_ms)) {
            std::int64_t tick = clock_.tick(note.start_ms + move.ms);
            // Where a curve ends is told just before the note does, or it would not be heard.
            if (tick >= span.end && move.ms > 0) tick = std::max(span.end - 1, span.start);
            const bool of_key = move.what == KeyPressure;
            moves.push_back({tick, of_key ? KeyPressure + 1 + bend.key : move.what, move.value});
        }
        return moves;
    }

    // Each lane says its sound and bend itself, and its range when it bends, so that no other track's can be
    // taken for its own.
    void prepare(TrackWriter& out, int channel, LaneState& state, std::int64_t tick, int range) {
        if (!state.ready) {
            state.ready = true;
            if (part_.voice.bank > 0 || part_.voice.fine_bank > 0) {
                out.message(0, Order::Setup, 0xb0 | channel, BankCoarse, part_.voice.bank);
                out.message(0, Order::Setup, 0xb0 | channel, BankFine, part_.voice.fine_bank);
            }
            out.message(0, Order::Setup, 0xc0 | channel, std::clamp(part_.voice.program, 0, 127));
            out.message(0, Order::Setup, 0xe0 | channel, 0, 64);
            state.values[pitch_wheel] = 8192;
        }
        if (range == 0 || range == state.range) return;
        state.range = range;
        const int selected[][2] = {{101, 0}, {100, 0}, {6, range}, {38, 0}, {101, 127}, {100, 127}};
        for (const auto& [number, value] : selected)
            out.message(tick, Order::Setup, 0xb0 | channel, number, value);
    }

    static std::vector<WrittenMove> news(LaneState& state, const std::vector<WrittenMove>& moves) {
        std::vector<WrittenMove> result;
        for (const WrittenMove& move : moves) {
            const auto [known, added] = state.values.try_emplace(move.what, move.value);
            if (!added && known->second == move.value) continue;
            known->second = move.value;
            result.push_back(move);
        }
        return result;
    }

    static void tell(TrackWriter& out, int channel, const std::vector<WrittenMove>& moves) {
        for (const WrittenMove& move : moves) {
            if (move.what == pitch_wheel)
                out.message(move.tick, Order::Setup, 0xe0 | channel, move.value & 0x7f, move.value >> 7);
            else if (move.what == ChannelPressure)
                out.message(move.tick, Order::Setup, 0xd0 | channel, move.value);
            else if (move.what > KeyPressure)
                out.message(move.tick, Order::Setup, 0xa0 | channel, move.what - KeyPressure - 1, move.value);
            else
                out.message(move.tick, Order::Setup, 0xb0 | channel, move.what, move.value);
        }
    }

    const MidiPart& part_;
    const WrittenClock& clock_;
    ChannelPlan::Home home_;
    LaneDealer dealer_;
    SharedChannel shared_;  // the home channel
    int& next_port_;
    std::vector<TrackWriter> tracks_;
    std::vector<LaneState> states_;
};

std::string big_endian(std::int64_t value, int bytes) {
    std::vector<std::byte> out;
    append_number(out, static_cast<std::uint64_t>(value), bytes);
    return {reinterpret_cast<const char*>(out.data()), out.size()};
}

TrackWriter meter_track(const PartMeter& meter, const WrittenClock& clock) {
    constexpr int clocks_a_quarter = 24;
    TrackWriter track;
    track.meta(0x51, big_endian(clock.quarter_us(), 3));
    for (const PartSignature& s : meter.signatures) {
        const int power = std::countr_zero(static_cast<unsigned>(s.unit));
        const std::string data = big_endian(s.beats, 1) + big_endian(power, 1) +
                                 big_endian(std::max(4 * clocks_a_quarter / s.unit, 1), 1) + big_endian(8, 1);
        track.meta(0x58, data, std::llround(s.quarters * clock.division()));
    }
    return track;
}

}  // namespace

std::vector<std::byte> write_midi_file(std::span<const MidiPart> parts, const PartMeter& meter) {
    const WrittenClock clock(meter.bpm);
    // All homes come first, so that no part's bends take a channel that another part lives on.
    ChannelPlan plan;
    const auto melodic = std::ranges::count_if(parts, [](const MidiPart& part) { return !part.voice.drums; });
    int next_port = 1 + static_cast<int>(melodic) / 15;
    std::vector<PartWriter> writers;
    writers.reserve(parts.size());
    for (const MidiPart& part : parts) writers.emplace_back(plan, part, clock, next_port);
    std::vector<TrackWriter> tracks = {meter_track(meter, clock)};
    for (PartWriter& writer : writers) std::ranges::move(writer.tracks(), std::back_inserter(tracks));
    if (tracks.size() > 0xffff) throw std::length_error("the notes need more tracks than a MIDI file has");
    std::vector<std::byte> file;
    append_text(file, "MThd");
    append_number(file, 6, 4);
    append_number(file, 1, 2);
    append_number(file, tracks.size(), 2);
    append_number(file, static_cast<std::uint64_t>(clock.division()), 2);
    for (TrackWriter& track : tracks) track.write(file);
    return file;
}

}  // namespace tq
