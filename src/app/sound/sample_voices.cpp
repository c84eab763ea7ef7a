#include "app/sound/sample_voices.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tq {

namespace {

constexpr std::size_t most_voices = 1 << 10;
constexpr double fade_ms = 4;

// The kernel is a sinc in a Kaiser window: it reaches over as many frames to either side, is known at as many
// places a frame, and its window has that shape (damping of about 90 dB).
constexpr int reach = 16;
constexpr int places = 512;
constexpr double shape = 9;

// Played faster, a sound is cut off at a lower frequency by as much, up to this speed: the effort grows with
// it.
constexpr double widest_stretch = 8;

std::vector<float> make_kernel() {
    std::vector<float> kernel(reach * places + 2, 0.f);
    kernel[0] = 1;
    for (int i = 1; i < reach * places; ++i) {
        if (i % places == 0) continue;  // exactly 0, so that a frame is not blurred by its neighbours
        const double x = static_cast<double>(i) / places, angle = std::numbers::pi * x;
        const double window = std::cyl_bessel_i(0, shape * std::sqrt(1 - x * x / (reach * reach))) /
                              std::cyl_bessel_i(0, shape);
        kernel[static_cast<std::size_t>(i)] = static_cast<float>(std::sin(angle) / angle * window);
    }
    return kernel;
}

}  // namespace

SampleVoices::SampleVoices(double rate)
    : fade_samples_(static_cast<float>(fade_ms * rate / 1000)), kernel_(make_kernel()) {
    voices_.reserve(most_voices);
}

bool SampleVoices::start(SynthNote& note, std::int64_t late) {
    if (voices_.size() == most_voices) return false;
    voices_.push_back({&note, 0, note.sample->length - late, note.sample->cut || late > 0});
    return true;
}

void SampleVoices::fade(const SynthNote& note) {
    for (Voice& voice : voices_) {
        const std::int64_t over = voice.played + static_cast<std::int64_t>(fade_samples_);
        if (voice.note != &note || voice.length <= over) continue;
        voice.length = over;
        voice.fades = true;
    }
}

bool SampleVoices::sound(Voice& voice, float* left, float* right, int count) const {
    const SynthSample& sample = *voice.note->sample;
    const double stretch = std::clamp(sample.speed, 1., widest_stretch);
    const int part = static_cast<int>(std::clamp<std::int64_t>(voice.length - voice.played, 0, count));
    for (int i = 0; i < part; ++i, ++voice.played) {
        const double position =
            static_cast<double>(sample.begin) + static_cast<double>(voice.played) * sample.speed;
        const Stereo value = sample.speed == 1 ? folded(*sample.sound, static_cast<long>(position))
                                               : interpolated(*sample.sound, position, stretch);
        float level = sample.level;
        if (voice.fades)
            level *= std::min(1.f, static_cast<float>(voice.length - voice.played) / fade_samples_);
        left[i] += level * value.left;
        right[i] += level * value.right;
    }
    return voice.played < voice.length;
}

SampleVoices::Stereo SampleVoices::interpolated(const Sound& sound, double position, double stretch) const {
    const long first = std::max(0L, static_cast<long>(std::ceil(position - reach * stretch)));
    const long last = std::min(sound.frames() - 1, static_cast<long>(std::floor(position + reach * stretch)));
    const double scale = places / stretch;
    Stereo sum;
    for (long frame = first; frame <= last; ++frame) {
        const double place = std::abs(static_cast<double>(frame) - position) * scale;
        const auto before = static_cast<std::size_t>(place);
        const float between = static_cast<float>(place - static_cast<double>(before));
        const float weight = kernel_[before] + between * (kernel_[before + 1] - kernel_[before]);
        const Stereo value = folded(sound, frame);
        sum.left += weight * value.left;
        sum.right += weight * value.right;
    }
    const auto level = static_cast<float>(1 / stretch);
    return {level * sum.left, level * sum.right};
}

// Channels beyond the second stand in the middle at half their level; nothing gets louder than it was.
SampleVoices::Stereo SampleVoices::folded(const Sound& sound, long frame) {
    const float* channel = sound.frame(frame);
    if (sound.channels == 1) return {channel[0], channel[0]};
    if (sound.channels == 2) return {channel[0], channel[1]};
    float middle = 0;
    for (long c = 2; c < sound.channels; ++c) middle += channel[c] / 2;
    const float sum = 1 + static_cast<float>(sound.channels - 2) / 2;
    return {(channel[0] + middle) / sum, (channel[1] + middle) / sum};
}

}  // namespace tq
