// Standard MIDI Files through the whole program.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "app/midi/csv.h"
#include "app/midi/files.h"
#include "app/midi/reader.h"
#include "app/program.h"

namespace tq::test {
namespace {

struct Import : ScriptTest {};

/// The document without what messages cannot set and what time writes into it.
std::string comparable(std::string json) {
    for (const char* key : {"\"destination\":\"", "\"date\":\""})
        for (size_t at = json.find(key); at != json.npos; at = json.find(key, at + 1)) {
            size_t value = at + std::string_view(key).size();
            json.erase(value, json.find('"', value) - value);
        }
    return json;
}

TEST_F(Import, makesWhatMessagesWouldHaveMade) {
    const Bytes bytes = midi_file(
        1, 96,
        {"00 ff 51 03 07 53 00 00 ff 03 04 4c 65 61 64 00 90 3c 64 30 90 40 32 05 80 3c 40 11 80 40 00 00 ff "
         "2f 00",
         "00 ff 03 04 42 61 73 73 00 c1 20 07 91 24 7f 81 00 91 24 00 00 91 30 01 87 68 91 30 00 00 ff 2f 00",
         "00 99 24 70 10 89 24 00 00 ff 2f 00"});
    std::string path = folder.file_with("song.mid", text_of(bytes));
    say("new_track_color 0");
    MidiSong song = read_midi_file(bytes);
    size_t notes = 0;
    for (size_t t = 0; t < song.tracks.size(); ++t) {
        say("track_add " + atom_gettext(Atoms{gensym(song.tracks[t].name)}));
        for (const MidiNote& note : song.tracks[t].notes) {
            long start = std::lround(note.start_ms), end = std::lround(note.start_ms + note.duration_ms);
            std::ostringstream line;
            line << "event track " << t << " start " << start << " duration " << end - start << " <note> "
                 << int{note.pitch} << " " << int{note.velocity} << " </note>";
            say(line.str());
            ++notes;
        }
    }
    EXPECT_EQ(notes, 5u);
    std::string by_messages = comparable(document());
    say("read");
    ASSERT_TRUE(script.session().open(path));
    EXPECT_EQ(comparable(document()), by_messages);
    EXPECT_NE(document().find(R"("destination":"gm:32")"), std::string::npos);
    EXPECT_NE(document().find(R"("destination":"gm:drums")"), std::string::npos);
    EXPECT_FALSE(prseq_getdirtyflag(box()));
}

/// Start and end in microseconds by pitch and velocity.
std::map<std::pair<long, long>, std::vector<std::pair<long, long>>> by_sound(
    const std::vector<CsvNote>& notes) {
    std::map<std::pair<long, long>, std::vector<std::pair<long, long>>> sounds;
    for (const CsvNote& note : notes) sounds[{note[4], note[5]}].emplace_back(note[2], note[3]);
    for (auto& [sound, times] : sounds) std::sort(times.begin(), times.end());
    return sounds;
}

/// How many notes of one list have no partner in the other that begins and ends within 1 ms.
size_t without_partner(const std::vector<CsvNote>& notes, const std::vector<CsvNote>& others) {
    constexpr long close = 1000;
    auto sounds = by_sound(others);
    size_t lonely = 0;
    for (const auto& [sound, times] : by_sound(notes)) {
        auto& candidates = sounds[sound];
        for (const auto& [start, end] : times) {
            auto from = std::lower_bound(candidates.begin(), candidates.end(), std::pair(start - close, -1L));
            auto partner = std::find_if(from, candidates.end(), [&](const auto& c) {
                return c.first > start + close || std::abs(c.second - end) <= close;
            });
            bool found = partner != candidates.end() && partner->first <= start + close;
            if (found)
                candidates.erase(partner);
            else
                ++lonely;
        }
    }
    return lonely;
}

TEST_F(Import, andRenderingGiveRealMusicBack) {
    const auto files = real_files();
    if (files.empty()) GTEST_SKIP() << "no MIDI files on this machine";
    if (std::system("command -v midicsv >/dev/null") != 0) GTEST_SKIP() << "no midicsv on this machine";
    size_t compared = 0;
    for (const auto& path : files) {
        SCOPED_TRACE(path.filename());
        std::string source = "'" + path.string() + "'";
        ProgramRun import = run_program(folder, "import " + source + " song.json");
        ASSERT_EQ(import.status, 0) << import.err;
        ProgramRun render = run_program(folder, "render song.json --midi song.mid");
        ASSERT_EQ(render.status, 0) << render.err;
        std::vector<CsvNote> before = notes_of(midicsv(path)),
                             after = notes_of(midicsv(folder.file("song.mid")));
        EXPECT_EQ(after.size(), before.size());
        EXPECT_EQ(without_partner(before, after), 0u) << "of " << before.size() << " notes are lost or moved";
        compared += before.size();
    }
    EXPECT_GT(compared, 10000u);
}

}  // namespace
}  // namespace tq::test
