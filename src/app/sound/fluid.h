// Owners for what the synthesiser's library hands out, and where its sounds are found.
#pragma once

#include <fluidsynth.h>

#include <memory>
#include <string>

namespace tq {

struct FluidDelete {
    void operator()(fluid_settings_t* settings) const { delete_fluid_settings(settings); }
    void operator()(fluid_synth_t* synth) const { delete_fluid_synth(synth); }
    void operator()(fluid_audio_driver_t* driver) const { delete_fluid_audio_driver(driver); }
};
using FluidSettings = std::unique_ptr<fluid_settings_t, FluidDelete>;
using FluidSynth = std::unique_ptr<fluid_synth_t, FluidDelete>;
using FluidDriver = std::unique_ptr<fluid_audio_driver_t, FluidDelete>;

/// Keeps the library from writing to standard error; errors are told by what its calls return.
void silence_fluid_log();

/// The sound font to play with: the environment's SORVO_SOUNDFONT, or the General MIDI font of the system.
/// Throws SoundError when there is none.
std::string find_sound_font();

}  // namespace tq
