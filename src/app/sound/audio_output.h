// The machine's loudspeaker.
#pragma once

#include <string>

#include "app/sound/fluid.h"
#include "app/sound/realtime.h"

namespace tq {

/// Plays through whatever audio system the machine has.
class AudioOutput : public RealtimePlayer {
 public:
    static constexpr double rate = 44100;
    static constexpr double usual_latency_ms = 60;

    /// Loads the sounds; nothing is heard yet. Throws SoundError when there are none.
    explicit AudioOutput(double latency_ms = usual_latency_ms);
    ~AudioOutput() override;

    /// Opens the audio device. Empty when that went well, else why it did not, in one sentence.
    std::string open();
    /// Silence, at once. Notes may still be handed in; they are heard after open().
    void close();

 private:
    static int fetch(void* self, int frames, int effects, float* effect[], int outputs, float* output[]);

    FluidSettings settings_;
    FluidDriver driver_;
};

}  // namespace tq
