#include "sound.h"

#include <fluidsynth.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "app/patch/note_listener.h"
#include "app/patch/perform.h"
#include "app/patch/session.h"
#include "app/sound/fluid.h"
#include "app/sound/recorder.h"
#include "app/sound/synth.h"
#include "table.h"

namespace bench {

using namespace tq;

namespace {

constexpr double rate = 44100;
constexpr int block = 64;
constexpr double tail_ms = 2000;
constexpr double gain = 0.1;           // both are far from being rounded off
constexpr double our_full_gain = 0.4;  // at volume 1

using Mono = std::vector<float>;

Mono ours(const std::string& path) {
    Session session;
    NoteListener notes(session);
    Recorder recorder;
    notes.add(recorder);
    if (!session.open(path)) return {};
    play_through(session);
    Synth synth(find_sound_font(), rate);
    synth.set_volume(gain / our_full_gain);
    synth.make_room(recorder.notes().size());
    std::map<std::string, int> sources;
    for (const PlayedNote& note : recorder.notes()) {
        const int source = sources.try_emplace(note.source, static_cast<int>(sources.size())).first->second;
        if (is_audible(note)) synth.note(std::make_unique<SynthNote>(synth_note(note, source, rate)));
    }
    const auto frames = static_cast<std::size_t>((recorder.end_ms() + tail_ms) / 1000 * rate);
    Mono sound;
    float left[block], right[block];
    while (sound.size() < frames) {
        synth.render(left, right, block);
        synth.collect();
        for (int i = 0; i < block; ++i) sound.push_back(left[i] + right[i]);
    }
    return sound;
}

Mono theirs(const std::string& path, std::size_t frames) {
    FluidSettings settings(new_fluid_settings());
    fluid_settings_setnum(settings.get(), "synth.sample-rate", rate);
    fluid_settings_setnum(settings.get(), "synth.gain", gain);
    fluid_settings_setint(settings.get(), "synth.polyphony", 4096);
    fluid_settings_setint(settings.get(), "synth.reverb.active", 0);
    fluid_settings_setint(settings.get(), "synth.chorus.active", 0);
    fluid_settings_setstr(settings.get(), "player.timing-source", "sample");
    FluidSynth synth(new_fluid_synth(settings.get()));
    fluid_synth_sfload(synth.get(), find_sound_font().c_str(), 1);
    const std::unique_ptr<fluid_player_t, void (*)(fluid_player_t*)> player(new_fluid_player(synth.get()),
                                                                            delete_fluid_player);
    fluid_player_add(player.get(), path.c_str());
    fluid_player_play(player.get());
    Mono sound;
    float left[block], right[block];
    while (sound.size() < frames) {
        fluid_synth_write_float(synth.get(), block, left, 0, 1, right, 0, 1);
        for (int i = 0; i < block; ++i) sound.push_back(left[i] + right[i]);
    }
    return sound;
}

std::vector<double> levels(const Mono& sound, std::size_t window) {
    std::vector<double> result;
    for (std::size_t i = 0; i + window <= sound.size(); i += window) {
        double sum = 0;
        for (std::size_t k = i; k < i + window; ++k) sum += sound[k] * sound[k];
        result.push_back(std::sqrt(sum / static_cast<double>(window)));
    }
    return result;
}

double percentile(std::vector<double> values, double part) {
    if (values.empty()) return 0;
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
}

/// Differences of level in dB, a window of 50 ms each, where either is heard at all.
std::vector<double> level_differences(const Mono& a, const Mono& b) {
    constexpr auto window = static_cast<std::size_t>(0.05 * rate);
    const std::vector<double> of_a = levels(a, window), of_b = levels(b, window);
    const double floor = *std::ranges::max_element(of_b) * 1e-3;
    std::vector<double> result;
    for (std::size_t i = 0; i < std::min(of_a.size(), of_b.size()); ++i)
        if (std::max(of_a[i], of_b[i]) > floor)
            result.push_back(
                std::abs(20 * std::log10(std::max(of_a[i], floor / 10) / std::max(of_b[i], floor / 10))));
    return result;
}

/// How much the sound rises, every half ms.
std::vector<double> onsets(const Mono& sound) {
    std::vector<double> level = levels(sound, static_cast<std::size_t>(rate / 2000));
    std::vector<double> rises(level.size());
    for (std::size_t i = 8; i < level.size(); ++i) rises[i] = std::max(level[i] - level[i - 8], 0.0);
    return rises;
}

/// By how many ms the onsets of `a` are away from those of `b`: where they correlate best, in stretches of 2
/// s. Of places that are as good within 1 %, as in a drum roll, the nearest counts.
std::vector<double> onset_lags(const Mono& a, const Mono& b) {
    constexpr int reach = 60, stretch = 4000;  // half ms
    const std::vector<double> of_a = onsets(a), of_b = onsets(b);
    std::vector<double> lags;
    const int size = static_cast<int>(std::min(of_a.size(), of_b.size()));
    for (int begin = reach; begin + stretch + reach < size; begin += stretch) {
        std::vector<double> correlation;
        for (int lag = -reach; lag <= reach; ++lag)
            correlation.push_back(std::inner_product(of_b.begin() + begin, of_b.begin() + begin + stretch,
                                                     of_a.begin() + begin + lag, 0.0));
        const double best = *std::ranges::max_element(correlation);
        if (best <= 0) continue;
        int nearest = reach;
        for (int lag = -reach; lag <= reach; ++lag)
            if (correlation[static_cast<std::size_t>(lag + reach)] >= 0.99 * best)
                nearest = std::min(nearest, std::abs(lag));
        lags.push_back(nearest * 0.5);
    }
    return lags;
}

void rows(const std::string& name, const std::vector<double>& differences, const std::vector<double>& lags) {
    row(name + ": level, median", percentile(differences, 0.5), "dB", {"limit", 1});
    row(name + ": level, 95 of 100", percentile(differences, 0.95), "dB", {"limit", 3});
    row(name + ": onsets, 95 of 100", percentile(lags, 0.95), "ms", {"limit", 3});
}

}  // namespace

void sound_rows() {
    const std::filesystem::path music = "/usr/share/games/openttd/baseset/openmsx";
    if (!std::filesystem::exists(music)) return;
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(music))
        if (entry.path().extension() == ".mid") files.push_back(entry.path());
    std::ranges::sort(files);
    std::vector<double> all_differences, all_lags;
    for (const auto& path : files) {
        const Mono mine = ours(path);
        const Mono other = theirs(path, mine.size());
        const std::vector<double> differences = level_differences(mine, other),
                                  lags = onset_lags(mine, other);
        rows(path.stem(), differences, lags);
        std::ranges::copy(differences, std::back_inserter(all_differences));
        std::ranges::copy(lags, std::back_inserter(all_lags));
    }
    rows("all files", all_differences, all_lags);
}

}  // namespace bench
