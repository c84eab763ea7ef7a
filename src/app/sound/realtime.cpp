#include "app/sound/realtime.h"

#include <algorithm>
#include <cmath>

namespace tq {

RealtimePlayer::RealtimePlayer(const std::string& sound_font, double rate, double latency_ms)
    : rate_(rate), latency_(sample_at(latency_ms, rate)), synth_(sound_font, rate), offset_(latency_) {}

RealtimePlayer::~RealtimePlayer() = default;

void RealtimePlayer::start(double ms) { send({Command::Kind::Start, sample_at(ms, rate_)}); }

void RealtimePlayer::note(const PlayedNote& note) {
    if (!is_audible(note)) return;
    auto worked_out = std::make_unique<SynthNote>(synth_note(note, source(note.source), rate_));
    const std::int64_t at = worked_out->start;
    send({Command::Kind::Note, at, std::move(worked_out)});
}

void RealtimePlayer::stop(const std::string& name, double ms) {
    send({Command::Kind::Stop, sample_at(ms, rate_), nullptr, {.source = source(name)}});
}

void RealtimePlayer::stop_track(long track, double ms) {
    send({Command::Kind::Stop, sample_at(ms, rate_), nullptr, {.track = track}});
}

void RealtimePlayer::stop_all(double ms) { send({Command::Kind::Stop, sample_at(ms, rate_)}); }

// Memory is asked for and given back here, never by the audio thread.
void RealtimePlayer::send(Command command) {
    used_.take([](std::unique_ptr<Command>) {});
    synth_.collect();
    commands_.put(std::make_unique<Command>(std::move(command)));
}

int RealtimePlayer::source(const std::string& name) {
    return sources_.try_emplace(name, static_cast<int>(sources_.size())).first->second;
}

void RealtimePlayer::render(float* left, float* right, int frames) {
    commands_.take([this](std::unique_ptr<Command> command) {
        run(*command);
        used_.put(std::move(command));
    });
    synth_.set_volume(std::clamp(volume_.load(), 0.f, 1.f));
    synth_.render(left, right, frames);
    sounding_ = synth_.sounding();
    note_peak(left, right, frames);
}

/// Whoever takes the peak meanwhile is not waited for.
void RealtimePlayer::note_peak(const float* left, const float* right, int frames) {
    float highest = 0;
    for (int i = 0; i < frames; ++i) highest = std::max({highest, std::abs(left[i]), std::abs(right[i])});
    float before = peak_.load(std::memory_order_relaxed);
    while (highest > before && !peak_.compare_exchange_weak(before, highest, std::memory_order_relaxed))
        continue;
}

void RealtimePlayer::run(Command& command) {
    switch (command.kind) {
        case Command::Kind::Start:
            offset_ = synth_.position() - command.at + latency_;
            break;
        case Command::Kind::Note:
            command.note->start = on_device(command.at);
            synth_.note(std::move(command.note));
            break;
        case Command::Kind::Stop:
            synth_.stop(command.stop, on_device(command.at));
            break;
    }
}

// When something comes too late (a stalled main thread, a device whose clock is slow), all that follows is
// put off with it: the rhythm stays, and only this moment is stretched.
std::int64_t RealtimePlayer::on_device(std::int64_t at) {
    const std::int64_t late_by = synth_.position() - (at + offset_);
    if (late_by > 0) {
        offset_ += late_by;
        ++late_;
    }
    return at + offset_;
}

}  // namespace tq
