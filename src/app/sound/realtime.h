// From logical time to the samples of a running audio device.
#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "app/sound/player.h"
#include "app/sound/synth.h"

namespace tq {

/// A player whose sound an audio thread fetches. The main thread hands notes in, the audio thread renders;
/// neither waits for the other. Every time is put off by one constant latency, so a late main thread moves no
/// note.
class RealtimePlayer : public Player {
 public:
    /// `latency_ms` should be more than the device's buffer and the main thread's usual delays. Throws
    /// SoundError.
    RealtimePlayer(const std::string& sound_font, double rate, double latency_ms);
    ~RealtimePlayer() override;

    // The main thread's side.

    /// Logical time `ms` is now. Until this is said, logical 0 is when rendering began.
    void start(double ms);
    void note(const PlayedNote& note) override;
    void stop(const std::string& source, double ms) override;
    void stop_track(long track, double ms) override;
    void stop_all(double ms) override;
    /// 0…1.
    void set_volume(double volume) { volume_ = static_cast<float>(volume); }
    /// Notes and stops that came after their sample had been rendered; what follows is put off by as much.
    int late() const { return late_; }
    /// Notes that have not ended, as of the last render().
    int sounding() const { return sounding_; }
    /// The highest level, 0…1, that was rendered since this was last asked.
    float take_peak() { return peak_.exchange(0); }

    // The audio thread's side.

    void render(float* left, float* right, int frames);

 private:
    struct Command {
        enum class Kind { Start, Note, Stop };
        Kind kind;
        std::int64_t at;  // in samples of logical time
        std::unique_ptr<SynthNote> note{};
        SynthStop stop{};
        Command* next = nullptr;
    };

    void send(Command command);
    void run(Command& command);
    void note_peak(const float* left, const float* right, int frames);
    std::int64_t on_device(std::int64_t at);
    int source(const std::string& name);

    const double rate_;
    const std::int64_t latency_;  // samples
    std::map<std::string, int> sources_;
    Mailbox<Command> commands_;
    Mailbox<Command> used_;
    std::atomic<float> volume_ = 1;
    std::atomic<int> late_ = 0;
    std::atomic<int> sounding_ = 0;
    std::atomic<float> peak_ = 0;

    // The audio thread's own.
    Synth synth_;
    std::int64_t offset_;  // from logical samples to those of the device
};

}  // namespace tq
