#include "app/sound/synth_note.h"

#include <algorithm>
#include <cmath>

namespace tq {

namespace {

constexpr int widest_range = 72;  // semitones that the synthesiser's wheel reaches
constexpr double step_ms = 2;
constexpr double latest_ms = 1e10;

}  // namespace

std::int64_t sample_at(double ms, double rate) { return std::llround(ms * rate / 1000); }

SynthNote synth_note(const PlayedNote& note, int source, double rate) {
    SynthNote result;
    result.start = sample_at(note.ms, rate);
    result.duration = sample_at(note.ms + note.duration_ms, rate) - result.start;
    result.source = source;
    result.voice = note.voice;
    result.velocity = static_cast<int>(std::lround(std::clamp(note.velocity, 1.0, 127.0)));
    result.bend = key_bend(note.pitch, note.curve, widest_range);
    if (!result.bend.bent) return result;
    for (const WheelMove& move :
         wheel_moves(result.bend, note.pitch, note.curve, note.duration_ms, step_ms)) {
        result.moves.push_back({sample_at(move.ms, rate), move.wheel});
    }
    return result;
}

bool is_audible(const PlayedNote& note) {
    const auto time = [](double ms) { return ms >= 0 && ms <= latest_ms; };
    return time(note.ms) && time(note.duration_ms) && std::isfinite(note.pitch) && note.velocity > 0 &&
           std::isfinite(note.velocity) && std::ranges::all_of(note.curve, [](const PitchPoint& point) {
               return std::isfinite(point.ms) && std::isfinite(point.pitch);
           });
}

}  // namespace tq
