// Files that somebody broke, for SORVO_FUZZ_SECONDS (5): each gives a song or one error, under the
// sanitizers.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "app/midi/files.h"
#include "app/midi/reader.h"
#include "fuzz.h"

namespace tq {
namespace {

using test::Bytes;
std::vector<Bytes> seeds() {
    std::vector<Bytes> files = {
        test::midi_file(
            1, 96,
            {"00 ff0303 414243 00 ff51030f4240 00 ff580404021808 8140 ff51030a4240 00 ff2f00",
             "00 c028 00 b06400 00 6500 00 060c 00 903c40 10 e00060 10 3c40 20 3c00 20 3c00 00 ff2f00",
             "00 c908 00 993040 00 3140 00 f003010203 60 3000 00 3100 00 ff2f00"}),
        test::midi_file(0, 0xe728, {"00 903c40 60 3c00 00 ff2f00"}),
    };
    for (const auto& path : test::real_files()) files.push_back(test::read_bytes(path));
    return files;
}

void expect_sense(const MidiSong& song) {
    for (const MidiTrack& track : song.tracks) {
        ASSERT_FALSE(track.name.empty());
        double before = 0;
        for (const MidiNote& note : track.notes) {
            ASSERT_GE(note.start_ms, before);
            ASSERT_GE(note.duration_ms, 0);
            ASSERT_LE(note.start_ms + note.duration_ms, song.length_ms * (1 + 1e-12) + 1e-6);
            ASSERT_TRUE(note.pitch < 128 && note.velocity > 0 && note.velocity < 128);
            before = note.start_ms;
            const auto curve = track.bend(note);
            if (curve.empty()) continue;
            ASSERT_EQ(curve.front().ms, 0);
            ASSERT_EQ(curve.back().ms, note.duration_ms);
            for (std::size_t i = 1; i < curve.size(); ++i) ASSERT_GE(curve[i].ms, curve[i - 1].ms);
        }
    }
}

TEST(MidiFuzz, brokenFilesGiveASongOrAnError) {
    const std::vector<Bytes> files = seeds();
    std::mt19937 random(20240607);
    std::size_t songs = 0, errors = 0;
    const auto stop = test::end_of_fuzzing();
    do {
        const std::string file = test::broken(test::text_of(files[random() % files.size()]),
                                              {"\x00\x7f\x80\x90\xe0\xf0\xff\x2f", 8}, random);
        const auto* data = reinterpret_cast<const std::byte*>(file.data());
        const Bytes exact(data, data + file.size());  // so that a byte too far is seen
        try {
            expect_sense(read_midi_file(exact));
            ++songs;
        } catch (const MidiError& error) {
            ASSERT_NE(std::string(error.what()).find(" at byte "), std::string::npos);
            ++errors;
        }
        if (HasFatalFailure()) return;
    } while (std::chrono::steady_clock::now() < stop);
    EXPECT_GT(songs, 0u);
    EXPECT_GT(errors, 0u);
}

}  // namespace
}  // namespace tq
