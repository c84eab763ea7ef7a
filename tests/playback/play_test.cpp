// What leaves the box while it plays, and when.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "app/script_fixture.h"

namespace tq::test {
namespace {

struct Playing : TimedScriptTest {
    Playing() { say("new_track_color 0"); }

    void tracks(int count) {
        for (int i = 0; i < count; ++i) say("track_add T" + std::to_string(i));
    }
    void note(int track, double start, int pitch, double duration = 100) {
        std::ostringstream line;
        line << "event track " << track << " start " << start << " duration " << duration << " <note> "
             << pitch << " 100 </note>";
        say(line.str());
    }
    /// "TIME TRACK PITCH" for each note, "TIME TRACK stop" for each notice, "TIME ticks N" for each report.
    Lines log(const std::string& text) {
        Lines log;
        for (const std::string& line : say(text)) {
            std::istringstream words(line);
            std::string time, source, track, kind, word, pitch;
            words >> time >> source >> track >> kind;
            if (source == "out3" && track == "ticks") log.push_back(time + " ticks " + kind);
            if (source != "out0") continue;
            while (words >> word && word != "<note>") {}
            words >> pitch;
            log.push_back(time + " " + track + " " + (kind == "stop" ? kind : pitch));
        }
        return log;
    }
    testing::AssertionResult logs(const std::string& text, std::string_view expected) {
        return same_lines(log(text), lines_of(expected));
    }
};

TEST_F(Playing, sendsWhatBelongsToAnEventInTheWordsOfThePatch) {
    say("track_add Lead\n"
        "track_bpf_add Gain -1 1 0\n"
        "track_parameter_add Cut 0 1000 250 0\n"
        "event start 500 duration 499.9 label here <note> 60.5 100 </note> <message> foo 1 \"two words\" 2.5 "
        "</message>"
        " <bpf> Gain 0 -1 250 1 Pitch 0 2 </bpf> <parameter> Cut 750 </parameter>");
    EXPECT_TRUE(says("1\n.wait 600\n0", "out0", R"(
        637.500 out0 0 event duration 499 <note> 60.5 100. </note> <message> foo 1 "two words" 2.5 </message> <parameter> Cut 750. </parameter> <bpf> Pitch 62.5 0. 60.5 499. Gain -1. 0. 1. 250. -1. 249. </bpf>
        737.500 out0 0 stop)"));
}

TEST_F(Playing, sendsEqualStartsInTrackOrderAtTheirTime) {
    tracks(3);
    for (int track : {2, 0, 1, 0}) note(track, 500, 60 + track);
    note(1, 250, 40);
    EXPECT_TRUE(logs("1\n.wait 1000", R"(
        387.500 1 40.
        637.500 0 60.
        637.500 0 60.
        637.500 1 61.
        637.500 2 62.)"));
}

TEST_F(Playing, leavesMutedTracksOut) {
    tracks(2);
    for (int start = 100; start <= 400; start += 100) {
        note(0, start, 60);
        note(1, start, 61);
    }
    EXPECT_TRUE(logs("track_mute 0 1\n1\n.wait 250\ntrack_mute 0 0\ntrack_mute 1 1\n.wait 250\n0", R"(
        237.500 1 61.
        337.500 1 61.
        437.500 0 60.
        537.500 0 60.
        637.500 0 stop
        637.500 1 stop)"));
}

TEST_F(Playing, sendsToADestinationInsteadOfTheOutlet) {
    say(".receiver synth");
    read_document(R"({"tq.sorvo": "", "header": {"fileversion": 100}, "tracks": [
        {"name": "a", "destination": "synth", "events": [{"start": 10, "duration": 5, "pitch": 60}]},
        {"name": "b", "destination": "nobody", "events": [{"start": 20, "duration": 5, "pitch": 61}]},
        {"name": "c", "destination": "gm:7", "discard_default_pitch_bpf_output": 1,
         "events": [{"start": 30, "duration": 5, "pitch": 62}]},
        {"name": "d", "discard_note_output": 1, "discard_default_pitch_bpf_output": 1, "bpftypes":
         [{"name": "Gain", "minvalue": 0, "maxvalue": 2, "defaultvalue": 1}],
         "events": [{"start": 40, "duration": 5, "pitch": 63}]}]})");
    Lines said;
    for (const std::string& line : say("1\n.wait 50\n0"))
        if (line.find("out3") == line.npos) said.push_back(line);
    EXPECT_TRUE(same_lines(said, lines_of(R"(
        147.500 to synth event duration 5 <note> 60. 0. </note> <bpf> Pitch 60. 0. 60. 5. </bpf>
        167.500 to gm:7 event duration 5 <note> 62. 0. </note>
        177.500 out0 3 event duration 5 <bpf> Gain 1. 0. 1. 5. </bpf>
        187.500 to synth stop
        187.500 to gm:7 stop
        187.500 out0 3 stop)")));
}

TEST_F(Playing, beginsAtTheTransportAndLeavesOutWhatSounds) {
    tracks(1);
    note(0, 1000, 60, 5000);
    note(0, 1500, 61);
    note(0, 2000, 62);
    EXPECT_TRUE(logs(".transport 1500\n1\n.wait 600", "137.500 0 61.\n637.500 0 62."));
    EXPECT_TRUE(logs("0\n1\n.wait 5000", "737.500 0 stop")) << "goes on where it stopped";
}

TEST_F(Playing, stopsAtTheEndOfTheTimeline) {
    tracks(2);
    note(0, 9999, 60, 1);
    EXPECT_TRUE(logs("getmaxtime\n1\n.wait 30000", R"(
        10136.500 0 60.
        10137.500 0 stop
        10137.500 1 stop)"));
    EXPECT_TRUE(logs(".transport 500000\n1\n.wait 30000", "30137.500 0 stop\n30137.500 1 stop"))
        << "beyond the end";
    EXPECT_TRUE(logs("0", "60137.500 0 stop\n60137.500 1 stop")) << "also when nothing plays";
    EXPECT_TRUE(logs("-1\n.wait 100", ""));
}

TEST_F(Playing, followsTheTempo) {
    tracks(1);
    for (int start : {1000, 2000, 3000}) note(0, start, 60);
    // What is armed keeps its tick; what is armed later is converted at the tempo of then.
    EXPECT_TRUE(logs("1\n.wait 500\n.tempo 240\n.wait 2000\n.tempo 120\n.wait 2000", R"(
        887.500 0 60.
        2387.500 0 60.
        4137.500 0 60.)"));
}

TEST_F(Playing, movesToAPosition) {
    tracks(1);
    for (int start : {500, 1000, 9000}) note(0, start, start / 100);
    EXPECT_TRUE(logs("1\n.wait 600\nposition 450\n.wait 100\nposition 8999.5\n.wait 100", R"(
        637.500 0 5.
        737.500 ticks 432.
        787.500 0 5.
        837.500 ticks 8639.52
        838.000 0 90.)"));
    EXPECT_TRUE(logs("0\nposition 20000\nposition -20", R"(
        937.500 0 stop
        937.500 ticks 9600.
        937.500 ticks 0.)"));
}

TEST_F(Playing, withoutFeedbackAPositionMovesOnlyTheSchedule) {
    tracks(1);
    for (int start : {100, 200, 300}) note(0, start, start / 10);
    EXPECT_TRUE(logs(".feedback off\n1\n.wait 250\nposition 150\n.wait 100", R"(
        237.500 0 10.
        337.500 0 20.
        387.500 ticks 144.
        387.500 0 20.
        437.500 0 30.)"));
}

TEST_F(Playing, survivesEditsOfWhatComesNext) {
    tracks(3);
    for (int track : {0, 1, 2})
        for (int start : {100, 200, 300}) note(track, start, 60 + track);
    EXPECT_TRUE(logs("1\n.wait 150\ntrack_delete 0\n.wait 100", R"(
        237.500 0 60.
        237.500 1 61.
        237.500 2 62.
        287.500 0 stop
        287.500 1 stop
        287.500 2 stop
        337.500 0 61.
        337.500 1 62.)"))
        << "the events of a track that is deleted are not sent, and those that get another index are told "
           "before";
    EXPECT_TRUE(logs("event id 6 track 1\n.wait 10\ntrack_delete 1\ntrack_delete 0\n.wait 1000\n0",
                     "397.500 1 stop\n397.500 0 stop"))
        << "nothing is left to play or to stop";
    say("event start 0 duration 1 <note> 1 1 </note>");
    EXPECT_TRUE(logs(".transport 0\n1\nread\n.wait 1000", "1397.500 0 1.\n1397.500 0 stop"));
}

TEST_F(Playing, sendsOnceWhatIsMovedWhileItIsNext) {
    tracks(2);
    for (int start : {100, 200, 300, 400}) note(0, start, start / 100);
    note(1, 1000, 60);
    EXPECT_TRUE(logs("1\n.wait 250\nevent id 3 start 50\n.wait 300", R"(
        237.500 0 1.
        337.500 0 2.
        437.500 0 3.
        537.500 0 4.)"))
        << "moved back: it comes, and nothing before it comes again";
    EXPECT_TRUE(logs("0\n.transport 0\n1\n.wait 150\nevent id 2 start 350\n.wait 400", R"(
        687.500 0 stop
        687.500 1 stop
        737.500 0 3.
        787.500 0 1.
        1037.500 0 2.
        1087.500 0 4.)"))
        << "moved on: it comes there";
    EXPECT_TRUE(logs("0\n.transport 0\n1\n.wait 120\nevent id 2 track 1\n.wait 900", R"(
        1237.500 0 stop
        1237.500 1 stop
        1287.500 0 3.
        1337.500 0 1.
        1587.500 1 2.
        1637.500 0 4.
        2237.500 1 60.)"))
        << "moved to another track";
}

TEST_F(Playing, aTrackThatComesBackMissesWhatItMissed) {
    tracks(2);
    for (int start = 100; start <= 1000; start += 100) note(0, start, start / 100);
    EXPECT_TRUE(logs("1\n.wait 250\ntrack_delete 0\n.wait 300\nundo\n.wait 200", R"(
        237.500 0 1.
        337.500 0 2.
        387.500 0 stop
        387.500 1 stop
        687.500 0 stop
        737.500 0 6.
        837.500 0 7.)"));
}

TEST_F(Playing, isTheSameHoweverTimeIsCut) {
    tracks(3);
    std::mt19937 random(7);
    for (int i = 0; i < 60; ++i)
        note(static_cast<int>(random() % 3), static_cast<double>(random() % 3000), 30 + i);
    say("cyclerange 700 2100.5\ncycle 1");
    auto replay = [&](const std::vector<double>& steps) {
        Lines log = this->log("0\n.transport 0\nposition 0\n1");
        double begin = script.session().host().scheduler.now();
        for (double step : steps) {
            std::ostringstream wait;
            wait.precision(17);
            wait << ".wait " << step;
            for (const std::string& line : this->log(wait.str())) log.push_back(line);
        }
        for (std::string& line : log) {  // relative, so that runs compare
            size_t blank = line.find(' ');
            line = std::to_string(std::lround(1000 * (std::stod(line.substr(0, blank)) - begin))) +
                   line.substr(blank);
        }
        return log;
    };
    Lines whole = replay({8192});
    EXPECT_GT(whole.size(), 150u);
    EXPECT_TRUE(same_lines(replay(std::vector<double>(8192 / 64, 64)), whole));
    std::vector<double> uneven;
    for (double left = 8192, step = 0.25; left > 0; left -= step) {
        step = std::min(left, 0.25 * static_cast<double>(random() % 400 + 1));
        uneven.push_back(step);
    }
    EXPECT_TRUE(same_lines(replay(uneven), whole));
}

TEST_F(Playing, losesNothingOfADenseDocumentThatIsPaintedMeanwhile) {
    constexpr int notes = 3600;  // 120 a second for 30 s
    std::ostringstream json;
    json << R"({"tq.sorvo":"","header":{"fileversion":100},"maxtime":30000,"tracks":[{"name":"a","events":[)";
    auto start_of = [](int i) { return i * 30000L / notes; };
    for (int i = 0; i < notes; ++i)
        json << (i ? "," : "") << R"({"start":)" << start_of(i) << R"(,"duration":50,"pitch":)" << i % 100
             << "}";
    json << "]}]}";
    read_document(json.str());
    std::string watching = "1\n";
    for (int frame = 0; frame < 975; ++frame) watching += ".wait 33.3\n.paint\n";
    Lines said = log(watching);
    ASSERT_EQ(said.size(), notes + 1u);
    for (int i = 0; i < notes; ++i) {
        char line[64];
        std::snprintf(line, sizeof line, "%.3f 0 %d.", static_cast<double>(start_of(i)) + 137.5, i % 100);
        ASSERT_EQ(said[static_cast<size_t>(i)], line) << "note " << i;
    }
}

}  // namespace
}  // namespace tq::test
