#include "app/sound/voice_pool.h"

#include <algorithm>
#include <fstream>
#include <string_view>

#include "app/sound/error.h"

namespace tq {

namespace {

constexpr int drum_bank = 128;

// The library hands what it cannot read on to other libraries, which complain to standard error.
bool is_sound_font(const std::string& path) {
    std::array<char, 12> head{};
    std::ifstream(path, std::ios::binary).read(head.data(), head.size());
    const std::string_view text(head.data(), head.size());
    return text.starts_with("RIFF") && text.ends_with("sfbk");
}

}  // namespace

VoicePool::VoicePool(const std::string& sound_font, double rate) {
    if (!is_sound_font(sound_font)) throw SoundError(sound_font + ": not a sound font");
    silence_fluid_log();
    settings_.reset(new_fluid_settings());
    fluid_settings_setnum(settings_.get(), "synth.sample-rate", rate);
    fluid_settings_setnum(settings_.get(), "synth.gain", 1.0);
    fluid_settings_setint(settings_.get(), "synth.reverb.active", 0);
    fluid_settings_setint(settings_.get(), "synth.chorus.active", 0);
    fluid_settings_setint(settings_.get(), "synth.threadsafe-api", 0);
    for (int i = 0; i < block_samples; ++i)
        engines_.push_back(std::make_unique<VoiceEngine>(settings_.get()));
    load(sound_font);
    find_presets();
}

VoicePool::~VoicePool() {
    // The borrowers give the sounds back before their owner goes.
    for (std::size_t i = engines_.size(); i-- > 1;) {
        fluid_synth_all_sounds_off(engines_[i]->synth(), -1);
        fluid_synth_remove_sfont(engines_[i]->synth(), font_);
        engines_.pop_back();
    }
}

void VoicePool::load(const std::string& sound_font) {
    fluid_synth_t* owner = engines_.front()->synth();
    if (fluid_synth_sfload(owner, sound_font.c_str(), 1) == FLUID_FAILED) {
        engines_.resize(1);
        throw SoundError(sound_font + ": the sound font cannot be read");
    }
    font_ = fluid_synth_get_sfont(owner, 0);
    for (std::size_t i = 1; i < engines_.size(); ++i) fluid_synth_add_sfont(engines_[i]->synth(), font_);
}

// Where the font lacks a sound, its nearest relative or else its first sound stands in.
void VoicePool::find_presets() {
    for (int program = 0; program < 128; ++program) {
        programs_[static_cast<std::size_t>(program)] = any_preset(0, program);
        kits_[static_cast<std::size_t>(program)] = any_preset(drum_bank, program);
    }
}

fluid_preset_t* VoicePool::any_preset(int bank, int program) {
    if (auto* preset = fluid_sfont_get_preset(font_, bank, program)) return preset;
    if (auto* preset = fluid_sfont_get_preset(font_, bank, 0)) return preset;
    fluid_sfont_iteration_start(font_);
    return fluid_sfont_iteration_next(font_);
}

VoicePool::Handle VoicePool::start(const SynthNote& note) {
    const auto program = static_cast<std::size_t>(std::clamp(note.voice.program, 0, 127));
    fluid_preset_t* preset = note.voice.drums ? kits_[program] : programs_[program];
    if (!preset) return {};
    Handle handle;
    handle.engine = choose(note.bend.bent);
    if (++last_id_ > 0x7fffffff) last_id_ = 1;  // ids are ints in half of the library
    handle.id = last_id_;
    handle.channel = engine(handle).start(note, preset, handle.id);
    cut_group(note, handle);
    return handle;
}

// An engine whose block begins now; else one that sleeps and can begin it now; else the one that begins next.
int VoicePool::choose(bool bent) {
    int sleeping = -1;
    int soonest = -1;
    const auto until = [&](int i) {
        return engines_[static_cast<std::size_t>(i)]->until_block() % block_samples;
    };
    for (int i = 0; i < std::ssize(engines_); ++i) {
        const VoiceEngine& candidate = *engines_[static_cast<std::size_t>(i)];
        if (candidate.asleep()) {
            if (sleeping < 0) sleeping = i;
            continue;
        }
        if (!candidate.has_room(bent)) continue;
        if (until(i) == 0) return i;
        if (soonest < 0 || until(i) < until(soonest)) soonest = i;
    }
    if (sleeping >= 0) {
        engines_[static_cast<std::size_t>(sleeping)]->wake();
        return sleeping;
    }
    return std::max(soonest, 0);
}

void VoicePool::cut_group(const SynthNote& note, const Handle& handle) {
    const int group = engine(handle).exclusive_class(handle.id);
    if (group == 0) return;
    auto found = std::ranges::find_if(groups_, [&](const Exclusive& e) {
        return e.handle.id != VoiceEngine::nothing && e.source == note.source && e.group == group;
    });
    if (found == groups_.end()) {
        found = groups_.begin() + static_cast<std::ptrdiff_t>(next_group_);
        next_group_ = (next_group_ + 1) % groups_.size();
    } else if (found->handle.engine != handle.engine) {
        engine(found->handle).cut(found->handle.id);  // within an engine the library does it
    }
    *found = {note.source, group, handle};
}

void VoicePool::mix(float* left, float* right, int count) {
    for (auto& engine : engines_) engine->mix(left, right, count);
}

bool VoicePool::silent() const {
    return std::ranges::all_of(engines_,
                               [](const auto& engine) { return engine->asleep() || engine->voices() == 0; });
}

}  // namespace tq
