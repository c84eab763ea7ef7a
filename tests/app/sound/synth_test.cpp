#include "app/sound/synth.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "app/sound/error.h"
#include "app/sound/rendered.h"

namespace tq {
namespace {

using test::hand_in, test::rate, test::render, test::Rendered;

constexpr int drum_click = 37;  // a side stick: short, with a hard beginning

PlayedNote note_at(double ms, double duration_ms = 100, double pitch = 60, Voice voice = {}) {
    return {.ms = ms, .duration_ms = duration_ms, .pitch = pitch, .voice = voice, .source = "0"};
}

Rendered sound_of(const std::vector<PlayedNote>& notes, std::size_t frames, std::size_t piece = 1000) {
    Synth synth(find_sound_font(), rate);
    for (const PlayedNote& note : notes) hand_in(synth, note);
    return render(synth, frames, piece);
}

// The frequency of a nearly pure tone: by how far its phase turns from one half of the stretch to the other,
// around a frequency that is nearly right.
double frequency(const std::vector<float>& samples, std::size_t begin, std::size_t length, double near) {
    double phase[2] = {};
    for (std::size_t half = 0; half < 2; ++half) {
        double real = 0, imaginary = 0;
        for (std::size_t i = 0; i < length / 2; ++i) {
            const std::size_t at = half * (length / 2) + i;
            const double angle = 2 * std::numbers::pi * near * static_cast<double>(at) / rate;
            const double window =
                1 - std::cos(2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(length / 2));
            real += samples[begin + at] * window * std::cos(angle);
            imaginary -= samples[begin + at] * window * std::sin(angle);
        }
        phase[half] = std::atan2(imaginary, real);
    }
    const double turn = std::remainder(phase[1] - phase[0], 2 * std::numbers::pi);
    return near + turn / (2 * std::numbers::pi) * rate / (static_cast<double>(length) / 2);
}

double hertz(double pitch) { return 440 * std::exp2((pitch - 69) / 12); }

constexpr Voice ocarina{.program = 79};  // of all the sounds, nearly a sine

TEST(Synth, aNoteBeginsOnItsSampleWhereverTheBlocksAre) {
    const auto first = sound_of({note_at(0, 50, drum_click, {.drums = true})}, 4000);
    EXPECT_LE(first.first(), 2u);
    for (const double ms : {0.1, 1.0, 3.217, 17.77, 100.0, 333.333}) {
        const auto start = static_cast<std::size_t>(std::lround(ms * rate / 1000));
        const auto sound = sound_of({note_at(ms, 50, drum_click, {.drums = true})}, 20000);
        for (std::size_t i = 0; i < 4000; ++i)
            ASSERT_EQ(sound.left[start + i], first.left[i]) << ms << " ms, sample " << i;
        EXPECT_EQ(sound.first(), start + first.first());
    }
}

// What one note sounds like does not depend on the others: the sum of all is the sound of all.
TEST(Synth, manyNotesOnAllSamplesAddUp) {
    std::vector<PlayedNote> notes;
    std::vector<double> sum(6000);
    for (int i = 0; i < 20; ++i) {
        notes.push_back(note_at(i * 1000.0 / rate * 35, 20, 40 + i * 5 % 50));
        notes.back().velocity = 8;  // softly, so that nothing is rounded off
        const auto alone = sound_of({notes.back()}, 6000);
        for (std::size_t at = 0; at < sum.size(); ++at) sum[at] += alone.left[at];
    }
    const auto together = sound_of(notes, 6000);
    for (std::size_t i = 0; i < sum.size(); ++i) ASSERT_NEAR(together.left[i], sum[i], 1e-5) << i;
    EXPECT_GT(together.loudness(0, 6000), 0);
}

TEST(Synth, theSizeOfThePiecesChangesNothing) {
    std::vector<PlayedNote> notes = {note_at(3, 40, 60), note_at(11.3, 100, 64.5), note_at(30, 10, 67)};
    notes[1].curve = {{0, 64.5}, {100, 70}};
    const auto expected = sound_of(notes, 12000, 12000);
    for (const std::size_t piece : {1u, 64u, 441u, 1023u})
        EXPECT_EQ(sound_of(notes, 12000, piece).left, expected.left) << piece;
}

TEST(Synth, notesEndAndNothingIsLeft) {
    Synth synth(find_sound_font(), rate);
    hand_in(synth, note_at(0, 500, 72, ocarina));
    hand_in(synth, note_at(0, 1e9, 76, ocarina), 1);
    auto sound = render(synth, 44100);
    EXPECT_EQ(synth.sounding(), 1);
    EXPECT_GT(sound.loudness(40000, 44000), 0.001) << "the other source's note goes on";
    synth.stop({.source = 1}, 44100);
    hand_in(synth, note_at(1500, 1e9, 60, ocarina), 1);
    synth.stop({}, 44100 * 2);
    render(synth, 44100);
    EXPECT_EQ(synth.sounding(), 1) << "what starts after the stop sounds";
    render(synth, 44100 * 5);
    EXPECT_EQ(synth.sounding(), 0);
    EXPECT_EQ(render(synth, 1000).loudness(0, 1000), 0);
}

TEST(Synth, equalKeysThatOverlapDoNotEndEachOther) {
    Synth synth(find_sound_font(), rate);
    hand_in(synth, note_at(0, 1000, 60, ocarina));
    hand_in(synth, note_at(100, 100, 60, ocarina));
    const auto sound = render(synth, 44100 * 2);
    EXPECT_GT(sound.loudness(30000, 43000), 0.01) << "the long note outlives the short one";
    EXPECT_LT(sound.loudness(80000, 88000), 0.001);
}

TEST(Synth, aBankThatTheFontLacksIsItsNearestRelative) {
    const Rendered plain = sound_of({note_at(0, 100, 60, {.program = 40})}, 8820);
    EXPECT_EQ(sound_of({note_at(0, 100, 60, {.program = 40, .bank = 99, .fine_bank = 98})}, 8820).left,
              plain.left);
    const Rendered kit = sound_of({note_at(0, 100, 38, {.drums = true})}, 8820);
    EXPECT_NE(sound_of({note_at(0, 100, 38, {.program = 25, .drums = true})}, 8820).left, kit.left)
        << "another kit";
    EXPECT_EQ(sound_of({note_at(0, 100, 38, {.program = 99, .drums = true})}, 8820).left, kit.left);
}

TEST(Synth, closedHiHatCutsTheOpenOneOfItsSourceOnly) {
    constexpr double open = 46;
    constexpr double closed = 42;
    const auto rest = [](int source_of_closed) {
        Synth synth(find_sound_font(), rate);
        hand_in(synth, note_at(0, 50, open, {.drums = true}));
        hand_in(synth, note_at(100.5, 50, closed, {.drums = true}), source_of_closed);
        const auto sound = render(synth, 44100);
        return sound.loudness(15000, 22000);
    };
    EXPECT_LT(rest(0), 0.5 * rest(1));
}

struct Tuning {
    double pitch;
    std::vector<CurvePoint> curve;
    double ms;  // where to listen, for 100 ms
    double expected;
    double key;  // the one that is pressed: the samples of a font are a few cents out of tune
};

// How many semitones a sound is away from a pitch.
double mistuning(const Rendered& sound, double ms, double pitch) {
    const double heard =
        frequency(sound.left, static_cast<std::size_t>(ms * rate / 1000), 4410, hertz(pitch));
    return 12 * std::log2(heard / hertz(pitch));
}

TEST(Synth, fractionsAndCurvesAreHeard) {
    const std::vector<Tuning> rows = {
        {72, {}, 500, 72, 72},
        {72.5, {}, 500, 72.5, 73},
        {71.9, {}, 500, 71.9, 72},
        {60, {{0, 60}, {400, 72}, {1000, 72}}, 600, 72, 60},
        {72, {{0, 72}, {500, 72}, {500, 74}, {1000, 74}}, 300, 72, 72},
        {72, {{0, 72}, {500, 72}, {500, 74}, {1000, 74}}, 700, 74, 72},
        {72, {{0, 72}, {1000, 73}}, 450, 72.5, 72},
        {20, {{0, 20}, {100, 120}, {200, 72.25}, {1000, 72.25}}, 500, 72.25, 70},
    };
    // Another note at the same time, which would bend as well if the bent one had no channel of its own.
    const PlayedNote other = note_at(0, 1000, 55, ocarina);
    const double other_alone = mistuning(sound_of({other}, 44100), 500, 55);
    for (const Tuning& row : rows) {
        const double key = mistuning(sound_of({note_at(0, 1000, row.key, ocarina)}, 44100), row.ms, row.key);
        PlayedNote note = note_at(0, 1000, row.pitch, ocarina);
        note.curve = row.curve;
        const auto sound = sound_of({note, other}, 44100);
        EXPECT_NEAR(mistuning(sound, row.ms, row.expected), key, 0.02) << row.pitch << " at " << row.ms;
        EXPECT_NEAR(mistuning(sound, row.ms, 55), other_alone, 0.02) << row.pitch << " at " << row.ms;
    }
}

TEST(Synth, controllersAreHeardUnderTheirOwnNoteOnly) {
    const auto with = [](PlayedNote note, int controller, std::vector<CurvePoint> points) {
        note.controllers = {{controller, std::move(points)}};
        return note;
    };
    const PlayedNote plain = note_at(0, 1000, 60, ocarina);
    const Rendered usual = sound_of({plain}, 44100);
    const auto loudness = [&](const Rendered& r) {
        return r.loudness(11025, 33075) / usual.loudness(11025, 33075);
    };
    EXPECT_NEAR(loudness(sound_of({with(plain, Volume, {{0, 50}, {1000, 50}})}, 44100)), 0.25, 0.01)
        << "half the volume is a quarter of the level";
    const Rendered fading =
        sound_of({with(plain, Expression, {{0, 127}, {500, 127}, {500, 0}, {1000, 0}})}, 44100);
    EXPECT_NEAR(fading.loudness(4410, 22000) / usual.loudness(4410, 22000), 1, 0.01);
    EXPECT_LT(fading.loudness(24000, 40000) / usual.loudness(24000, 40000), 0.01);
    const Rendered left = sound_of({with(plain, Pan, {{0, 0}, {1000, 0}})}, 44100);
    EXPECT_GT(left.loudness(11025, 33075), 1.3 * usual.loudness(11025, 33075));
    // The channel of a silent note is as new for the next one.
    std::vector<PlayedNote> notes;
    for (int i = 0; i < 200; ++i)
        notes.push_back(with(note_at(i * 5, 4, 60, ocarina), Volume, {{0, 0}, {4, 0}}));
    notes.push_back(with(note_at(3000, 1000, 60, ocarina), Modulation, {{0, 1}, {1000, 1}}));
    const Rendered after = sound_of(notes, 4 * 44100);
    EXPECT_NEAR(after.loudness(3 * 44100 + 11025, 3 * 44100 + 33075) / usual.loudness(11025, 33075), 1, 0.02);
}

TEST(Synth, neverExceedsOneAndFollowsTheVolume) {
    std::vector<PlayedNote> loud;
    for (int i = 0; i < 60; ++i) loud.push_back(note_at(0, 300, 30 + i, {.program = 48}));
    for (PlayedNote& note : loud) note.velocity = 127;
    const auto sound = sound_of(loud, 20000);
    for (const float sample : sound.left) ASSERT_LE(std::abs(sample), 1.f);
    const auto soft = [](double volume) {
        Synth synth(find_sound_font(), rate);
        synth.set_volume(volume);
        hand_in(synth, note_at(0, 300, 60, ocarina));
        return render(synth, 10000).loudness(0, 10000);
    };
    EXPECT_NEAR(soft(0.5), soft(1) / 2, 1e-6);
    EXPECT_EQ(soft(0), 0);
}

TEST(Synth, tellsWhatIsWrongWithAFont) {
    try {
        Synth synth("/dev/null", rate);
        FAIL() << "no error";
    } catch (const SoundError& error) {
        EXPECT_STREQ(error.what(), "/dev/null: not a sound font");
    }
}

}  // namespace
}  // namespace tq
