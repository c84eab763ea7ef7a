#include "app/sound/wav.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "app/sound/error.h"
#include "temporary_folder.h"

namespace tq {
namespace {

struct WavFile {
    SF_INFO info{};
    std::vector<short> samples;  // interleaved

    explicit WavFile(const std::string& path) {
        SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
        if (!file) return;
        samples.resize(static_cast<std::size_t>(info.frames * info.channels));
        sf_readf_short(file, samples.data(), info.frames);
        sf_close(file);
    }
    // The first frame from `from` on that is not silent.
    long onset(long from) const {
        while (from < info.frames && std::abs(samples[static_cast<std::size_t>(2 * from)]) < 3) ++from;
        return from;
    }
};

class Wav : public testing::Test {
 protected:
    static PlayedNote click(double ms) {
        return {.ms = ms,
                .duration_ms = 20,
                .pitch = 37,
                .velocity = 127,
                .voice = {.drums = true},
                .source = "0"};
    }

    const test::TemporaryFolder folder;
    const std::string path = folder.file("out.wav");
};

TEST_F(Wav, everyNoteIsAtItsSample) {
    const double times[] = {0, 2333.3333, 4000.01, 5777.7};
    std::vector<PlayedNote> notes;
    for (const double ms : times) notes.push_back(click(ms));
    render_wav(notes, path);
    const WavFile wav(path);
    EXPECT_EQ(wav.info.samplerate, 44100);
    EXPECT_EQ(wav.info.channels, 2);
    const long delay = wav.onset(0);
    EXPECT_LT(delay, 60) << "the attack of the sound itself";
    for (const double ms : times) {
        const long sample = std::lround(ms * 44.1);
        EXPECT_EQ(wav.onset(std::max(sample - 200, 0L)), sample + delay) << ms;
    }
}

TEST_F(Wav, lastsAsLongAsAskedForAndUntilTheSoundHasFaded) {
    render_wav({}, path, {1500, 1, ""});
    EXPECT_EQ(WavFile(path).info.frames, 66150);
    const std::vector<PlayedNote> notes = {{.duration_ms = 100, .voice = {.program = 48}, .source = "0"}};
    render_wav(notes, path);
    const WavFile wav(path);
    EXPECT_GT(wav.info.frames, 4410 + 4410);
    EXPECT_LT(std::abs(wav.samples.back()), 10);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 1)
        << "nothing lies beside the file";
}

TEST_F(Wav, saysWhyItCannotWriteAndLeavesWhatWasThere) {
    const std::string target = folder.file("missing/out.wav");
    try {
        render_wav({}, target);
        FAIL() << "no error";
    } catch (const SoundError& error) {
        EXPECT_TRUE(std::string(error.what()).starts_with("could not write \"" + target + "\": "))
            << error.what();
    }
    render_wav({}, path, {10, 1, ""});
    EXPECT_THROW(render_wav({}, path, {99, 1, "/dev/null"}), SoundError);
    EXPECT_EQ(WavFile(path).info.frames, 441);
}

}  // namespace
}  // namespace tq
