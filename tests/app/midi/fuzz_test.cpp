// Files that somebody broke, for SORVO_FUZZ_SECONDS (5): each gives a song or one error, under the
// sanitizers.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <random>

#include "app/midi/files.h"
#include "app/midi/reader.h"

namespace tq {

namespace {

using test::Bytes;
using Random = std::mt19937;

std::size_t below(Random& random, std::size_t limit) { return limit ? random() % limit : 0; }

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

void flip(Bytes& file, Random& random) {
    file[below(random, file.size())] ^= static_cast<std::byte>(1u << below(random, 8));
}

void overwrite(Bytes& file, Random& random) {
    constexpr std::byte telling[] = {std::byte{0x00}, std::byte{0x7f}, std::byte{0x80}, std::byte{0x90},
                                     std::byte{0xe0}, std::byte{0xf0}, std::byte{0xff}, std::byte{0x2f}};
    file[below(random, file.size())] = telling[below(random, std::size(telling))];
}

void truncate(Bytes& file, Random& random) { file.resize(below(random, file.size())); }

void remove(Bytes& file, Random& random) {
    const auto at = static_cast<std::ptrdiff_t>(below(random, file.size()));
    const auto count =
        std::min<std::ptrdiff_t>(std::ssize(file) - at, 1 + static_cast<int>(below(random, 16)));
    file.erase(file.begin() + at, file.begin() + at + count);
}

void repeat(Bytes& file, Random& random) {
    const std::size_t at = below(random, file.size());
    const std::size_t count = std::min(file.size() - at, 1 + below(random, 400));
    const Bytes part(file.begin() + static_cast<std::ptrdiff_t>(at),
                     file.begin() + static_cast<std::ptrdiff_t>(at + count));
    file.insert(file.begin() + static_cast<std::ptrdiff_t>(below(random, file.size())), part.begin(),
                part.end());
}

constexpr void (*mutations[])(Bytes&, Random&) = {flip, overwrite, overwrite, remove, repeat, truncate};

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
    const char* wanted = std::getenv("SORVO_FUZZ_SECONDS");
    const auto stop =
        std::chrono::steady_clock::now() + std::chrono::duration<double>(wanted ? std::atof(wanted) : 5);
    const std::vector<Bytes> files = seeds();
    Random random(20240607);
    std::size_t songs = 0;
    std::size_t errors = 0;
    do {
        Bytes file = files[below(random, files.size())];
        for (std::size_t i = 1 + below(random, 6); i > 0 && !file.empty(); --i) {
            mutations[below(random, std::size(mutations))](file, random);
        }
        try {
            expect_sense(read_midi_file(file));
            ++songs;
        } catch (const MidiError& error) {
            ASSERT_NE(std::string(error.what()).find(" at byte "), std::string::npos);
            ++errors;
        }
        if (HasFatalFailure()) return;
    } while (std::chrono::steady_clock::now() < stop);
    EXPECT_GT(songs, 0u);
    EXPECT_GT(errors, 0u);
    RecordProperty("songs", std::to_string(songs));
    RecordProperty("errors", std::to_string(errors));
}

}  // namespace

}  // namespace tq
