// Sound files for tests.
#pragma once

#include <sndfile.h>

#include <string>
#include <vector>

namespace tq::test {

struct TestSound {
    int rate = 44100, channels = 1;
    int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
};

/// Writes interleaved samples; returns the path.
inline std::string write_sound(const std::string& path, const std::vector<float>& samples,
                               const TestSound& kind = {}) {
    SF_INFO info{};
    info.samplerate = kind.rate;
    info.channels = kind.channels;
    info.format = kind.format;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file) return path;
    sf_writef_float(file, samples.data(), static_cast<sf_count_t>(samples.size()) / kind.channels);
    sf_close(file);
    return path;
}

/// Silence of so many ms at 1000 frames a second: a sound for what asks only for its length.
inline std::string write_silence(const std::string& path, size_t ms) {
    return write_sound(path, std::vector<float>(ms), {.rate = 1000});
}

}  // namespace tq::test
