// What changes a whole song, or a whole track, at once.
#include "app/patch/export.h"
#include "interaction/hand.h"
#include "model/bars.h"
#include "model/holds_together.h"

namespace tq::test {
namespace {

struct Song : Hand {
    Song() {
        say(".tempo 100\nbars_follow_tempo 1\nevents_follow_tempo 1\ntrack_add\ntrack_add");
        add(0, 0, 600);
        add(0, 613, 250);
        add(1, 1200, 1);
        say("cyclerange 600 1200\n.wait 100\nundoredo_clear");
    }
    void add(long track, double start, double duration) {
        say(fmt::format("event track {} start {} duration {} <note> 60 90 </note>", track, start, duration));
    }
    std::string song() {
        return fmt::format("{} {}-{}: ", itm_gettempo(*box().transport), box().cycle.start, box().cycle.end) +
               all_events();
    }
    std::string all_events() {
        std::string all;
        for (const TrackRef& track : box().tracks)
            track->events.for_each(
                [&](const Event& e) { all += fmt::format("{}+{} ", e.start, e.duration); });
        return all;
    }
    long steps() { return box().history.cursor + 1; }
};
constexpr const char* as_made = "100 600-1200: 0+600 613+250 1200+1 ";

TEST_F(Song, GoesWithItsTempo) {
    ASSERT_EQ(song(), as_made);
    say("position 900\n.tempo 50");
    EXPECT_EQ(box().linecursor.position, 1800) << "the same beat";
    EXPECT_EQ(song(), "50 1200-2400: 0+1200 1226+500 2400+2 ");
    EXPECT_TRUE(holds_together(box()));
    say("undo");
    EXPECT_EQ(song(), as_made) << "to the last bit";
    EXPECT_EQ(box().linecursor.position, 900);
    EXPECT_EQ(box().meter.wholenote, 2400);
    say("redo");
    EXPECT_EQ(song(), "50 1200-2400: 0+1200 1226+500 2400+2 ");
    EXPECT_EQ(box().meter.wholenote, 4800);
    EXPECT_EQ(box().history.items.back()->name(), "Change Tempo");
    EXPECT_TRUE(comes_back());
}

TEST_F(Song, IsRoundedOnceHoweverOftenTheTempoChanges) {
    for (int bpm = 99; bpm > 40; --bpm) say(fmt::format(".tempo {}", bpm));
    EXPECT_EQ(steps(), 1);
    say(".tempo 50");
    EXPECT_EQ(song(), "50 1200-2400: 0+1200 1226+500 2400+2 ");
    say(".tempo 100");
    EXPECT_EQ(song(), as_made);
    EXPECT_EQ(steps(), 0);
    say(".tempo 9000");
    EXPECT_EQ(all_events(), "0+6.666666666666667 6.811111111111112+2.777777777777777 13.333333333333334+1 ")
        << "no event gets shorter than 1 ms";
    say("undo\nevent id 1 start 100\n.wait 100\n.tempo 50");
    EXPECT_EQ(steps(), 2) << "after another edit it is a step of its own";
    EXPECT_EQ(all_events(), "200+1200 1226+500 2400+2 ");
}

TEST_F(Song, CanGoBackToWhatWasSaved) {
    say(".tempo 92\nwrite " + folder.file("a.json") + "\n.tempo 80\n.tempo 70\nundo");
    EXPECT_EQ(itm_gettempo(*box().transport), 92);
    EXPECT_FALSE(prseq_getdirtyflag(box()));
    say("undo");
    EXPECT_EQ(song(), as_made);
}

TEST_F(Song, TakesTheLoopOfNowAlong) {
    say(".tempo 50\ncyclerange 300 3000\nundo");
    EXPECT_EQ(song(), "100 150-1500: 0+600 613+250 1200+1 ");
    say("redo");
    EXPECT_EQ(song(), "50 300-3000: 0+1200 1226+500 2400+2 ");
}

TEST_F(Song, StaysWhereOnlyTheTempoIsToChange) {
    say("events_follow_tempo 0\n.tempo 50");
    EXPECT_EQ(song(), "50 600-1200: 0+600 613+250 1200+1 ");
    EXPECT_EQ(steps(), 0);
    say("stretch_to_tempo 100");
    EXPECT_EQ(song(), "100 300-600: 0+300 306.5+125 600+1 ");
    say("undo\nevents_follow_tempo 1\n.command bars_follow_tempo\n.tempo 200");
    EXPECT_EQ(song(), "200 600-1200: 0+600 613+250 1200+1 ") << "its bars know no tempo";
    EXPECT_EQ(
        say("stretch_to_tempo 0", "error"),
        Lines{"error tq.sorvo: bad argument for message stretch_to_tempo: BPM has to be a number from 1 "
              "to 10000, not 0"});
    say("maxtime 1e11\nevent start 1e11\n.wait 100");
    EXPECT_EQ(say("stretch_to_tempo 1", "error"),
              Lines{"error tq.sorvo: bad argument for message stretch_to_tempo: BPM leads beyond what a "
                    "timeline can hold"});
}

/// What is played after the change comes at its new time, and nothing twice: a beat lasts 600 ms, then 1200.
TEST_F(Song, GoesOnPlayingAtItsPlace) {
    add(0, 3000, 100);
    say(".wait 100\ncycle 0\nposition 0");
    EXPECT_EQ(say("1\n.wait 900", "out0").size(), 2u);
    EXPECT_EQ(say(".tempo 50\n.wait 590", "out0").size(), 0u) << "it was in the middle of the second beat";
    EXPECT_EQ(say(".wait 20", "out0").size(), 1u);
    EXPECT_EQ(say(".wait 3560", "out0").size(), 0u);
    EXPECT_EQ(say(".wait 50", "out0").size(), 1u);
}

/// Lines of bars and beats are seldom at whole ms.
struct ExactSong : Hand {
    ExactSong() {
        say(".tempo 104\nbars_follow_tempo 1\nevents_follow_tempo 1\ntime_display_type bars\nsnaptime 1\n"
            "snap_division 4\nsnappitch 1\ntrack_add");
    }
    double beats(double ms) { return ms * 104 / 60000; }
    std::string in_beats() {
        std::string all;
        box().tracks.front()->events.for_each(
            [&](const Event& e) { all += fmt::format("{:.7g}+{:.7g} ", beats(e.start), beats(e.duration)); });
        return all;
    }
};

TEST_F(ExactSong, IsKeptAsItIsDrawn) {
    say("mouse_mode insert");
    click(0, 60);
    click(300, 60);
    drag(at(870, 62), at(1140, 62));
    const std::string drawn = "0+0.25 0.5+0.25 1.5+0.5 ";
    EXPECT_EQ(in_beats(), drawn);
    say("mouse_mode select\n.command select_all\n.command duplicate\n.command duplicate");
    const std::string song = drawn + "2+0.25 2.5+0.25 3.5+0.5 4+0.25 4.5+0.25 5.5+0.5 ";
    EXPECT_EQ(in_beats(), song);
    EXPECT_TRUE(holds_together(box()));

    say(".command loop_selection");
    const std::string before = document();
    say("write " + folder.file("a.json") + "\nread " + folder.file("a.json"));
    EXPECT_EQ(in_beats(), song);
    EXPECT_NEAR(beats(box().cycle.start), 4, 1e-9);
    EXPECT_NEAR(beats(box().cycle.end), 6, 1e-9);
    EXPECT_EQ(document(), before);
    EXPECT_TRUE(comes_back());

    say(".tempo 92\nwrite " + folder.file("a.json") + "\nread " + folder.file("a.json") + "\n.tempo 104");
    EXPECT_EQ(in_beats(), song);
    say(".command select_all\n.command quantise\n.command half_as_long\n.command twice_as_long");
    EXPECT_EQ(in_beats(), song);
    say("position 9230.769\n.command select_all\n.command copy\n.command paste_at_position");
    EXPECT_EQ(in_beats().substr(song.size(), 30), "16+0.25 16.5+0.25 17.5+0.5 18+")
        << "on the line that is meant";
}

TEST_F(ExactSong, IsWrittenOnItsTicks) {
    say("mouse_mode insert");
    for (int sixteenth = 0; sixteenth < 16; ++sixteenth) click(sixteenth * 15000 / 104. + 3, 60);
    const std::string file = folder.file("a.mid");
    ASSERT_TRUE(export_document(script.session(), {file}, [](double) { return true; }).written);
    say(".import " + file);
    ASSERT_EQ(box().tracks.front()->events.size(), 16u);
    for (int sixteenth = 0; sixteenth < 16; ++sixteenth) {
        const Event& event = *box().tracks.front()->events.at(static_cast<size_t>(sixteenth));
        EXPECT_NEAR(beats(event.start), sixteenth / 4., 1e-4);
        EXPECT_NEAR(beats(event.duration), 0.25, 1e-4);
    }
    EXPECT_EQ(box().tracks.size(), 1u);
}

/// Documents whose bars last whole ms hold whole ms.
TEST_F(ExactSong, IsOneWhoseBarsFollowTheTempo) {
    say(".command bars_follow_tempo\nmouse_mode insert");
    click(300, 60);
    say(".command select_all\nstretch 0.333");
    const Event& event = *box().tracks.front()->events.at(0);
    EXPECT_EQ(fmt::format("{}+{}", event.start, event.duration), "250+83");
}

TEST_F(Song, ATimeSignatureIsAChangeOfTheDocument) {
    say("write " + folder.file("a.json") +
        "\ntime_signature 1 4 4\ntime_signature 2 0 4\ntime_signature 2 3 5");
    EXPECT_FALSE(prseq_getdirtyflag(box())) << "as it was, or none";
    say("time_signature 3 6 8");
    EXPECT_TRUE(prseq_getdirtyflag(box()));
    const Measure third = measure_at(box().meter, 2);
    EXPECT_EQ(third.beats, 6);
    EXPECT_EQ(third.notevalue, 8);
}

TEST_F(Song, TitleAndAuthorAreTold) {
    say("write " + folder.file("a.json"));
    EXPECT_FALSE(prseq_getdirtyflag(box()));
    say("document_title A Song of 4 Bars\ndocument_author Ada\ndocument_memo \"two; lines\"");
    EXPECT_TRUE(prseq_getdirtyflag(box()));
    say("writeagain");
    const std::string text = text_of_file(folder.file("a.json"));
    for (const char* part :
         {R"("title": "A Song of 4 Bars")", R"("author": "Ada")", R"("memo": "two; lines")"})
        EXPECT_NE(text.find(part), text.npos) << text.substr(0, 300);
}

/// Two tracks; the loop holds what starts at 1000 and 1500, and not what starts at its end.
struct Arranged : Hand {
    Arranged() {
        say("track_add\ntrack_add");
        for (const char* event :
             {"0 500 300", "0 1000 900", "1 1500 100", "0 2000 10", "1 2700 10", "1 3000 10"})
            add(event);
        say("cyclerange 2000 1000\n.wait 100\nundoredo_clear");
    }
    void add(const std::string& event) {
        std::istringstream words(event);
        std::string track, start, duration;
        words >> track >> start >> duration;
        say("event track " + track + " start " + start + " duration " + duration + " <note> 60 90 </note>");
    }
    std::string song() {
        std::string all;
        for (const TrackRef& track : box().tracks) {
            track->events.for_each(
                [&](const Event& e) { all += fmt::format("{}+{} ", e.start, e.duration); });
            all += "| ";
        }
        return all;
    }
    /// After the message; it is one step, of this name.
    std::string after(const std::string& message, const std::string& name) {
        const std::string before = document();
        EXPECT_EQ(say(message, "error"), Lines());
        EXPECT_TRUE(holds_together(box()));
        const std::string made = song();
        EXPECT_EQ(box().history.items.size(), 1u);
        EXPECT_EQ(box().history.items.back()->name(), name);
        say("undo");
        EXPECT_EQ(document(), before);
        say("redo");
        EXPECT_EQ(song(), made);
        EXPECT_TRUE(holds_together(box()));
        say("undo\nundoredo_clear");
        return made;
    }
};

TEST_F(Arranged, ByTheTimeOfTheLoop) {
    EXPECT_EQ(after("loop_repeat", "Repeat Loop"),
              "500+300 1000+900 2000+900 3000+10 | 1500+100 2500+100 3700+10 4000+10 | ");
    EXPECT_EQ(after("loop_insert", "Insert Time"), "500+300 2000+900 3000+10 | 2500+100 3700+10 4000+10 | ");
    EXPECT_EQ(after("loop_delete", "Delete Time"), "500+300 1000+10 | 1700+10 2000+10 | ");
    EXPECT_EQ(after("loop_swap", "Swap Loop"), "500+300 1000+10 2000+900 | 1700+10 2500+100 3000+10 | ");
    say(".command loop_repeat\n.command loop_repeat");
    EXPECT_EQ(song(),
              "500+300 1000+900 2000+900 3000+900 4000+10 | "
              "1500+100 2500+100 3500+100 4700+10 5000+10 | ");
    EXPECT_TRUE(comes_back());
}

TEST_F(Arranged, OrNotAtAllWhereItIsEmpty) {
    say("cyclerange 1000 1000");
    for (const char* message : {"loop_repeat", "loop_insert", "loop_delete", "loop_swap"}) say(message);
    EXPECT_TRUE(box().history.items.empty());
    EXPECT_EQ(song(), "500+300 1000+900 2000+10 | 1500+100 2700+10 3000+10 | ");
}

struct Levels : Hand {
    Levels() {
        say("track_add\nevent start 0 duration 100 <note> 60 90 </note>\nevent start 200 duration 100 <note> "
            "60 90 </note>\n.wait 100\nundoredo_clear");
    }
    std::string level(const char* name = "Volume") {
        std::string all;
        box().tracks.front()->events.for_each([&](const Event& event) {
            const Bpf* bpf = TQ_Prseq_Events_GetBpfWithGivenName(event, gensym(name));
            all += bpf ? "" : "none ";
            if (!bpf) return;
            for (const BpfPoint& p : bpf->points) all += fmt::format("{:.3g} ", p.y * 127);
        });
        return all;
    }
    double of_new_ones(const char* name = "Volume") {
        return TQ_Prseq_Tracks_GetBpfTypeWithGivenName(*box().tracks.front(), gensym(name))->default_;
    }
    long steps() { return box().history.cursor + 1; }
};

TEST_F(Levels, AreMadeInOneStepHoweverTheyAreDragged) {
    for (const char* to : {"90", "50", "20", "80"}) say(std::string("track_level Volume ") + to);
    EXPECT_EQ(level(), "80 80 80 80 ");
    EXPECT_EQ(of_new_ones(), 80);
    EXPECT_EQ(steps(), 1);
    say("undo");
    EXPECT_EQ(level(), "none none ");
    say("redo");
    EXPECT_EQ(level(), "80 80 80 80 ");
    EXPECT_EQ(of_new_ones(), 80);
    EXPECT_TRUE(holds_together(box()));
    EXPECT_TRUE(comes_back());
}

TEST_F(Levels, KeepWhatIsDrawn) {
    say("track_level Volume 100\nevent id 2 <bpf> Volume 0 60 100 120 </bpf>\n.wait 100");
    EXPECT_EQ(level(), "100 100 60 120 ");
    say("track_level Volume 70\ntrack_level Volume 0\ntrack_level Volume 110");
    EXPECT_EQ(level(), "110 110 70 127 ") << "held in the range, but from what was there";
    EXPECT_EQ(steps(), 3);
    say("undo");
    EXPECT_EQ(level(), "100 100 60 120 ");
    EXPECT_EQ(of_new_ones(), 100);
    say("track_level Volume 100\nundo");
    EXPECT_EQ(level(), "100 100 100 100 ") << "what is there already is no step";
    say("redo\nredo");
    EXPECT_EQ(level(), "110 110 70 127 ");
}

TEST_F(Levels, BelongToTheTrackThatIsMeant) {
    say("track_add\ntrack_level 0 Pan 20");
    EXPECT_EQ(level("Pan"), "20 20 20 20 ");
    say("track_level Pan 90\nevent start 0\n.wait 100");
    EXPECT_EQ(box().tracks.back()->events.at(0)->bpfs.back()->points.front().y, 90 / 127.);
    EXPECT_EQ(level("Pan"), "20 20 20 20 ");
    say("track_bpf_add Gain -60 0 0\ntrack_level Gain -15\ntrack_level Gain -900");
    EXPECT_EQ(box().tracks.back()->bpftypes.back()->default_, -60);
    for (const char* bad : {"track_level Pitch 3", "track_level Volume", "track_level 7 Volume 3",
                            "track_level Volume loud", "track_name 9 x", "track_name"})
        EXPECT_EQ(say(bad, "error").size(), 1u) << bad;
    say("track_name 0 Big Bass\ntrack_name 1 808");
    EXPECT_EQ(box().tracks.front()->name, "Big Bass");
    EXPECT_EQ(box().tracks.back()->name, "808");
}

}  // namespace
}  // namespace tq::test
