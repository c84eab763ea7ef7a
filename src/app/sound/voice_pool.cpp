#include "app/sound/voice_pool.h"

#include <algorithm>
#include <fstream>
#include <functional>
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

void VoicePool::find_presets() {
    fluid_sfont_iteration_start(font_);
    while (fluid_preset_t* preset = fluid_sfont_iteration_next(font_))
        presets_.push_back({fluid_preset_get_banknum(preset), fluid_preset_get_num(preset), preset});
    std::ranges::stable_sort(presets_, std::less<>());
}

fluid_preset_t* VoicePool::find_preset(int bank, int program) const {
    const auto found = std::lower_bound(presets_.begin(), presets_.end(), Preset{bank, program, nullptr});
    return found != presets_.end() && found->bank == bank && found->program == program ? found->preset
                                                                                       : nullptr;
}

// Where the font lacks a sound, its nearest relative or else its first sound stands in.
fluid_preset_t* VoicePool::preset_of(const Voice& voice) const {
    const int program = std::clamp(voice.program, 0, 127);
    const std::pair<int, int> wanted[] = {
        {voice.drums ? drum_bank : voice.bank, program},
        {voice.drums ? drum_bank : voice.fine_bank, program},
        {voice.drums ? drum_bank : 0, voice.drums ? 0 : program},
        {0, 0},
    };
    for (const auto& [bank, number] : wanted)
        if (fluid_preset_t* preset = find_preset(bank, number)) return preset;
    return presets_.empty() ? nullptr : presets_.front().preset;
}

VoicePool::Handle VoicePool::start(const SynthNote& note) {
    fluid_preset_t* preset = preset_of(note.voice);
    if (!preset) return {};
    Handle handle;
    handle.engine = choose(!note.moves.empty());
    if (++last_id_ > 0x7fffffff) last_id_ = 1;  // ids are ints in half of the library
    handle.id = last_id_;
    handle.channel = engine(handle).start(note, preset, handle.id);
    cut_group(note, handle);
    return handle;
}

// An engine whose block begins now; else one that sleeps and can begin it now; else the one that begins next.
int VoicePool::choose(bool alone) {
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
        if (!candidate.has_room(alone)) continue;
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
    } else if (found->handle.engine != handle.engine || found->handle.channel != handle.channel) {
        engine(found->handle).cut(found->handle.id);  // within a channel the library does it
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
