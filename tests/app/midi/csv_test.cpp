// The reader against another program's reading of the same files.
#include <gtest/gtest.h>

#include <algorithm>

#include "app/midi/csv.h"
#include "app/midi/files.h"
#include "app/midi/reader.h"

namespace tq {
namespace {

using test::CsvNote, test::microseconds, test::midicsv, test::notes_of;

std::vector<CsvNote> notes_of(const MidiSong& song) {
    std::vector<CsvNote> notes;
    for (const MidiTrack& track : song.tracks) {
        for (const MidiNote& note : track.notes) {
            notes.push_back({track.file_track + 1, track.channel, microseconds(note.start_ms),
                             microseconds(note.start_ms + note.duration_ms), note.pitch, note.velocity});
        }
    }
    return notes;
}

TEST(MidiCsv, readsTheSameNotes) {
    const auto files = test::real_files();
    if (files.empty()) GTEST_SKIP() << "no MIDI files on this machine";
    if (system("command -v midicsv >/dev/null") != 0) GTEST_SKIP() << "no midicsv on this machine";
    std::size_t compared = 0;
    for (const auto& path : files) {
        auto theirs = notes_of(midicsv(path));
        auto ours = notes_of(read_midi_file(test::read_bytes(path)));
        std::ranges::sort(theirs);
        std::ranges::sort(ours);
        EXPECT_EQ(ours, theirs) << path.filename();
        compared += theirs.size();
    }
    EXPECT_GT(compared, 10000u);
}

}  // namespace
}  // namespace tq
