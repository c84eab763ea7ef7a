#include "app/sound/synth_note.h"

#include <algorithm>
#include <cmath>

namespace tq {

namespace {

constexpr int widest_range = 72;  // semitones that the synthesiser's wheel reaches
constexpr double step_ms = 2;
constexpr double latest_ms = 1e10;
constexpr double truncated_ms = 1;  // durations are sent in whole ms; an event may last longer by nearly that

SynthSample synth_sample(const PlayedSample& played, double velocity, std::int64_t duration, double rate) {
    const auto frames = static_cast<double>(played.sound->frames());
    const auto frame_at = [&](double ms) {
        return std::clamp(std::nearbyint(ms * played.sound->rate / 1000), 0., frames);
    };
    const double begin = frame_at(played.start_ms), end = std::max(frame_at(played.end_ms), begin);
    SynthSample sample{.sound = played.sound, .begin = static_cast<std::int64_t>(begin)};
    sample.speed = played.speed * played.sound->rate / rate;
    sample.level = static_cast<float>(std::clamp(velocity / 127, 0., 1.));
    const double length = std::ceil((end - begin) / sample.speed - 1e-6);
    sample.cut = length >= static_cast<double>(duration + sample_at(truncated_ms, rate));
    sample.length = sample.cut ? duration : static_cast<std::int64_t>(length);
    return sample;
}

std::vector<ControllerCurve> heard_controllers(const PlayedNote& note) {
    std::vector<ControllerCurve> heard;
    for (const ControllerCurve& curve : note.controllers)
        if (controller_is_heard(curve.controller) && !stays_initial(curve)) heard.push_back(curve);
    return heard;
}

}  // namespace

std::int64_t sample_at(double ms, double rate) { return std::llround(ms * rate / 1000); }

SynthNote synth_note(const PlayedNote& note, int source, double rate) {
    SynthNote result;
    result.start = sample_at(note.ms, rate);
    result.duration = sample_at(note.ms + note.duration_ms, rate) - result.start;
    result.source = source;
    result.track = note.track;
    result.voice = note.voice;
    result.velocity = static_cast<int>(std::lround(std::clamp(note.velocity, 1.0, 127.0)));
    if (note.sample) {
        result.sample = synth_sample(*note.sample, note.velocity, result.duration, rate);
        return result;
    }
    result.bend = key_bend(note.pitch, note.curve, widest_range);
    const std::vector<ControllerCurve> heard = heard_controllers(note);
    if (!result.bend.bent && heard.empty()) return result;
    for (const ChannelMove& move :
         channel_moves({result.bend, note.pitch, note.curve, heard, note.duration_ms}, step_ms)) {
        result.moves.push_back({sample_at(move.ms, rate), move.what, move.value});
    }
    return result;
}

bool is_audible(const PlayedNote& note) {
    const auto time = [](double ms) { return ms >= 0 && ms <= latest_ms; };
    const auto plays = [](const PlayedSample& sample) {
        return std::isfinite(sample.start_ms) && std::isfinite(sample.end_ms) && sample.speed > 0 &&
               std::isfinite(sample.speed);
    };
    if (note.sample && !plays(*note.sample)) return false;
    return time(note.ms) && time(note.duration_ms) && std::isfinite(note.pitch) && note.velocity > 0 &&
           std::isfinite(note.velocity) && is_finite(note.curve) &&
           std::ranges::all_of(note.controllers,
                               [](const ControllerCurve& curve) { return is_finite(curve.points); });
}

}  // namespace tq
