// Plays notes at exact samples.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "app/sound/mailbox.h"
#include "app/sound/sample_voices.h"
#include "app/sound/voice_pool.h"

namespace tq {

/// What is to end: everything of the source and the track that are given.
struct SynthStop {
    static constexpr int any = -1;
    int source = any;
    long track = any;
};

/// Keeps notes until their time comes, starts, bends and ends them, and renders what sounds.
class Synth {
 public:
    /// Throws SoundError when the sound font cannot be read.
    Synth(const std::string& sound_font, double rate);
    ~Synth();
    Synth(const Synth&) = delete;
    Synth& operator=(const Synth&) = delete;

    /// The sample that is rendered next.
    std::int64_t position() const { return position_; }
    /// Makes room for so many notes at a time; to begin with there is room for 32768. Asks for memory, as
    /// nothing else does that renders.
    void make_room(std::size_t notes);
    /// Takes a note; one whose start is past starts at once, and keeps its end. One that there is no room for
    /// is left out.
    void note(std::unique_ptr<SynthNote> note);
    /// At `sample`, ends what sounds of a source or a track, or of all; at once when very many stops wait. Of
    /// what comes at one sample, ends are first, then starts and stops in the order in which they were handed
    /// in.
    void stop(const SynthStop& what, std::int64_t sample);
    /// How loud everything is, 0…1; a change is a ramp over the next piece that is rendered.
    void set_volume(double volume);

    /// Renders the next `frames` samples. What is very loud is rounded off, so that nothing exceeds ±1.
    void render(float* left, float* right, int frames);
    /// Nothing sounds, and nothing waits to.
    bool silent() const { return events_.empty() && pool_.silent() && samples_.silent(); }
    int sounding() const { return static_cast<int>(sounding_.size()); }  ///< notes that have not ended

    /// Frees the notes that are over: render() itself never frees. May be called by another thread.
    void collect();

 private:
    enum class Kind : std::uint8_t { End, Start, Stop, Move };
    struct Event {
        std::int64_t sample;
        std::uint64_t number;  // in the order of handing in
        Kind kind;
        SynthNote* note;
        SynthStop stop;
        bool operator<(const Event& other) const;
    };

    void push(const Event& event);
    void run(const Event& event);
    void start(SynthNote& note);
    void move(SynthNote& note);
    void push_next_move(SynthNote& note);
    void end(SynthNote& note);
    void stop_now(const SynthStop& what);
    void mix(float* left, float* right, int frames);
    void forget(SynthNote& note);
    void finish(float* left, float* right, int frames);

    VoicePool pool_;
    SampleVoices samples_;
    std::int64_t position_ = 0;
    std::uint64_t handed_in_ = 0;
    std::size_t room_ = 0;              // notes
    std::size_t taken_ = 0;             // of it
    std::size_t stops_ = 0;             // that wait
    std::vector<Event> events_;         // a heap, the next first
    std::vector<SynthNote*> sounding_;  // in no order
    Mailbox<SynthNote> over_;
    float volume_ = 1;
    float volume_before_ = 1;
};

}  // namespace tq
