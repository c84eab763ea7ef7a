#include "app/sound/voice_engine.h"

#include <algorithm>

#include "app/sound/error.h"

namespace tq {

namespace {

constexpr int voices_of_a_note = 8;   // more than a preset of a usual font starts
constexpr float fast_release = -200;  // timecents, as the library itself cuts sounds off

// The library reaches only 127/128 of the range that the wheel was given, 9 cents too little in an octave.
// Its modulator of the wheel is replaced by one that reaches all of it.
void let_wheel_reach_its_range(fluid_synth_t* synth) {
    constexpr int linear = FLUID_MOD_GC | FLUID_MOD_LINEAR | FLUID_MOD_POSITIVE;
    constexpr double cents = 12800;  // at full wheel, were the range 128 semitones
    fluid_mod_t* wheel = new_fluid_mod();
    fluid_mod_set_source1(wheel, FLUID_MOD_PITCHWHEEL, linear | FLUID_MOD_BIPOLAR);
    fluid_mod_set_source2(wheel, FLUID_MOD_PITCHWHEELSENS, linear | FLUID_MOD_UNIPOLAR);
    fluid_mod_set_dest(wheel, GEN_FINETUNE);
    fluid_mod_set_amount(wheel, cents);
    fluid_synth_add_default_mod(synth, wheel, FLUID_SYNTH_OVERWRITE);
    delete_fluid_mod(wheel);
}

}  // namespace

VoiceEngine::VoiceEngine(fluid_settings_t* settings) {
    fluid_settings_setint(settings, "synth.midi-channels", channels);
    fluid_settings_setint(settings, "synth.polyphony", polyphony);
    synth_.reset(new_fluid_synth(settings));
    if (!synth_) throw SoundError("the synthesiser cannot be made");
    let_wheel_reach_its_range(synth_.get());
}

void VoiceEngine::wake() {
    awake_ = true;
    used_ = block_samples;
}

bool VoiceEngine::has_room(bool alone) const {
    return voices() + voices_of_a_note <= polyphony && (!alone || own_channel() >= 0);
}

bool VoiceEngine::sounds(unsigned id) const {
    fluid_voice_t* voice = nullptr;
    fluid_synth_get_voicelist(synth_.get(), &voice, 1, static_cast<int>(id));
    return voice != nullptr;
}

int VoiceEngine::own_channel() const {
    for (int channel = first_own_channel; channel < channels; ++channel) {
        const unsigned owner = owners_[static_cast<std::size_t>(channel)];
        if (owner == nothing || !sounds(owner)) return channel;
    }
    return -1;
}

int VoiceEngine::start(const SynthNote& note, fluid_preset_t* preset, unsigned id) {
    int channel = note.source % first_own_channel;
    if (!note.moves.empty()) {
        channel = std::max(own_channel(), first_own_channel);
        owners_[static_cast<std::size_t>(channel)] = id;
        make_as_new(channel);
        fluid_synth_pitch_wheel_sens(synth_.get(), channel, note.bend.range);
        for (const SampleMove& first : note.moves) {
            if (first.sample > 0) break;
            move(channel, note.bend.key, first);
        }
    }
    fluid_synth_start(synth_.get(), id, preset, 0, channel, note.bend.key, note.velocity);
    return channel;
}

void VoiceEngine::make_as_new(int channel) {
    auto& moved = moved_[static_cast<std::size_t>(channel)];
    for (int controller = 0; moved.any() && controller < 128; ++controller)
        if (moved.test(static_cast<std::size_t>(controller)))
            fluid_synth_cc(synth_.get(), channel, controller, controller_initial(controller));
    moved.reset();
    fluid_synth_channel_pressure(synth_.get(), channel, 0);
}

void VoiceEngine::move(int channel, int key, const SampleMove& move) {
    fluid_synth_t* synth = synth_.get();
    switch (move.what) {
        case pitch_wheel:
            fluid_synth_pitch_bend(synth, channel, move.value);
            break;
        case ChannelPressure:
            fluid_synth_channel_pressure(synth, channel, move.value);
            break;
        case KeyPressure:
            fluid_synth_key_pressure(synth, channel, key, move.value);
            break;
        default:
            fluid_synth_cc(synth, channel, move.what, move.value);
            moved_[static_cast<std::size_t>(channel)].set(static_cast<std::size_t>(move.what));
    }
}

int VoiceEngine::exclusive_class(unsigned id) const {
    fluid_voice_t* voice = nullptr;
    fluid_synth_get_voicelist(synth_.get(), &voice, 1, static_cast<int>(id));
    return voice ? static_cast<int>(fluid_voice_gen_get(voice, GEN_EXCLUSIVECLASS)) : 0;
}

void VoiceEngine::cut(unsigned id) {
    std::array<fluid_voice_t*, polyphony> voices{};
    fluid_synth_get_voicelist(synth_.get(), voices.data(), polyphony, static_cast<int>(id));
    for (fluid_voice_t* voice : voices) {
        if (!voice) break;
        fluid_voice_gen_set(voice, GEN_VOLENVRELEASE, fast_release);
        fluid_voice_update_param(voice, GEN_VOLENVRELEASE);
    }
    release(id);
}

void VoiceEngine::mix(float* left, float* right, int count) {
    while (awake_ && count > 0) {
        if (used_ == block_samples) {
            if (voices() == 0) {
                awake_ = false;
                return;
            }
            fluid_synth_write_float(synth_.get(), block_samples, left_.data(), 0, 1, right_.data(), 0, 1);
            used_ = 0;
        }
        const int part = std::min(count, block_samples - used_);
        for (int i = 0; i < part; ++i) {
            *left++ += left_[static_cast<std::size_t>(used_ + i)];
            *right++ += right_[static_cast<std::size_t>(used_ + i)];
        }
        used_ += part;
        count -= part;
    }
}

}  // namespace tq
