// What a live coder sends: times in beats, many lines in silence, scripts in scripts, messages to receivers.
#include "app/journal/journalled.h"
#include "app/patch/note_listener.h"
#include "app/script/line_times.h"

namespace tq::test {
namespace {

struct LiveLines : ScriptTest {
    /// At a tempo where a beat is no whole number of ms; the ruler's bars are those of a new box, 4 s long.
    std::string in_ms(const std::string& line) { return line_in_ms(line, {133, box().meter}); }
    /// Runs a script of the folder, as its path; the fault that ends it, and what is said before.
    std::string fault_of(const std::string& file) {
        std::istringstream lines(text_of_file(folder.file(file)));
        try {
            script.run(lines, folder.file(file));
        } catch (const ScriptFault& fault) {
            return std::filesystem::path(fault.file).filename().string() + ":" + std::to_string(fault.line) +
                   ": " + fault.what;
        }
        return "";
    }
};

TEST_F(LiveLines, tellTimesInBeatsWhereATimeStands) {
    const std::pair<const char*, const char*> rows[] = {
        {"position 8b", "position 3609"},
        {"position @3.2.5", "position 9500"},
        {"cyclerange 0b @2", "cyclerange 0 4000"},
        {"maxtime 100b", "maxtime 45113"},
        {"split 1/2b", "split 226"},
        {"select_where time 1b @1.2 add", "select_where time 451 1000 add"},
        {"select_where label 1b", "select_where label 1b"},
        {"legato .5b", "legato 226"},
        {"humanise 1b 5", "humanise 451 5"},
        {"quantize 1/4b 1 0.5 both", "quantize 112.78195488721805 1 0.5 both"},
        {".wait 2b", ".wait 902.2556390977444"},
        {".transport @2", ".transport 4000"},
        {".answer cancel 1b", ".answer cancel 451.1278195488722"},
        {".choose item 2 4b 1b", ".choose item 2 4b 451.1278195488722"},
        {".send gm:0 event duration 1b <note> 60 9 </note>",
         ".send gm:0 event duration 451 <note> 60 9 </note>"},
        {"event start 1b duration 100", "event start 451 duration 100"},
        {"event duration 1b", "event duration 451"},
        // 1.5 beats are 676.69 ms, and end at 1353.38
        {"event duration 1.5b start 1.5b", "event duration 676 start 677"},
        {"event start @2 <bpf> 4b 0 0 1b 2b Pan 1/2b 1 1b 0 </bpf>",
         "event start 4000 <bpf> 4b 0 0 451 2b Pan 226 1 451 0 </bpf>"},
        // what is no time stays
        {"event label 4b start 1b <message> start 1b </message> track 1b",
         "event label 4b start 451 <message> start 1b </message> track 1b"},
        {"event start \"1b\" duration @2", "event start \"1b\" duration @2"},
        {"event start 1b label \"a \\\"4b\\\\\"", "event start 451 label \"a \\\"4b\\\\\""},
        {"track_add 4b", "track_add 4b"},
        {"cyclerange -1b 1/0b", "cyclerange -1b 1/0b"},
        {"position @0", "position @0"},
        {"position 1e3b", "position 1e3b"},
        {"position 1bb", "position 1bb"},
        {"position 99999999999999999999b", "position 99999999999999999999b"},
        {"quantise 1/4b  \"x\"  both ", "quantise 112.78195488721805 \"x\" both"},
    };
    for (const auto& [line, expected] : rows) EXPECT_EQ(in_ms(line), expected) << line;
}

TEST_F(LiveLines, inBeatsFollowTheTempoOfTheirMomentAndMeetAtAnyTempo) {
    EXPECT_TRUE(
        says(".tempo 60\nevent start 1b duration 1b\n.tempo 240\nevent start 1b duration 1b\n.show events",
             "event", R"(
        event 2 track 0 start 250. duration 250. pitch 66. velocity 0. selected 0
        event 1 track 0 start 1000. duration 1000. pitch 66. velocity 0. selected 0)"));
    for (const int tempo : {97, 133, 171}) {
        say("read\n.tempo " + std::to_string(tempo));
        for (int i = 0; i < 40; ++i)
            say("event start " + std::to_string(i) + "/3b duration 1/3b <note> 60 90 </note>");
        double end = 0;
        box().tracks[0]->events.for_each([&](const Event& event) {
            EXPECT_EQ(event.start, end) << tempo;
            end = event.start + event.duration;
        });
        EXPECT_EQ(end, std::round(40. / 3 * 60000 / tempo));
    }
}

TEST_F(LiveLines, areSilentButForWhatIsPlayedAndAskedFor) {
    std::string mistakes;
    for (int i = 0; i < 23; ++i) mistakes += "nonsense\n";
    EXPECT_TRUE(says(R"(
        .quiet on
        track_add A
        event start 0 duration 100 <note> 60 100 </note>
        .quiet on
        int 1
        .wait 200
        int 0
        getdirty
        getcycle
        .show cursor
        )" + mistakes + ".quiet off\n.quiet off\ngetcycle",
                     "out0 0 event duration 100 <note> 60. 100. </note> <bpf> Pitch 60. 0. 60. 100. </bpf>\n"
                     "out0 0 stop\ndump dirty 1\ncursor -1\n"
                     "quiet lines 32 events 1 steps 2 mistakes 23\n" +
                         [] {
                             std::string told;
                             for (int i = 12; i < 32; ++i)
                                 told += "quiet test:" + std::to_string(i) +
                                         ": doesn't understand \"nonsense\"\n";
                             return told;
                         }() +
                         "quiet and 3 more\nout3 cycle 0"));
    say(".quiet on\nevent_delete 1 99");
    EXPECT_EQ(say("int 0\n.quiet off"), Lines({"out0 0 stop", "quiet lines 2 events -1 steps 1 mistakes 1",
                                               "quiet test:2: event_delete: no event with id 99"}));
    EXPECT_EQ(say("nonsense"), Lines({"error tq.sorvo: doesn't understand \"nonsense\""}));
}

TEST_F(LiveLines, runOtherScriptsFromWhereTheyStand) {
    std::filesystem::create_directories(folder.path / "sub");
    folder.file_with("main.txt", "track_add main\n.run sub/one.txt\ntrack_add end\n.quiet off");
    folder.file_with("sub/one.txt", "track_add one\n.wait 1b\n.run two.txt\n.quiet on\n.open none.json\n");
    folder.file_with("sub/two.txt", "track_add two");
    folder.file_with("two.txt", "track_add wrong");
    EXPECT_EQ(fault_of("main.txt"), "");
    Lines names;
    for (const TrackRef& track : box().tracks) names.push_back(track->name);
    EXPECT_EQ(names, Lines({"main", "one", "two", "end"}));
    EXPECT_EQ(script.session().host().scheduler.now(), 500);
    EXPECT_NE(out.str().find("sub/one.txt:5: The file"), std::string::npos) << out.str();

    folder.file_with("self.txt", "# itself\n.run ./sub/../self.txt");
    EXPECT_NE(fault_of("self.txt").find("self.txt:2: "), std::string::npos);
    EXPECT_NE(fault_of("self.txt").find("a script cannot run itself"), std::string::npos);
    folder.file_with("ping.txt", ".run pong.txt");
    folder.file_with("pong.txt", "\n.run ping.txt");
    EXPECT_TRUE(fault_of("ping.txt").starts_with("pong.txt:2: "));
    folder.file_with("bad.txt", ".run pang.txt\ntrack_add never");
    folder.file_with("pang.txt", "\n\n.nonsense");
    EXPECT_EQ(fault_of("bad.txt"), "pang.txt:3: no such line: .nonsense");
    folder.file_with("twice.txt", ".run two.txt\n.run two.txt\n.stop\n.nonsense");
    EXPECT_EQ(fault_of("twice.txt"), "") << "one after the other is not itself; and what is stopped ends";
    EXPECT_EQ(box().tracks.size(), 6u);
    folder.file_with("gone.txt", ".run nowhere.txt");
    EXPECT_EQ(fault_of("gone.txt"), "gone.txt:1: could not read \"nowhere.txt\": No such file or directory");
}

struct Heard : Player {
    std::vector<PlayedNote> notes;
    Lines stopped;
    void note(const PlayedNote& note) override { notes.push_back(note); }
    void stop(const std::string& source, double) override { stopped.push_back(source); }
    void stop_track(long, double) override {}
    void stop_all(double) override {}
};

TEST_F(LiveLines, sendToWhoeverHasTheName) {
    Heard player;
    NoteListener notes(script.session());
    notes.add(player);
    say("event start 0 duration 500 <note> 40 100 </note>\nint 1\n.wait 10");
    EXPECT_TRUE(says(R"(
        .send gm:48:8 event duration 1b <note> 60 100 </note>
        .send gm:48:8 stop
        .receiver lights
        .send lights 3 0.5
        .send lights "4b" 5
        .send sorvo nonsense 1
        .send "two words" x
        .send gm:200 stop
        .send sorvo 0)",
                     R"(
        to gm:48:8 event duration 500 <note> 60 100 </note>
        to gm:48:8 stop
        to lights 3 0.5
        to lights 4b 5
        error tq.sorvo: doesn't understand "nonsense"
        error tq.sorvo: nobody listens to "two words"
        error tq.sorvo: there is no sound "gm:200"
        out0 0 stop)"));
    ASSERT_EQ(player.notes.size(), 2u);
    EXPECT_EQ(player.notes[1].voice, (Voice{.program = 48, .bank = 8}));
    EXPECT_EQ(player.notes[1].duration_ms, 500);
    EXPECT_EQ(player.notes[1].track, -1) << "it is of no track, whatever plays";
    EXPECT_EQ(player.stopped, Lines({"gm:48:8", "track 0"}));
    EXPECT_FALSE(box().playing);
}

struct LiveJournal : Journalled {};

TEST_F(LiveJournal, tellsMsAndWordsAsTheyWere) {
    Session session;
    std::ostringstream said;
    struct Driven : Driver {
        using Driver::Driver;
    } driver(session);
    const std::unique_ptr<Journal> journal = begin(session);
    std::istringstream lines(
        ".quiet on\n.tempo 133\nevent start 1b duration 1b label 4b <note> 60 9 </note>\n"
        "event start \"1b\" label \"@2\"\n.send sorvo cyclerange 1b @2\n.wait 1b\n.quiet off");
    driver.run(lines, "test");
    const std::string text = text_of(*journal);
    EXPECT_NE(text.find("\nevent start 451 duration 451 label 4b "), std::string::npos) << text;
    EXPECT_NE(text.find("\n.send sorvo cyclerange 451 4000\n"), std::string::npos) << text;
    EXPECT_EQ(text.find("quiet"), std::string::npos);
    Session again;
    EXPECT_EQ(replay(again, text, journal->folder().path()).fault, "");
    EXPECT_EQ(document_of(again), document_of(session));
    EXPECT_EQ(again.box().tracks[0]->events.size(), 2u);
    EXPECT_EQ(again.box().cycle.start, 451);
}

}  // namespace
}  // namespace tq::test
