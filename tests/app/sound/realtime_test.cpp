// The real-time player without an audio device: the test is the audio thread.
#include "app/sound/realtime.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <thread>

#include "app/sound/audio_output.h"

/// Of the sanitizer; null in a program without one.
extern "C" __attribute__((weak)) int __sanitizer_install_malloc_and_free_hooks(
    void (*allocated)(const volatile void*, size_t), void (*freed)(const volatile void*));

namespace tq {
namespace {

constexpr double rate = 44100;
constexpr double latency_ms = 60;

class Realtime : public testing::Test {
 protected:
    // A side stick: short and with a hard beginning.
    static PlayedNote click(double ms, double duration_ms = 20) {
        return {.ms = ms, .duration_ms = duration_ms, .pitch = 37, .voice = {.drums = true}, .source = "0"};
    }
    static PlayedNote held(double ms, const std::string& source) {
        return {.ms = ms, .duration_ms = 1e8, .voice = {.program = 48}, .source = source};
    }

    void render(std::size_t frames) {
        while (frames > 0) {
            float left[256], right[256];
            const std::size_t part = std::min<std::size_t>(frames, 256);
            player.render(left, right, static_cast<int>(part));
            sound.insert(sound.end(), left, left + part);
            frames -= part;
        }
    }
    // The first sample that is not silent, from a place on; the first of every note is exactly 0.
    std::size_t onset(std::size_t from) const {
        while (from < sound.size() && sound[from] == 0) ++from;
        return from - 1;
    }

    RealtimePlayer player{find_sound_font(), rate, latency_ms};
    std::vector<float> sound;
};

TEST_F(Realtime, notesComeOneLatencyAfterTheirTimeHoweverLateTheyAreHandedIn) {
    render(10007);
    player.start(5000);
    const std::size_t zero = sound.size() + 2646;  // 60 ms
    player.note(click(5000));
    render(44100);
    EXPECT_EQ(onset(zero - 100), zero);
    // Handed in 10 ms and 50 ms after their time.
    render(441);
    player.note(click(6000));
    render(44100);
    EXPECT_EQ(onset(zero + 44000), zero + 44100);
    EXPECT_EQ(player.late(), 0);
}

TEST_F(Realtime, whatComesTooLateIsHeardAtOnceAndTheRhythmGoesOn) {
    player.start(0);
    render(44100);
    player.note(click(500));  // its sample passed 440 ms ago
    player.note(click(1000));
    render(88200);
    EXPECT_EQ(player.late(), 1);
    EXPECT_EQ(onset(44000), 44100u);
    EXPECT_EQ(onset(44100 + 22050 - 100), 44100u + 22050u);
}

TEST_F(Realtime, stopsEndTheNotesOfTheirSource) {
    player.start(0);
    player.note(held(0, "0"));
    player.note(held(0, "1"));
    player.note(held(10, "1"));
    render(8820);
    EXPECT_EQ(player.sounding(), 3);
    player.stop("1", 200);
    player.stop("unknown", 200);
    render(8820);
    EXPECT_EQ(player.sounding(), 1);
    player.stop_all(400);
    render(88200);
    EXPECT_EQ(player.sounding(), 0);
    EXPECT_NEAR(sound.back(), 0, 1e-4) << "and their sound has faded";
    PlayedNote senseless = click(3000);
    senseless.pitch = std::nan("");
    player.note(senseless);
    render(44100);
    EXPECT_NEAR(sound.back(), 0, 1e-4);
}

TEST_F(Realtime, thePeakIsOfAllThatWasRenderedSinceItWasTaken) {
    player.start(0);
    player.note(click(0));
    render(44100);
    const float highest = *std::ranges::max_element(sound);
    const float peak = player.take_peak();
    EXPECT_GT(highest, 0.01f);
    EXPECT_GE(peak, highest) << "of both sides, block by block";
    EXPECT_LE(peak, 1);
    EXPECT_EQ(player.take_peak(), 0);
    render(44100);
    EXPECT_LT(player.take_peak(), 1e-3f) << "silence by now";
}

TEST_F(Realtime, nothingIsLostBetweenTheThreads) {
    std::atomic<bool> done = false;
    std::thread audio([&] {
        float left[64], right[64];
        while (!done) player.render(left, right, 64);
    });
    player.start(0);
    for (int i = 0; i < 20000; ++i) player.note(held(0, std::to_string(i % 7)));
    done = true;
    audio.join();
    render(4410);
    EXPECT_EQ(player.sounding(), 20000);
    player.stop_all(0);
    render(64);
    EXPECT_EQ(player.sounding(), 0);
}

thread_local bool on_audio_thread = false;
std::atomic<int> asked_for_memory = 0;
void note_memory(const volatile void*, size_t) {
    if (on_audio_thread) ++asked_for_memory;
}
void note_nothing(const volatile void*) {}

TEST_F(Realtime, asksForNoMemoryHoweverMuchComes) {
    if (!__sanitizer_install_malloc_and_free_hooks) GTEST_SKIP() << "nobody tells of memory";
    ASSERT_GT(__sanitizer_install_malloc_and_free_hooks(note_memory, note_nothing), 0);
    constexpr int notes = 40000;
    std::vector<float> left(64), right(64);
    const auto render_on_audio_thread = [&] {
        on_audio_thread = true;
        player.render(left.data(), right.data(), 64);
        on_audio_thread = false;
    };
    player.start(0);
    for (int i = 0; i < notes; ++i) {
        player.note(held(1e6, "0"));
        player.stop("1", 1e6);
        if (i % 1000 == 0) render_on_audio_thread();
    }
    for (int i = 0; i < notes; ++i) player.note(held(0, "0"));
    render_on_audio_thread();
    EXPECT_EQ(asked_for_memory, 0);
}

TEST(AudioOutput, opensOrSaysWhyNotWithoutAWord) {
    AudioOutput output;
    testing::internal::CaptureStderr();
    const std::string error = output.open();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(error.empty() || error == "no audio device can be opened") << error;
    output.start(0);
    output.note({.duration_ms = 10, .velocity = 1, .source = "0"});
    output.close();
}

}  // namespace
}  // namespace tq
