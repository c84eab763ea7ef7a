// Sampled sound in memory, and reading it from files.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>
#include <string>
#include <vector>

namespace tq {

/// All of a sound but what is heard.
struct SoundFormat {
    long frames = 0, channels = 1;
    double rate = 44100;  ///< frames a second
    friend bool operator==(const SoundFormat&, const SoundFormat&) = default;
};

/// Never changes once it is made. Its reference count is the in-use counter: changed by atomic adds, so that
/// the samples stay for as long as anybody reads them, on any thread.
struct Sound : boost::intrusive_ref_counter<Sound, boost::thread_safe_counter> {
    Sound(long channel_count, double samples_a_second, std::vector<float> interleaved)
        : channels(channel_count), rate(samples_a_second), samples(std::move(interleaved)) {}

    const long channels;               ///< at least 1
    const double rate;                 ///< frames a second
    const std::vector<float> samples;  ///< interleaved by channel, all finite

    long frames() const { return static_cast<long>(samples.size()) / channels; }
    SoundFormat format() const { return {frames(), channels, rate}; }
    double ms() const { return static_cast<double>(frames()) / rate * 1000; }
    const float* frame(long index) const { return samples.data() + index * channels; }
};
using SoundRef = boost::intrusive_ptr<const Sound>;

/// Reads a sound file of any common format. None, and the reason in `fault`, when it is none, or takes more
/// than 1 GiB of memory.
SoundRef read_sound_file(const std::string& path, std::string& fault);

}  // namespace tq
