#include "host/sound.h"

#include <sndfile.h>

#include <cmath>
#include <filesystem>
#include <memory>

namespace tq {

namespace {

constexpr size_t most_samples = size_t{1} << 28;
constexpr int fastest_rate = 10'000'000;
constexpr sf_count_t piece = 1 << 16;  // frames

struct CloseSound {
    void operator()(SNDFILE* file) const { sf_close(file); }
};

/// Reads to the end piece by piece: how long the file says it is may be a lie.
bool read_samples(SNDFILE* file, size_t channels, std::vector<float>& samples) {
    for (;;) {
        const size_t before = samples.size();
        samples.resize(before + piece * channels);
        const sf_count_t frames = sf_readf_float(file, samples.data() + before, piece);
        samples.resize(before + static_cast<size_t>(frames) * channels);
        if (frames == 0) break;
        if (samples.size() > most_samples) return false;
    }
    for (float& sample : samples)
        if (!std::isfinite(sample)) sample = 0;
    samples.shrink_to_fit();
    return true;
}

}  // namespace

SoundRef read_sound_file(const std::string& path, std::string& fault) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (!std::filesystem::is_regular_file(status)) {  // a pipe would be waited for
        fault = error ? error.message() : "not a file";
        return {};
    }
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, CloseSound> file(sf_open(path.c_str(), SFM_READ, &info));
    if (!file) {
        fault = sf_strerror(nullptr);
        while (!fault.empty() && (fault.back() == '.' || fault.back() == '\n')) fault.pop_back();
        return {};
    }
    if (info.channels < 1 || info.samplerate < 1 || info.samplerate > fastest_rate) {
        fault = "its sample rate makes no sense";
        return {};
    }
    std::vector<float> samples;
    if (!read_samples(file.get(), static_cast<size_t>(info.channels), samples)) {
        fault = "it takes more than 1 GiB of memory";
        return {};
    }
    return SoundRef(new Sound(info.channels, info.samplerate, std::move(samples)));
}

}  // namespace tq
