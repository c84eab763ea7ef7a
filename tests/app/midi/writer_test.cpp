#include "app/midi/writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "app/midi/controllers.h"
#include "app/midi/raw_file.h"
#include "app/midi/reader.h"

namespace tq {
namespace {

// A note as it sounds: what was written or what was read back, by start.
struct Heard {
    double start, end, velocity;
    Voice voice;
    std::vector<CurvePoint> curve;  // at least two points
};

double pitch_at(const Heard& note, double ms) {
    const auto& curve = note.curve;
    for (std::size_t i = 1; i < curve.size(); ++i) {
        if (ms > curve[i].ms) continue;
        const double span = curve[i].ms - curve[i - 1].ms;
        const double part = span > 0 ? (ms - curve[i - 1].ms) / span : 1;
        return curve[i - 1].value + part * (curve[i].value - curve[i - 1].value);
    }
    return curve.back().value;
}

std::vector<Heard> sorted(std::vector<Heard> notes) {
    std::ranges::stable_sort(notes, [](const Heard& a, const Heard& b) {
        return std::pair(std::lround(a.start), a.velocity) < std::pair(std::lround(b.start), b.velocity);
    });
    return notes;
}

std::vector<Heard> heard(const std::vector<MidiPart>& parts) {
    std::vector<Heard> notes;
    for (const MidiPart& part : parts) {
        for (const PartNote& note : part.notes) {
            auto curve = note.curve;
            if (curve.empty()) curve = {{0, note.pitch}, {note.duration_ms, note.pitch}};
            notes.push_back(
                {note.start_ms, note.start_ms + note.duration_ms, note.velocity, part.voice, curve});
        }
    }
    return sorted(notes);
}

std::vector<Heard> heard(const MidiSong& song) {
    std::vector<Heard> notes;
    for (const MidiTrack& track : song.tracks) {
        for (const MidiNote& note : track.notes) {
            std::vector<CurvePoint> curve;
            for (const CurvePoint& point : track.bend(note))
                curve.push_back({point.ms, note.pitch + point.value});
            const double pitch = note.pitch;
            if (curve.empty()) curve = {{0, pitch}, {note.duration_ms, pitch}};
            notes.push_back({note.start_ms, note.start_ms + note.duration_ms,
                             static_cast<double>(note.velocity), track.voice, curve});
        }
    }
    return sorted(notes);
}

// How far a stair of 5 ms, a tick and a wheel position may be away from the curve around a time.
bool follows(const Heard& ours, const Heard& theirs, double ms) {
    std::vector<double> pitches = {pitch_at(theirs, std::max(ms - 6, 0.0)),
                                   pitch_at(theirs, std::min(ms + 6, theirs.end - theirs.start))};
    for (const CurvePoint& point : theirs.curve) {
        if (std::abs(point.ms - ms) <= 6) pitches.push_back(point.value);
    }
    const auto [low, high] = std::ranges::minmax(pitches);
    const double found = pitch_at(ours, ms);
    return found >= low - 0.02 && found <= high + 0.02;
}

void expect_round_trip(const std::vector<MidiPart>& parts) {
    const auto written = heard(parts);
    const auto read = heard(read_midi_file(write_midi_file(parts)));
    ASSERT_EQ(read.size(), written.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
        SCOPED_TRACE("note " + std::to_string(i) + " at " + std::to_string(written[i].start));
        ASSERT_NEAR(read[i].start, written[i].start, 0.1);
        ASSERT_NEAR(read[i].end, written[i].end, 0.1);
        ASSERT_EQ(read[i].velocity, std::clamp(std::round(written[i].velocity), 1.0, 127.0));
        ASSERT_EQ(read[i].voice, written[i].voice);
        const double duration = written[i].end - written[i].start;
        for (double ms = 0; ms < duration; ms += 3.7) {
            ASSERT_TRUE(follows(read[i], written[i], ms))
                << ms << " ms: " << pitch_at(read[i], ms) << " for " << pitch_at(written[i], ms);
        }
        ASSERT_NEAR(read[i].curve.front().value, written[i].curve.front().value, 0.02);
        if (duration == 0) continue;
        ASSERT_NEAR(read[i].curve.back().value, written[i].curve.back().value, 0.02);
    }
}

using Random = std::mt19937;

double uniform(Random& random, double low, double high) {
    return std::uniform_real_distribution(low, high)(random);
}

std::vector<CurvePoint> random_curve(Random& random, double pitch, double duration) {
    const double middle = duration * uniform(random, 0.1, 0.9);
    std::vector<CurvePoint> curve = {{0, pitch}, {middle, pitch + uniform(random, -30, 30)}};
    if (random() % 2) curve.push_back({middle, pitch + uniform(random, -2, 2)});
    curve.push_back({duration, pitch + uniform(random, -1, 1)});
    return curve;
}

// Dense and unkind: few keys, so that equal ones overlap, and many bends at a time.
MidiPart random_part(Random& random, int index, std::size_t notes) {
    MidiPart part{"part " + std::to_string(index), {.program = index, .drums = index % 4 == 3}, {}};
    for (std::size_t i = 0; i < notes; ++i) {
        PartNote note;
        // Starts differ from note to note, also across parts, so that a note is told by its start.
        note.start_ms =
            static_cast<double>(i * 20 + static_cast<std::size_t>(index)) + uniform(random, 0, 0.4);
        note.duration_ms = random() % 5 ? uniform(random, 1, 900) : 0;
        note.pitch = 58 + static_cast<double>(random() % 5) + (random() % 3 ? 0 : uniform(random, -0.5, 0.5));
        note.velocity = uniform(random, 1, 127);
        if (random() % 3 == 0 && note.duration_ms > 0)
            note.curve = random_curve(random, note.pitch, note.duration_ms);
        part.notes.push_back(note);
    }
    return part;
}

TEST(MidiWriter, whatIsWrittenReadsBackTheSame) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        std::vector<MidiPart> parts;
        for (int i = 0; i < 19; ++i) parts.push_back(random_part(random, i, 40));
        expect_round_trip(parts);
        if (HasFatalFailure()) return;
    }
}

TEST(MidiWriter, keepsWhatIsHardToKeep) {
    const auto curve = [](double from, double to, double ms) {
        return std::vector<CurvePoint>{{0, from}, {ms, to}};
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    // Equal keys at once, one without length; the lowest to the highest pitch; beyond the keys; a long rest.
    std::vector<MidiPart> parts = {{"corners",
                                    {.program = 5},
                                    {{0, 500, 60, 10, {}},
                                     {0, 200, 60, 20, {}},
                                     {0, 0, 60, 30, {}},
                                     {1000, 400, 0, 40, curve(0, 127, 400)},
                                     {2000, 100, 128.5, 50, {}},
                                     {3000, 100, -1, 60, {}},
                                     {4000, 3, 60, 200, curve(60, 61, 3)},
                                     {5e7, 1e5, 60, 0.2, curve(60, 72, 1e5)}}}};
    expect_round_trip(parts);
    parts[0].notes.push_back({nan, 100, 60, 60, {}});
    parts[0].notes.push_back({0, 100, 60, 60, {{0, 60}, {nan, 60}}});
    parts[0].notes.push_back({-5, 100, 60, 60, {}});
    EXPECT_EQ(heard(read_midi_file(write_midi_file(parts))).size(), 8u) << "notes without sense are left out";
}

// Notes of one channel share what it is told: their curves agree where they overlap. The rest goes to
// channels of its own, and comes back all the same.
TEST(MidiWriter, keepsControllersBanksTempoAndSignatures) {
    const auto level = [](int controller, double value, double ms) {
        return ControllerCurve{controller, {{0, value}, {ms, value}}};
    };
    const auto step = [](int controller, double from, double at, double to, double ms) {
        return ControllerCurve{controller, {{0, from}, {at, from}, {at, to}, {ms, to}}};
    };
    std::vector<MidiPart> parts = {
        {"swell",
         {.program = 48, .bank = 8, .fine_bank = 1},
         {{0, 1000, 60, 100, {}, {step(Volume, 50, 500, 90, 1000), level(Pan, 20, 1000)}},
          {250, 500, 64, 100, {}, {step(Volume, 50, 250, 90, 500), level(Pan, 20, 500)}},
          {600, 800, 67, 100, {}, {level(Volume, 90, 800), level(Pan, 20, 800)}},
          {700, 300, 72, 100, {}, {level(Volume, 30, 300), level(Pan, 100, 300)}}}},
        {"kit", {.program = 25, .drums = true}, {{0, 10, 36, 100, {}, {level(KeyPressure, 40, 10)}}}}};
    const PartMeter meter{.bpm = 90, .signatures = {{0, 3, 4}, {12, 6, 8}}};
    const auto bytes = write_midi_file(parts, meter);
    EXPECT_EQ(parse_midi_file(bytes).tracks[1].channels.size(), 2u)
        << "only one note is at odds with the others";
    const MidiSong song = read_midi_file(bytes);
    EXPECT_NEAR(60e6 / song.tempos.front().quarter_us, 90, 0.001);
    ASSERT_EQ(song.signatures.size(), 2u);
    EXPECT_NEAR(song.signatures[1].ms, 8000, 0.1);
    EXPECT_EQ(std::pair(song.signatures[1].beats, song.signatures[1].unit), std::pair(6, 8));
    ASSERT_EQ(song.tracks.size(), parts.size());
    for (std::size_t t = 0; t < parts.size(); ++t) {
        const MidiTrack& track = song.tracks[t];
        EXPECT_EQ(track.voice, parts[t].voice);
        ASSERT_EQ(track.notes.size(), parts[t].notes.size());
        for (std::size_t i = 0; i < track.notes.size(); ++i) {
            for (const ControllerCurve& wanted : parts[t].notes[i].controllers) {
                SCOPED_TRACE(parts[t].name + ", note " + std::to_string(i) + ", " +
                             controller_name(wanted.controller));
                const auto found =
                    std::ranges::find(track.controllers, wanted.controller, &ControllerCurves::controller);
                ASSERT_NE(found, track.controllers.end());
                const auto curve = MidiTrack::curve(*found, i);
                ASSERT_EQ(curve.size(), wanted.points.size());
                for (std::size_t k = 0; k < curve.size(); ++k) {
                    EXPECT_NEAR(curve[k].ms, wanted.points[k].ms, 0.2);
                    EXPECT_EQ(curve[k].value, wanted.points[k].value);
                }
            }
        }
    }
}

TEST(MidiWriter, partsAreNamedTracksOnChannelsOfTheirOwn) {
    std::vector<MidiPart> parts;
    for (int i = 0; i < 17; ++i)
        parts.push_back({"P" + std::to_string(i), {.program = i, .drums = i == 2}, {{0, 100, 60, 100, {}}}});
    const MidiSong song = read_midi_file(write_midi_file(parts));
    ASSERT_EQ(song.tracks.size(), 17u);
    std::vector<int> channels;
    for (std::size_t i = 0; i < 17; ++i) {
        EXPECT_EQ(song.tracks[i].name, "P" + std::to_string(i));
        channels.push_back(song.tracks[i].channel);
    }
    EXPECT_EQ(channels, (std::vector<int>{0, 1, 9, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12, 13, 14, 15, 0}));
}

// Other players do not tell tracks apart: as long as channels last, a bend must not move another part's
// notes.
TEST(MidiWriter, bendsTakeChannelsThatNobodyElsePlaysOn) {
    std::vector<MidiPart> parts = {
        {"straight", {}, {{0, 900, 60, 100, {}}}},
        {"bending",
         {.program = 1},
         {{0, 900, 60.5, 100, {}}, {100, 900, 61.5, 100, {}}, {950, 900, 62.5, 100, {}}}},
        {"straight too", {.program = 2}, {{0, 900, 60, 100, {}}}}};
    const MidiSong song = read_midi_file(write_midi_file(parts));
    EXPECT_EQ(song.tracks.size(), 3u) << "a part comes back as one track, however many channels it took";
    std::vector<std::pair<std::size_t, int>> channels;
    const RawFile file = parse_midi_file(write_midi_file(parts));
    for (std::size_t i = 0; i < file.tracks.size(); ++i)
        for (const RawChannel& channel : file.tracks[i].channels) channels.emplace_back(i, channel.channel);
    // Tracks 1, 2, 3 live on 0, 1, 2. The third bend comes while the first still rings: a third channel.
    EXPECT_EQ(channels, (std::vector<std::pair<std::size_t, int>>{{1, 0}, {2, 3}, {2, 4}, {2, 5}, {3, 2}}));
}

}  // namespace
}  // namespace tq
