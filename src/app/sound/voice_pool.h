// All the voices there are: notes start on any sample, in as many synthesisers as that takes.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/sound/voice_engine.h"

namespace tq {

/// The library starts notes only at the beginning of its blocks. So there are as many synthesisers as a block
/// has samples, and a note goes to one whose block begins when the note does; those that are silent cost
/// nothing. They share the sounds.
class VoicePool {
 public:
    /// A note that was started.
    struct Handle {
        int engine = 0;
        int channel = 0;
        unsigned id = VoiceEngine::nothing;
    };

    /// Loads the sound font. Throws SoundError when it cannot be read.
    VoicePool(const std::string& sound_font, double rate);
    ~VoicePool();
    VoicePool(const VoicePool&) = delete;
    VoicePool& operator=(const VoicePool&) = delete;

    /// Starts a note on the next sample (later, by less than a block, only when more than some thousand
    /// voices sound).
    Handle start(const SynthNote& note);
    /// Lets a note go; it fades as its sound does.
    void release(const Handle& handle) { engine(handle).release(handle.id); }
    void move(const Handle& handle, const SynthNote& note, const SampleMove& move) {
        engine(handle).move(handle.channel, note.bend.key, move);
    }

    /// Adds the next samples.
    void mix(float* left, float* right, int count);
    /// Whether anything sounds, fading notes included.
    bool silent() const;

 private:
    // The last note of a group of sounds that cut each other off, as open and closed hi-hat do.
    struct Exclusive {
        int source;
        int group;
        Handle handle;
    };

    void load(const std::string& sound_font);
    void find_presets();
    fluid_preset_t* find_preset(int bank, int program) const;
    fluid_preset_t* preset_of(const Voice& voice) const;
    VoiceEngine& engine(const Handle& handle) { return *engines_[static_cast<std::size_t>(handle.engine)]; }
    int choose(bool alone);
    void cut_group(const SynthNote& note, const Handle& handle);

    FluidSettings settings_;
    std::vector<std::unique_ptr<VoiceEngine>> engines_;
    fluid_sfont_t* font_ = nullptr;  // the first engine's; the others borrow it
    struct Preset {
        int bank, program;
        fluid_preset_t* preset;
        friend bool operator<(const Preset& a, const Preset& b) {
            return std::pair(a.bank, a.program) < std::pair(b.bank, b.program);
        }
    };
    std::vector<Preset> presets_;  // sorted, since looking for one must be quick and ask for no memory
    std::array<Exclusive, 32> groups_{};
    std::size_t next_group_ = 0;
    unsigned last_id_ = VoiceEngine::nothing;
};

}  // namespace tq
