// One synthesiser of the library, and what it has to play with.
#pragma once

#include <array>
#include <bitset>
#include <string>
#include <vector>

#include "app/sound/fluid.h"
#include "app/sound/synth_note.h"

namespace tq {

/// The library computes sound in blocks of this many samples, and what happens takes effect when one begins.
constexpr int block_samples = 64;

/// A synthesiser whose blocks begin where it is told to wake: notes started there begin on that very sample.
class VoiceEngine {
 public:
    /// At most this many voices sound at a time; a note may need several.
    static constexpr int polyphony = 64;
    static constexpr unsigned nothing = 0;

    VoiceEngine(fluid_settings_t* settings);
    fluid_synth_t* synth() { return synth_.get(); }

    bool asleep() const { return !awake_; }
    /// Lets the next block begin with the next sample. Only while asleep.
    void wake();
    /// Samples until the next block begins.
    int until_block() const { return block_samples - used_; }
    /// Whether another note finds room, and a channel of its own if it is to be alone.
    bool has_room(bool alone) const;

    /// Starts a note with the next block, under an id that no note before it had. Returns the channel.
    int start(const SynthNote& note, fluid_preset_t* preset, unsigned id);
    void release(unsigned id) { fluid_synth_stop(synth_.get(), id); }
    void move(int channel, int key, const SampleMove& move);
    /// The group of sounds that cut each other off to which a note belongs; 0 for none.
    int exclusive_class(unsigned id) const;
    /// Ends a note as fast as goes without a click.
    void cut(unsigned id);

    /// Adds the next samples; falls asleep when nothing sounds any more.
    void mix(float* left, float* right, int count);
    int voices() const { return fluid_synth_get_active_voice_count(synth_.get()); }

 private:
    // Channels below are shared, one for the notes of a source (sounds cut each other off within a channel);
    // from here on each belongs to one note that moves its wheel or controllers, until its last voice is
    // silent.
    static constexpr int first_own_channel = 16;
    static constexpr int channels = 64;

    int own_channel() const;
    void make_as_new(int channel);
    bool sounds(unsigned id) const;

    FluidSynth synth_;
    bool awake_ = false;
    int used_ = block_samples;
    std::array<float, block_samples> left_{};
    std::array<float, block_samples> right_{};
    std::array<unsigned, channels> owners_{};
    std::array<std::bitset<128>, channels> moved_{};  // controllers
};

}  // namespace tq
