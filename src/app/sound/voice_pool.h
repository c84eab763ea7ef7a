// All the voices there are: notes start on any sample, in as many synthesisers as that takes.
#pragma once

#include <array>
#include <memory>
#include <string>
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
    void bend(const Handle& handle, int wheel) { engine(handle).bend(handle.channel, wheel); }

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
    fluid_preset_t* any_preset(int bank, int program);
    VoiceEngine& engine(const Handle& handle) { return *engines_[static_cast<std::size_t>(handle.engine)]; }
    int choose(bool bent);
    void cut_group(const SynthNote& note, const Handle& handle);

    FluidSettings settings_;
    std::vector<std::unique_ptr<VoiceEngine>> engines_;
    fluid_sfont_t* font_ = nullptr;  // the first engine's; the others borrow it
    std::array<fluid_preset_t*, 128> programs_{};
    std::array<fluid_preset_t*, 128> kits_{};
    std::array<Exclusive, 32> groups_{};
    std::size_t next_group_ = 0;
    unsigned last_id_ = VoiceEngine::nothing;
};

}  // namespace tq
