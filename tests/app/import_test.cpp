// Standard MIDI Files through the whole program.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "app/midi/csv.h"
#include "app/midi/files.h"
#include "app/midi/reader.h"
#include "app/program.h"
#include "model/bars.h"

namespace tq::test {
namespace {

struct Import : ScriptTest {};

/// The document without what messages cannot set and what time writes into it.
std::string comparable(std::string json) {
    for (const char* key : {"\"destination\":\"", "\"date\":\"", "\"title\":\""})
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
    say("new_track_color 0\n.tempo 125\nbars_follow_tempo 1\ncyclerange 0 7680");
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

struct MeterRow {
    const char* what;
    std::vector<std::string> tracks;
    const char* regions;  // "MEASURE BEATS/NOTEVALUE" each
    double tempo;
    const char* posted;
};

TEST_F(Import, takesTempoAndBarsAsFarAsTheGridGoes) {
    const std::string note = "00 903c40 a400 803c40 00 ff2f00";  // 48 quarters of 96 ticks
    const MeterRow rows[] = {
        {"nothing said", {note}, "0 4/4", 120, ""},
        {"twice as fast", {"00 ff510303d090 00 ff580404021808 " + note}, "0 4/4", 240, ""},
        {"three beats, then six", {"00 ff580403021808 8900 ff580406031808 " + note}, "0 3/4 4 6/8", 120, ""},
        {"a tempo whose bars are not whole ms", {"00 ff51030a2c2b " + note}, "0 4/4", 90, ""},
        {"half as fast from the third bar on",
         {"8600 ff51030f4240 " + note},
         "0 4/4 2 4/2",
         120,
         "x.mid: the tempo changes 1 times, all times are kept"},
        {"bars that the grid of the first tempo has not",
         {"8600 ff51030a2c2b " + note},
         "0 4/4",
         120,
         "; the grid is not that of the song from bar 3 on: its bar of 4/4 lasts 2666.7 ms, one of the grid "
         "2000.0 ms"},
    };
    for (const MeterRow& row : rows) {
        SCOPED_TRACE(row.what);
        out.str("");
        ASSERT_TRUE(script.session().open(folder.file_with("x.mid", text_of(midi_file(0, 96, row.tracks)))));
        std::string regions;
        for (const BarRegion& r : box().meter.barregions)
            regions +=
                (regions.empty() ? "" : " ") + fmt::format("{} {}/{}", r.measure, r.beats, r.notevalue);
        EXPECT_EQ(regions, row.regions);
        EXPECT_NEAR(itm_gettempo(*box().transport), row.tempo, 0.001);
        EXPECT_GE(measure_at(box().meter, measure_count(box().meter) - 1).end, box().timelinelength);
        const std::string output = out.str();
        EXPECT_TRUE(box().meter.followstempo);
        EXPECT_EQ(*row.posted == 0, output.find("x.mid") == output.npos) << output;
        EXPECT_NE(output.find(row.posted), output.npos) << output;
    }
}

/// What a person hears and sees of a document: no identifiers, no view; events of one start in some order.
Lines song_of(Prseq& box) {
    Lines lines = {fmt::format("tempo {:.3f}", itm_gettempo(*box.transport))};
    for (const BarRegion& r : box.meter.barregions)
        lines.push_back(fmt::format("{} {}/{}", r.measure, r.beats, r.notevalue));
    for (const TrackRef& track : box.tracks) {
        lines.push_back(fmt::format("{} {}", track->name, track->destination.text()));
        const auto first = lines.size();
        track->events.for_each([&](const Event& event) {
            std::string line =
                fmt::format("{:.0f} {:.0f} {} {}", event.start, event.end(), event.pitch, event.velocity);
            for (const BpfRef& bpf : event.bpfs) {
                line += " " + bpf->name().text();
                for (const BpfPoint& p : bpf->points)
                    line += fmt::format(" {:.0f} {:.2f}", p.x * event.duration, p.y * 127);
            }
            lines.push_back(std::move(line));
        });
        std::sort(lines.begin() + static_cast<std::ptrdiff_t>(first), lines.end());
    }
    return lines;
}

/// Four bars at 40 beats a minute are longer than a new timeline.
TEST_F(Import, ofASlowSongByHandHasItsLoopInTheTimeline) {
    const Bytes bytes = midi_file(0, 96, {"00 ff 51 03 16 e3 60 00 90 3c 40 60 80 3c 40 00 ff 2f 00"});
    say("bars_follow_tempo 1\n.import " + folder.file_with("slow.mid", text_of(bytes)));
    EXPECT_EQ(itm_gettempo(*box().transport), 40);
    EXPECT_EQ(box().cycle.end, 24000);
    EXPECT_GE(box().timelinelength, box().cycle.end);
}

TEST_F(Import, ofWhatWasWrittenIsTheSameSong) {
    const auto files = real_files();
    if (files.empty()) GTEST_SKIP() << "no MIDI files on this machine";
    std::vector<std::string> sources = {folder.file_with(
        "made.mid", text_of(midi_file(1, 96,
                                      {"00 ff51030a2c2b 00 ff580403021808 8900 ff580404021808 00 ff2f00",
                                       "00 ff0304 4c656164 00 b00008 00 c030 00 b00750 00 b00b40 00 903c64 "
                                       "30 b00b7f 00 e00050 30 904064 60 "
                                       "b0402a 00 803c00 00 804000 60 ff2f00",
                                       "00 c919 00 b90a20 00 992464 60 892400 00 ff2f00"})))};
    for (size_t i = 0; i < files.size(); i += 6) sources.push_back(files[i].string());
    for (const std::string& source : sources) {
        SCOPED_TRACE(source);
        ASSERT_EQ(run_program(folder, "import '" + source + "' one.json").status, 0);
        ASSERT_EQ(run_program(folder, "render one.json --midi one.mid").status, 0);
        ASSERT_TRUE(script.session().open(folder.file("one.json")));
        const Lines before = song_of(box());
        ASSERT_TRUE(script.session().open(folder.file("one.mid")));
        EXPECT_TRUE(same_lines(song_of(box()), before));
    }
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
