#include "app/sound/synth.h"

#include <algorithm>
#include <cmath>

namespace tq {

namespace {

constexpr float full_volume = 0.4f;  // a dense piece stays below ±1 nearly always
constexpr float round_from = 0.8f;   // from this level on, loudness is rounded off towards 1

constexpr std::size_t usual_room = 1 << 15;  // notes, more than music has at a time
constexpr std::size_t most_stops = 1 << 12;
constexpr std::size_t events_of_note = 2;  // that wait at a time: its end and a move of the wheel

float rounded_off(float sample) {
    const float level = std::abs(sample);
    if (level <= round_from) return sample;
    const float rest = 1 - round_from;
    return std::copysign(round_from + rest * std::tanh((level - round_from) / rest), sample);
}

VoicePool::Handle handle(const SynthNote& note) {
    return {note.playing.engine, note.playing.channel, note.playing.id};
}

}  // namespace

// std's heaps have the greatest first; the greatest is the one that comes next. Starts and stops keep the
// order in which they were handed in.
bool Synth::Event::operator<(const Event& other) const {
    const auto rank = [](Kind k) { return k == Kind::End ? 0 : k == Kind::Move ? 2 : 1; };
    if (sample != other.sample) return sample > other.sample;
    if (rank(kind) != rank(other.kind)) return rank(kind) > rank(other.kind);
    return number > other.number;
}

Synth::Synth(const std::string& sound_font, double rate) : pool_(sound_font, rate), samples_(rate) {
    make_room(usual_room);
}

void Synth::make_room(std::size_t notes) {
    room_ = std::max(room_, notes);
    events_.reserve(events_of_note * room_ + most_stops);
    sounding_.reserve(room_);
}

Synth::~Synth() {
    samples_.clear([this](SynthNote& note) { forget(note); });
    // A note belongs to its events; one that sounds has an end to come.
    while (!events_.empty()) {
        SynthNote* note = events_.back().note;
        events_.pop_back();
        if (note && --note->playing.events == 0) over_.put(std::unique_ptr<SynthNote>(note));
    }
}

void Synth::push(const Event& event) {
    if (event.note) ++event.note->playing.events;
    events_.push_back(event);
    std::push_heap(events_.begin(), events_.end());
}

void Synth::note(std::unique_ptr<SynthNote> note) {
    if (taken_ == room_) return over_.put(std::move(note));
    ++taken_;
    SynthNote* taken = note.release();
    push({taken->start, handed_in_++, Kind::Start, taken, {}});
}

void Synth::stop(const SynthStop& what, std::int64_t sample) {
    if (stops_ == most_stops) return stop_now(what);
    ++stops_;
    push({sample, handed_in_++, Kind::Stop, nullptr, what});
}

void Synth::run(const Event& event) {
    switch (event.kind) {
        case Kind::Start:
            start(*event.note);
            break;
        case Kind::Move:
            move(*event.note);
            break;
        case Kind::End:
            end(*event.note);
            break;
        case Kind::Stop:
            --stops_;
            stop_now(event.stop);
            break;
    }
    if (event.note) forget(*event.note);
}

void Synth::start(SynthNote& note) {
    auto& playing = note.playing;
    if (note.sample) {
        if (samples_.start(note, position_ - note.start)) ++playing.events;
    } else {
        const VoicePool::Handle started = pool_.start(note);
        playing.engine = started.engine;
        playing.channel = started.channel;
        playing.id = started.id;
    }
    playing.sounds = true;
    playing.place = sounding_.size();
    const auto later =
        std::ranges::find_if(note.moves, [](const SampleMove& move) { return move.sample > 0; });
    playing.move = static_cast<std::size_t>(later - note.moves.begin());
    sounding_.push_back(&note);
    push({std::max(note.start + note.duration, position_), handed_in_++, Kind::End, &note, {}});
    push_next_move(note);
}

void Synth::move(SynthNote& note) {
    auto& playing = note.playing;
    if (!playing.sounds) return;
    const std::int64_t sample = note.moves[playing.move].sample;
    for (; playing.move < note.moves.size() && note.moves[playing.move].sample == sample; ++playing.move)
        pool_.move(handle(note), note, note.moves[playing.move]);
    push_next_move(note);
}

void Synth::push_next_move(SynthNote& note) {
    if (note.playing.move == note.moves.size()) return;
    push({note.start + note.moves[note.playing.move].sample, handed_in_++, Kind::Move, &note, {}});
}

void Synth::end(SynthNote& note) {
    auto& playing = note.playing;
    if (!playing.sounds) return;
    playing.sounds = false;
    if (!note.sample) pool_.release(handle(note));  // a sample ends by itself
    sounding_[playing.place] = sounding_.back();
    sounding_[playing.place]->playing.place = playing.place;
    sounding_.pop_back();
}

void Synth::stop_now(const SynthStop& what) {
    for (std::size_t i = sounding_.size(); i-- > 0;) {
        SynthNote& note = *sounding_[i];
        if (what.source != SynthStop::any && note.source != what.source) continue;
        if (what.track != SynthStop::any && note.track != what.track) continue;
        if (note.sample) samples_.fade(note);
        end(note);
    }
}

void Synth::forget(SynthNote& note) {
    if (--note.playing.events > 0) return;
    --taken_;
    over_.put(std::unique_ptr<SynthNote>(&note));
}

void Synth::render(float* left, float* right, int frames) {
    std::fill_n(left, frames, 0.f);
    std::fill_n(right, frames, 0.f);
    int done = 0;
    while (done < frames) {
        while (!events_.empty() && events_.front().sample <= position_) {
            std::pop_heap(events_.begin(), events_.end());
            const Event event = events_.back();
            events_.pop_back();
            run(event);
        }
        std::int64_t part = frames - done;
        if (!events_.empty()) part = std::min(part, events_.front().sample - position_);
        mix(left + done, right + done, static_cast<int>(part));
        position_ += part;
        done += static_cast<int>(part);
    }
    finish(left, right, frames);
}

void Synth::mix(float* left, float* right, int frames) {
    pool_.mix(left, right, frames);
    samples_.mix(left, right, frames, [this](SynthNote& note) { forget(note); });
}

void Synth::finish(float* left, float* right, int frames) {
    const float step = (volume_ - volume_before_) / static_cast<float>(std::max(frames, 1));
    for (int i = 0; i < frames; ++i) {
        volume_before_ += step;
        left[i] = rounded_off(left[i] * volume_before_ * full_volume);
        right[i] = rounded_off(right[i] * volume_before_ * full_volume);
    }
    volume_before_ = volume_;
}

void Synth::set_volume(double volume) {
    volume_ = static_cast<float>(volume);
    if (position_ == 0) volume_before_ = volume_;
}

void Synth::collect() {
    over_.take([](std::unique_ptr<SynthNote>) {});
}

}  // namespace tq
