#include "app/sound/audio_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace tq {

namespace {

// Looking for a device, the libraries under the audio systems write what they miss to standard error, past
// every log; meanwhile it leads nowhere.
class QuietStderr {
 public:
    QuietStderr() : kept_(dup(STDERR_FILENO)) {
        std::fflush(stderr);
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (kept_ >= 0 && nowhere >= 0) dup2(nowhere, STDERR_FILENO);
        if (nowhere >= 0) ::close(nowhere);
    }
    ~QuietStderr() {
        if (kept_ < 0) return;
        std::fflush(stderr);
        dup2(kept_, STDERR_FILENO);
        ::close(kept_);
    }
    QuietStderr(const QuietStderr&) = delete;
    QuietStderr& operator=(const QuietStderr&) = delete;

 private:
    int kept_;
};

// The audio systems of desktops first, the bare device last; those that the library was not built with fail.
constexpr std::array systems = {"pipewire", "pulseaudio", "jack", "alsa", "coreaudio", "dsound"};

}  // namespace

AudioOutput::AudioOutput(double latency_ms)
    : RealtimePlayer(find_sound_font(), rate, latency_ms), settings_(new_fluid_settings()) {
    fluid_settings_setnum(settings_.get(), "synth.sample-rate", rate);
}

AudioOutput::~AudioOutput() { close(); }

std::string AudioOutput::open() {
    if (driver_) return {};
    const QuietStderr quiet;
    for (const char* system : systems) {
        if (fluid_settings_setstr(settings_.get(), "audio.driver", system) == FLUID_FAILED) continue;
        driver_.reset(new_fluid_audio_driver2(settings_.get(), &AudioOutput::fetch, this));
        if (driver_) return {};
    }
    return "no audio device can be opened";
}

void AudioOutput::close() { driver_.reset(); }

int AudioOutput::fetch(void* self, int frames, int, float**, int outputs, float* output[]) {
    if (outputs < 2) return FLUID_FAILED;
    static_cast<AudioOutput*>(self)->render(output[0], output[1], frames);
    return FLUID_OK;
}

}  // namespace tq
