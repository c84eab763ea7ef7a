#include "app/sound/wav.h"

#include <sndfile.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <memory>

#include "app/sound/error.h"
#include "app/sound/fluid.h"
#include "app/sound/synth.h"

namespace tq {

namespace {

constexpr int rate = 44100;
constexpr int piece = 4096;
constexpr int longest_fade = 30 * rate;  // some sounds of some fonts never fade by themselves

struct CloseSound {
    void operator()(SNDFILE* file) const { sf_close(file); }
};

// A sound file that has its name only once it is whole.
class WavWriter {
 public:
    explicit WavWriter(std::string path)
        : path_(std::move(path)), beside_(path_ + ".part" + std::to_string(getpid())) {
        SF_INFO info{};
        info.samplerate = rate;
        info.channels = 2;
        info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
        file_.reset(sf_open(beside_.c_str(), SFM_WRITE, &info));
        if (!file_) fail(sf_strerror(nullptr));
        sf_command(file_.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
    }
    ~WavWriter() {
        file_.reset();
        std::error_code ignored;
        if (!beside_.empty()) std::filesystem::remove(beside_, ignored);
    }
    WavWriter(const WavWriter&) = delete;
    WavWriter& operator=(const WavWriter&) = delete;

    void write(const float* interleaved, int frames) {
        if (sf_writef_float(file_.get(), interleaved, frames) != frames) fail(sf_strerror(file_.get()));
    }
    void finish() {
        sf_write_sync(file_.get());
        if (sf_error(file_.get()) != SF_ERR_NO_ERROR) fail(sf_strerror(file_.get()));
        if (sf_close(file_.release()) != 0) fail("the file cannot be closed");
        std::error_code error;
        std::filesystem::rename(beside_, path_, error);
        if (error) fail(error.message());
        beside_.clear();
    }

 private:
    [[noreturn]] void fail(const std::string& reason) const { throw SoundError(path_ + ": " + reason); }

    std::string path_;
    std::string beside_;
    std::unique_ptr<SNDFILE, CloseSound> file_;
};

void hand_in(Synth& synth, std::span<const PlayedNote> notes) {
    std::map<std::string, int> sources;
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

void render_piece(Synth& synth, WavWriter& file, int frames) {
    std::array<float, piece> left;
    std::array<float, piece> right;
    std::array<float, 2 * piece> both;
    synth.render(left.data(), right.data(), frames);
    synth.collect();
    for (std::size_t i = 0; i < static_cast<std::size_t>(frames); ++i) {
        both[2 * i] = left[i];
        both[2 * i + 1] = right[i];
    }
    file.write(both.data(), frames);
}

}  // namespace

void render_wav(std::span<const PlayedNote> notes, const std::string& path, const WavOptions& options) {
    Synth synth(options.sound_font.empty() ? find_sound_font() : options.sound_font, rate);
    synth.set_volume(std::clamp(options.volume, 0.0, 1.0));
    hand_in(synth, notes);
    const std::int64_t end = end_of(notes, options);
    WavWriter file(path);
    while (synth.position() < end) {
        render_piece(synth, file, static_cast<int>(std::min<std::int64_t>(piece, end - synth.position())));
    }
    while (!synth.silent() && synth.position() < end + longest_fade) render_piece(synth, file, piece);
    file.finish();
}

}  // namespace tq
