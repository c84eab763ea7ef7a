// What notes that play samples sound like, by numbers.
#include "app/sound/sample_voices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "app/sound/recorder.h"
#include "app/sound/rendered.h"

namespace tq {
namespace {

using test::hand_in, test::rate, test::Rendered;

constexpr float headroom = 0.4f;  // of everything that is played

SoundRef noise(long frames, long channels = 1, double of_rate = rate) {
    std::mt19937 random(3);
    std::vector<float> samples;
    for (long i = 0; i < frames * channels; ++i)
        samples.push_back(static_cast<float>(random() % 20001) / 10000.f - 1.f);
    return new Sound(channels, of_rate, std::move(samples));
}

SoundRef impulse(long frames, long at, double of_rate = rate) {
    std::vector<float> samples(static_cast<std::size_t>(frames));
    samples[static_cast<std::size_t>(at)] = 1;
    return new Sound(1, of_rate, std::move(samples));
}

SoundRef sine(double hertz, double of_rate, double seconds) {
    std::vector<float> samples;
    for (double i = 0; i < seconds * of_rate; ++i)
        samples.push_back(static_cast<float>(std::sin(2 * std::numbers::pi * hertz * i / of_rate)));
    return new Sound(1, of_rate, std::move(samples));
}

PlayedNote played(double ms, double duration_ms, const PlayedSample& sample, double velocity = 127) {
    return PlayedNote{
        .ms = ms, .duration_ms = duration_ms, .velocity = velocity, .source = "0", .sample = sample};
}

struct Samples : testing::Test {
    Samples() : synth(find_sound_font(), rate) {}
    Rendered render(const std::vector<PlayedNote>& notes, std::size_t frames) {
        for (const PlayedNote& note : notes) hand_in(synth, note);
        return test::render(synth, frames);
    }
    double now() const { return static_cast<double>(synth.position()) / rate * 1000; }
    Synth synth;
};

TEST_F(Samples, arePlayedAsTheyAreFromTheirSampleOn) {
    const SoundRef mono = noise(2000), stereo = noise(2000, 2);
    const Rendered out =
        render({played(100, 1000, {mono, 0, mono->ms(), 1}), played(200.01, 1000, {stereo, 10, 20, 1}, 63.5)},
               60000);
    EXPECT_EQ(out.first(), 4410u);
    for (std::size_t i = 0; i < 2000; ++i) {
        ASSERT_FLOAT_EQ(out.left[4410 + i], headroom * mono->samples[i]) << i;
        ASSERT_EQ(out.right[4410 + i], out.left[4410 + i]);
    }
    EXPECT_EQ(out.left[4410 + 2000], 0);
    for (std::size_t i = 0; i < 441; ++i) {
        ASSERT_FLOAT_EQ(out.left[8820 + i], headroom / 2 * stereo->samples[2 * (441 + i)]) << i;
        ASSERT_FLOAT_EQ(out.right[8820 + i], headroom / 2 * stereo->samples[2 * (441 + i) + 1]) << i;
    }
    EXPECT_LE(out.last(), 8820u + 441) << "the range is over";
    EXPECT_TRUE(synth.silent());
}

TEST_F(Samples, ofManyChannelsAreFoldedIntoTwo) {
    const SoundRef sound(new Sound(4, rate, {1, -1, 1, 1, 0.5f, 0, 0, 0}));
    const Rendered out = render({played(0, 100, {sound, 0, 1, 1})}, 100);
    EXPECT_FLOAT_EQ(out.left[0], headroom);
    EXPECT_FLOAT_EQ(out.right[0], 0);
    EXPECT_FLOAT_EQ(out.left[1], headroom * 0.25f);
}

struct RangeRow {
    double start, end, duration, speed;
    std::size_t samples;  ///< that sound
};

TEST_F(Samples, soundOnlyWithinTheirRangeAndTheirEvent) {
    const SoundRef second(new Sound(1, rate, std::vector<float>(44100, 1.f)));
    const double odd = std::numeric_limits<double>::quiet_NaN(),
                 infinite = std::numeric_limits<double>::infinity();
    const RangeRow rows[] = {
        {0, 1000, 2000, 1, 44100},  {0, 1000, 500, 1, 22050},   {0, 1000, 1000, 2, 22050},
        {250, 260, 2000, 1, 441},   {0, 0.02, 2000, 1, 1},      {500, 500, 2000, 1, 0},
        {600, 500, 2000, 1, 0},     {900, 5000, 2000, 1, 4410}, {-500, 100, 2000, 1, 4410},
        {1500, 2500, 2000, 1, 0},   {0, 1000, 0, 1, 0},         {0, 1000, 2000, 1e9, 1},
        {0, 1000, 100, 1e-9, 4410}, {0, 1000, 100, 0, 0},       {0, 1000, 100, -1, 0},
        {0, 1000, 100, odd, 0},     {odd, 1000, 100, 1, 0},     {0, infinite, 100, 1, 0},
        {0, 1000, 999.5, 1, 44100}, {0, 1e300, 100, 1, 4410}};
    for (const RangeRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::vector{row.start, row.end, row.duration, row.speed}));
        const Rendered out =
            render({played(now(), row.duration, {second, row.start, row.end, row.speed})}, 100000);
        if (row.samples == 0) {
            EXPECT_EQ(out.first(), out.left.size());
        } else {
            EXPECT_EQ(out.first(), 0u);
            EXPECT_NEAR(static_cast<double>(out.last()), static_cast<double>(row.samples - 1), 1);
        }
        EXPECT_TRUE(synth.silent());
    }
    const SoundRef empty(new Sound(2, rate, {}));
    EXPECT_EQ(render({played(0, 100, {empty, 0, 100, 1})}, 5000).first(), 5000u);
}

TEST_F(Samples, ofSlicedEventsJoinWithoutASeam) {
    const SoundRef sound = noise(22050);
    const Rendered out = render({played(0, 200, {sound, 0, 200, 1}), played(200, 133, {sound, 200, 333.4, 1}),
                                 played(333.4, 166, {sound, 333.4, 500, 1})},
                                22050);
    for (std::size_t i = 0; i < 22050; ++i) ASSERT_FLOAT_EQ(out.left[i], headroom * sound->samples[i]) << i;
}

TEST_F(Samples, areWhereTheyBelongAtAnySpeed) {
    for (const double of_rate : {8000., 22050., 44100., 48000., 192000.})
        for (const double ratio : {0.25, 0.9, 1., 1.5, 2., 3.7, 12.}) {
            const double at_ms = 300;
            const auto at = static_cast<long>(at_ms * of_rate / 1000);
            const Rendered out =
                render({played(now(), 5000, {impulse(at * 2, at, of_rate), 0, 600, ratio})}, 120000);
            EXPECT_NEAR(static_cast<double>(out.peak()), at_ms / ratio * rate / 1000, 1.01)
                << of_rate << " frames a second, " << ratio;
        }
}

TEST_F(Samples, keepTheirSoundAtOtherRates) {
    const SoundRef sound = sine(1000, 48000, 0.5);
    const Rendered out = render({played(0, 400, {sound, 0, 500, 1})}, 44100);
    double worst = 0;
    for (std::size_t i = 100; i < 17000; ++i)
        worst = std::max(worst, std::abs(out.left[i] - headroom * std::sin(2 * std::numbers::pi * 1000 *
                                                                           static_cast<double>(i) / rate)));
    EXPECT_LT(worst, headroom * 1e-3);
    const Rendered fast = render({played(now(), 100, {sine(8000, rate, 1), 0, 1000, 4})}, 8820);
    for (std::size_t i = 200; i < 4000; ++i)
        ASSERT_LT(std::abs(fast.left[i]), headroom * 1e-2)
            << "an octave above what can be heard does not fold back";
}

TEST_F(Samples, endWithoutAClickWhenStoppedOrCut) {
    const SoundRef level(new Sound(1, rate, std::vector<float>(44100, 1.f)));
    hand_in(synth, played(0, 1000, {level, 0, 1000, 1}));
    hand_in(synth, played(500, 100, {level, 0, 1000, 1}));
    synth.stop({}, 4410);
    const Rendered out = test::render(synth, 44100);
    EXPECT_FLOAT_EQ(out.left[4409], headroom) << "until it is stopped";
    EXPECT_EQ(out.left[4410 + 221], 0) << "5 ms later";
    EXPECT_FLOAT_EQ(out.left[22050], headroom);
    EXPECT_EQ(out.left[26460], 0) << "the event is over";
    EXPECT_GT(out.left[26460 - 30], 0);
    for (std::size_t i = 1; i < out.left.size(); ++i)
        if (i != 22050) {
            ASSERT_LE(std::abs(out.left[i] - out.left[i - 1]), headroom / 100) << i;
        }
}

TEST_F(Samples, thatComeTooLateStartAtOnceAndEndWhenTheyShould) {
    const SoundRef level(new Sound(1, rate, std::vector<float>(44100, 1.f)));
    test::render(synth, 2205);
    const Rendered out =
        render({played(0, 2000, {level, 0, 1000, 1}), played(0, 10, {level, 0, 1000, 1})}, 60000);
    EXPECT_FLOAT_EQ(out.left[0], headroom) << "the second is over";
    EXPECT_EQ(out.last(), 44100u - 2205 - 1);
}

TEST_F(Samples, areGivenBackWhileTheyFadeAndWhenNothingIsRenderedAnyMore) {
    const SoundRef sound = noise(44100);
    {
        Synth other(find_sound_font(), rate);
        for (int i = 0; i < 3; ++i) hand_in(other, played(i, 100, {sound, 0, 1000, 1}));
        other.stop({}, 100);
        test::render(other, 120);
        other.collect();
        EXPECT_EQ(sound->use_count(), 4u);
    }
    EXPECT_EQ(sound->use_count(), 1u);
}

TEST_F(Samples, areNoNotesOfAMidiFileByThemselves) {
    Recorder recorder;
    PlayedNote both = played(0, 100, {noise(10), 0, 1, 1}), alone = both;
    alone.only_sample = true;
    recorder.note(both);
    recorder.note(alone);
    const std::vector<MidiPart> parts = recorder.midi_parts();
    ASSERT_EQ(parts.size(), 1u);
    EXPECT_EQ(parts[0].notes.size(), 1u);
}

}  // namespace
}  // namespace tq
