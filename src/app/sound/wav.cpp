#include "app/sound/wav.h"

#include <sndfile.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <memory>

#include "app/sound/error.h"
#include "app/sound/fluid.h"
#include "app/sound/synth.h"
#include "host/file_writer.h"

namespace tq {

namespace {

constexpr int rate = 44100;
constexpr int piece = 4096;
constexpr int longest_fade = 30 * rate;  // some sounds of some fonts never fade by themselves

struct CloseSound {
    void operator()(SNDFILE* file) const { sf_close(file); }
};

/// A sound file on its way to its name.
class WavWriter {
 public:
    explicit WavWriter(const std::string& path) : path_(path), target_(path) {
        if (!target_) fail(target_.fault());
        SF_INFO info{};
        info.samplerate = rate;
        info.channels = 2;
        info.format = (path.ends_with(".flac") ? SF_FORMAT_FLAC : SF_FORMAT_WAV) | SF_FORMAT_PCM_16;
        file_.reset(sf_open_fd(target_.descriptor(), SFM_WRITE, &info, SF_FALSE));
        if (!file_) fail(sf_strerror(nullptr));
        sf_command(file_.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
    }

    void write(const float* interleaved, int frames) {
        if (sf_writef_float(file_.get(), interleaved, frames) != frames) fail(sf_strerror(file_.get()));
    }
    void finish() {
        if (sf_error(file_.get()) != SF_ERR_NO_ERROR) fail(sf_strerror(file_.get()));
        if (sf_close(file_.release()) != 0) fail("the file cannot be closed");
        if (!target_.commit()) fail(target_.fault());
    }

 private:
    [[noreturn]] void fail(const std::string& reason) const {
        throw SoundError("could not write \"" + path_ + "\": " + reason);
    }

    std::string path_;
    FileWriter target_;
    std::unique_ptr<SNDFILE, CloseSound> file_;  ///< goes before what it writes into
};

void hand_in(Synth& synth, std::span<const PlayedNote> notes) {
    std::map<std::string, int> sources;
    synth.make_room(notes.size());
    for (const PlayedNote& note : notes) {
        const int source = sources.try_emplace(note.source, static_cast<int>(sources.size())).first->second;
        if (is_audible(note)) synth.note(std::make_unique<SynthNote>(synth_note(note, source, rate)));
    }
}

std::int64_t end_of(std::span<const PlayedNote> notes, const WavOptions& options) {
    std::int64_t end = sample_at(options.length_ms, rate);
    for (const PlayedNote& note : notes) {
        if (is_audible(note)) end = std::max(end, sample_at(note.ms + note.duration_ms, rate));
    }
    return end;
}

using Piece = std::array<float, 2 * piece>;  // left and right by turns

/// Calls sink(Piece, frames) for all that sounds, and progress(0 to 1); false when that said so.
template <typename Sink, typename Progress>
bool render(std::span<const PlayedNote> notes, const WavOptions& options, Sink sink, Progress progress) {
    Synth synth(options.sound_font.empty() ? find_sound_font() : options.sound_font, rate);
    synth.set_volume(std::clamp(options.volume, 0.0, 1.0));
    hand_in(synth, notes);
    const std::int64_t end = end_of(notes, options);
    const auto render_piece = [&](int frames) {
        std::array<float, piece> left, right;
        Piece both;
        synth.render(left.data(), right.data(), frames);
        synth.collect();
        for (std::size_t i = 0; i < static_cast<std::size_t>(frames); ++i) {
            both[2 * i] = left[i];
            both[2 * i + 1] = right[i];
        }
        sink(both, frames);
    };
    while (synth.position() < end) {
        if (!progress(static_cast<double>(synth.position()) / static_cast<double>(end))) return false;
        render_piece(static_cast<int>(std::min<std::int64_t>(piece, end - synth.position())));
    }
    while (!synth.silent() && synth.position() < end + longest_fade) render_piece(piece);
    return true;
}

}  // namespace

bool render_wav(std::span<const PlayedNote> notes, const std::string& path, const WavOptions& options) {
    float peak = 0, gain = 1;
    const double passes = options.full_level ? 2 : 1;
    const auto listen = [&](const Piece& both, int frames) {
        for (std::size_t i = 0; i < 2 * static_cast<std::size_t>(frames); ++i)
            peak = std::max(peak, std::abs(both[i]));
    };
    if (options.full_level &&
        !render(notes, options, listen, [&](double done) { return options.progress(done / passes); }))
        return false;
    if (peak > 0) gain = 1 / peak;
    WavWriter file(path);
    const auto write = [&](Piece& both, int frames) {
        for (float& sample : both) sample *= gain;
        file.write(both.data(), frames);
    };
    const auto tell = [&](double done) { return options.progress((passes - 1 + done) / passes); };
    if (!render(notes, options, write, tell)) return false;
    file.finish();
    return true;
}

}  // namespace tq
