// The musician's edits of the selection, asked for by message and by command.
#include <fmt/format.h>

#include "app/script_fixture.h"
#include "model/holds_together.h"

namespace tq::test {
namespace {

struct SelectionEdits : ScriptTest {
    /// The events of all tracks: "START+DURATION", with "*" where they are selected.
    std::string times() {
        return list([](const Event& e) { return fmt::format("{}+{}", e.start, e.duration); });
    }
    std::string pitches() {
        return list([](const Event& e) { return fmt::format("{}@{}", e.pitch, e.start); });
    }
    std::string velocities() {
        return list([](const Event& e) { return fmt::format("{}", e.velocity); });
    }
    template <typename Text>
    std::string list(Text text) {
        std::string all;
        for (const TrackRef& track : box().tracks)
            track->events.for_each([&](const Event& event) {
                all += (all.empty() ? "" : " ") + text(event) + (event.selected ? "*" : "");
            });
        return all;
    }
    void add(double start, double duration, double pitch = 60, double velocity = 80,
             const std::string& more = "") {
        say(fmt::format("event start {} duration {} <note> {} {} </note> ", start, duration, pitch,
                        velocity) +
            more);
    }
    void select_all() { say(".wait 100\n.command select_all_events"); }
    std::string last_edit() {
        const History& history = box().history;
        return history.cursor < 0 ? "" : history.items[static_cast<size_t>(history.cursor)]->name();
    }
    /// Says the line, which has to be one step of the history of this name, and undo and redo of it what they
    /// are; then undoes it.
    template <typename Look>
    std::string edited(const std::string& line, const std::string& name, Look look) {
        const std::string before = document();
        const long steps = box().history.cursor;
        EXPECT_EQ(say(line, "error"), Lines());
        EXPECT_EQ(last_edit(), name) << line;
        EXPECT_EQ(box().history.cursor, steps + 1) << line;
        EXPECT_TRUE(holds_together(box())) << line;
        const std::string after = document(), seen = look();
        say("undo");
        EXPECT_EQ(without_length(document()), without_length(before)) << line;
        say("redo");
        EXPECT_EQ(document(), after) << line;
        say("undo");
        return seen;
    }
    std::string edited_times(const std::string& line, const std::string& name) {
        return edited(line, name, [this] { return times(); });
    }
    std::string edited_velocities(const std::string& line, const std::string& name) {
        return edited(line, name, [this] { return velocities(); });
    }
    static std::string without_length(const std::string& document) {
        return without(without(document, "maxtime"), "horizontalscroll");
    }
    void expect_no_step(const std::string& line) {
        const long steps = box().history.cursor;
        const std::string before = document();
        EXPECT_EQ(say(line, "error"), Lines());
        EXPECT_EQ(box().history.cursor, steps) << line;
        EXPECT_EQ(document(), before) << line;
    }
};

TEST_F(SelectionEdits, QuantisesToAGrid) {
    for (double start : {90, 260, 380, 490}) add(start, 100);
    add(1130, 333);
    select_all();
    const auto quantised = [this](const std::string& arguments) {
        return edited_times("quantise " + arguments, "Quantise Events");
    };
    EXPECT_EQ(quantised("250"), "0+100* 250+100* 500+100* 500+100* 1250+333*");
    EXPECT_EQ(quantised("250 0.5"), "45+100* 255+100* 440+100* 495+100* 1190+333*");
    EXPECT_EQ(quantised("250 1 1"), "0+100* 375+100* 375+100* 500+100* 1000+333*")
        << "every second line is late";
    EXPECT_EQ(quantised("250 ends"), "90+160* 260+240* 380+120* 490+10* 1130+370*");
    EXPECT_EQ(quantised("250 1 0 both"), "0+250* 250+250* 500+250* 500+250* 1250+250*");
    EXPECT_EQ(edited_times("quantize 100.", "Quantise Events"),
              "100+100* 300+100* 400+100* 500+100* 1100+333*");
    expect_no_step("quantise 10");
    expect_no_step("quantise 250 0");
    say("quantise 250\n.wait 100");
    expect_no_step("quantise 250");
    say(".command select_nothing");
    expect_no_step("quantise 333");
}

TEST_F(SelectionEdits, QuantisesToTheRulersLines) {
    for (double start : {90, 760, 1490}) add(start, 400);
    select_all();
    say("time_display_type bars\n.size 400 300");
    EXPECT_EQ(edited_times("quantise", "Quantise Events"), "0+400* 1000+400* 1000+400*")
        << "beats last 1000 ms";
    EXPECT_EQ(edited_times("quantise both", "Quantise Events"), "0+1000* 1000+1000* 1000+1000*");
    say("time_display_type ms");
    const double step = box().maindisplay.mslabelincrement / 10;
    const auto line = [&](double ms) { return std::floor(ms / step + 0.5) * step; };
    EXPECT_EQ(edited_times(".command quantise", "Quantise Events"),
              fmt::format("{}+400* {}+400* {}+400*", line(90), line(760), line(1490)));
}

TEST_F(SelectionEdits, QuantisesToNoteValuesOfTheBars) {
    for (double start : {90, 760, 1340, 3440}) add(start, 50);
    select_all();
    EXPECT_EQ(edited_times("quantise 1/4", "Quantise Events"), "0+50* 1000+50* 1000+50* 3000+50*")
        << "whatever the ruler tells";
    EXPECT_EQ(edited_times("quantise 1/8T", "Quantise Events"), "0+50* 667+50* 1333+50* 3333+50*");
    EXPECT_EQ(edited_times("quantise 1/8 1 0.5 both", "Quantise Events"),
              "0+625* 625+375* 1625+375* 3625+375*");
    say("time_signature 1 7 8");
    EXPECT_EQ(edited_times("quantise 1/4", "Quantise Events"), "0+50* 1000+50* 1000+50* 3500+50*")
        << "the bar of seven eighths ends, and another begins, at 3500";
    say("time_signature 1 4 4\ntime_display_type bars\nsnap_division 2");
    EXPECT_EQ(edited_times("quantise snap 1 1", "Quantise Events"), "0+50* 750+50* 1000+50* 3750+50*");
}

TEST_F(SelectionEdits, FadesCurvesOverTheSelectionsTime) {
    const auto curves = [this] {
        return list([](const Event& e) {
            std::string text = fmt::format("{}:", e.start);
            for (const BpfRef& bpf : e.bpfs)
                if (bpf->name() != gensym("Pitch"))
                    for (const BpfPoint& point : bpf->points) text += fmt::format(" {:.4g}", point.y * 127);
            return text;
        });
    };
    add(0, 1000);
    add(3000, 1000);
    say("track_add other\nevent start 1000 duration 2000 <note> 60 80 </note>\n"
        "track_bpf_add Volume 0 127 100\n.wait 100\nevent id 3 <bpf> Volume 0 100 1000 50 2000 100 </bpf>\n"
        ".wait 100\n.command select_all_tracks");
    EXPECT_EQ(edited("curve_fade Volume 1 0 90", "Fade Events", curves),
              "0: 90 67.5* 3000: 22.5 0* 1000: 75 25 25*")
        << "one line over both tracks; what was drawn keeps its shape";
    EXPECT_EQ(box().tracks[0]->bpftypes.size(), 1u) << "and the curves that came go with the step";
    EXPECT_EQ(edited("curve_fade Volume 0 0.5", "Fade Events", curves),
              "0: 0 15.88* 3000: 47.62 63.5* 1000: 12.5 12.5 37.5*");
    say("event_select 2");
    EXPECT_EQ(edited(".command fade_out", "Fade Event", curves), "0: 127 127 3000: 127 0* 1000: 100 50 100");
    say("event_select 3");
    expect_no_step("curve_fade Volume 1 1");
}

TEST_F(SelectionEdits, OfSeveralTracksActOnAllOfThem) {
    say("time_display_type bars\nsnap_division 1\nsnaptime 1");
    add(0, 500, 60);
    add(4000, 500, 61);
    say("track_add other\nevent start 1000 duration 500 <note> 70 80 </note>\n.wait 100\ncyclerange 0 4000\n"
        ".command select_loop");
    EXPECT_EQ(edited_times(".command move_later", "Move Events"), "1000+500* 4000+500 2000+500*");
    EXPECT_EQ(edited(".command transpose_up", "Move Events", [this] { return pitches(); }),
              "61@0* 61@4000 71@1000*");
    EXPECT_EQ(edited("transpose -12", "Move Events", [this] { return pitches(); }), "48@0* 61@4000 58@1000*");
    EXPECT_EQ(edited_times(".command lengthen", "Change Events Duration"), "0+1500* 4000+500 1000+1500*");
    EXPECT_EQ(edited_times(".command delete", "Delete Events"), "4000+500");
    EXPECT_EQ(edited_times(".command duplicate", "Copy Events"),
              "0+500 2000+500* 4000+500 1000+500 3000+500*");
    say(".command select_loop\n.command copy\nposition 8000");
    EXPECT_EQ(edited_times(".command paste_at_position", "Paste Events"),
              "0+500 4000+500 8000+500* 1000+500 9000+500*")
        << "each on its track";
    say(".command select_loop\n.command cut");
    EXPECT_EQ(times(), "4000+500");
    say("track_delete 0\nposition 8000\n.command paste_at_position");
    EXPECT_EQ(times(), "8000+500* 9000+500*") << "what was on a track that has gone comes to the active one";
    say("undo\nundo\nundo\n.command select_all_tracks\ntrack_active 0");
    EXPECT_EQ(times(), "0+500 4000+500 1000+500") << "another track's turn begins with nothing selected";
}

TEST_F(SelectionEdits, LegatoReachesTheNextStartOnTheTrack) {
    for (double start : {0, 0, 500, 900}) add(start, 100, 60 + start / 100);
    add(700, 50);
    say(".wait 100\nselect_where time 0 600\nselect_where time 800 1000 add");
    EXPECT_EQ(edited_times("legato", "Legato Events"), "0+500* 0+500* 500+400* 700+50 900+100*")
        << "chords keep together, and what is not selected does not count";
    EXPECT_EQ(edited_times("legato 20", "Legato Events"), "0+480* 0+480* 500+380* 700+50 900+100*");
    EXPECT_EQ(edited_times("legato 450", "Legato Events"), "0+50* 0+50* 500+1* 700+50 900+100*");
}

TEST_F(SelectionEdits, StretchesAboutItsStart) {
    add(1000, 100);
    add(1301, 101);
    select_all();
    EXPECT_EQ(edited_times("stretch 2", "Stretch Events"), "1000+200* 1602+202*");
    EXPECT_EQ(edited_times("stretch 0.5", "Stretch Events"), "1000+50* 1151+50*") << "whole ms";
    EXPECT_EQ(edited_times("stretch 0.001", "Stretch Events"), "1000+1* 1000+1*");
    EXPECT_EQ(edited_times(".command half_as_long", "Stretch Events"), "1000+50* 1151+50*");
    EXPECT_GE(
        edited("stretch 1000", "Stretch Events", [this] { return fmt::format("{}", box().timelinelength); }),
        "403000");
    expect_no_step("stretch 1");
    add(5e11, 1000);
    select_all();
    EXPECT_TRUE(says(
        "stretch 3", "error",
        "error tq.sorvo: bad argument for message stretch: FACTOR leads beyond what a timeline can hold"));
    EXPECT_EQ(last_edit(), "Insert Event");
}

TEST_F(SelectionEdits, ReversesTimesAndCurves) {
    add(100, 100, 60, 80, "<bpf> Pitch 0 0 25 2 100 0 </bpf>");
    add(300, 400, 64);
    select_all();
    EXPECT_EQ(edited("reverse", "Reverse Events", [this] { return pitches(); }), "64@100* 60@600*");
    say("reverse");
    const BpfPoints& points = box().tracks[0]->events.at(1)->bpfs[0]->points;
    EXPECT_EQ(points, BpfPoints({{0, 0}, {0.75, 2}, {1, 0}}));
    say("reverse");
    EXPECT_EQ(pitches(), "60@100* 64@300*");
    say(".command select_nothing\nselect_where pitch 64 64");
    expect_no_step("reverse");
}

TEST_F(SelectionEdits, HumanisesBySeedOrByChance) {
    for (int i = 0; i < 40; ++i) add(1000 + i * 100, 100, 60, i % 2 ? 80 : 126);
    add(0, 100);
    select_all();
    const auto all = [this] { return times() + velocities(); };
    const std::string first = edited("humanise 30 10 7", "Humanise Events", all);
    EXPECT_EQ(edited("humanise 30 10 7", "Humanise Events", all), first);
    EXPECT_NE(edited("humanise 30 10 8", "Humanise Events", all), first);
    EXPECT_NE(edited("humanise 30 10", "Humanise Events", all),
              edited(".command humanise", "Humanise Events", all));
    say("humanise 30 10 7");
    double earliest = 0, latest = 0;
    for (int i = 0; i < 40; ++i) {
        const Event& event = *box().events_by_id.find(i + 1);
        earliest = std::min(earliest, event.start - 1000 - i * 100);
        latest = std::max(latest, event.start - 1000 - i * 100);
        EXPECT_LE(std::abs(event.velocity - (i % 2 ? 80 : 126)), 10);
        EXPECT_LE(event.velocity, 127);
        EXPECT_EQ(event.duration, 100);
    }
    EXPECT_TRUE(earliest < -15 && earliest >= -30 && latest > 15 && latest <= 30)
        << earliest << " " << latest;
    EXPECT_GE(box().events_by_id.find(41)->start, 0);
    expect_no_step("humanise 0 0");
}

TEST_F(SelectionEdits, ScalesAndRampsVelocities) {
    for (double i : {0., 1., 2., 4.}) add(i * 100, 50, 60, 20 + 25 * i);
    select_all();
    EXPECT_EQ(edited_velocities("velocity_scale 0.5 10", "Scale Events Velocity"), "20* 32.5* 45* 70*");
    EXPECT_EQ(edited_velocities("velocity_scale 2", "Scale Events Velocity"), "40* 90* 127* 127*");
    EXPECT_EQ(edited_velocities("velocity_scale -1 127", "Scale Events Velocity"), "107* 82* 57* 7*");
    EXPECT_EQ(edited_velocities(".command louder", "Scale Events Velocity"), "25* 50* 75* 125*");
    EXPECT_EQ(edited_velocities("velocity_ramp 40 100", "Ramp Events Velocity"), "40* 55* 70* 100*");
    expect_no_step("velocity_scale 1");
    say(".command select_nothing\nselect_where time 200 201");
    EXPECT_EQ(edited_velocities("velocity_ramp 10 20", "Ramp Event Velocity"), "20 45 10* 120");
}

TEST_F(SelectionEdits, SplitsWhatSoundsAndJoinsWhatTouches) {
    add(0, 1000);
    add(200, 1000, 64);
    add(900, 100, 67);
    add(0, 1000, 70);
    say(".wait 100\nselect_where pitch 60 67");
    const std::string split = "0+1000 0+500* 200+300* 500+500* 500+700* 900+100*";
    EXPECT_EQ(edited_times("split 500", "Split Events"), split);
    EXPECT_EQ(edited_times("position 499.9\n.command split", "Split Events"), split) << "whole ms";
    EXPECT_EQ(edited_times("split 950", "Split Events"),
              "0+1000 0+950* 200+750* 900+50* 950+50* 950+250* 950+50*");
    expect_no_step("split 5000");
    expect_no_step("join");
    say("split 500\nsplit 600");
    EXPECT_EQ(edited_times("join", "Join Events"), "0+1000 0+1000* 200+1000* 900+100*");
    say("undoredo 1\nevent start 1000 duration 500 <note> 70 80 </note>\nevent start 990 duration 1 <note> "
        "70 80 </note>");
    say(".wait 100\nselect_where pitch 70 70\nevent start 1501 duration 5 <note> 70 80 </note>\n.wait 100");
    EXPECT_EQ(edited_times(".command join", "Join Events"), "0+1000 0+1500* 200+1000 900+100 1501+5")
        << "overlaps and touches, but for what is not selected";
}

TEST_F(SelectionEdits, JoinKeepsTheCurvesOfAll) {
    for (int i = 0; i < 500; ++i) add(i * 100, 100, 60, 80, "<bpf> Pitch 0 0 50 1 100 0 </bpf>");
    select_all();
    say("join");
    ASSERT_EQ(times(), "0+50000*");
    const BpfPoints& points = box().tracks[0]->events.at(0)->bpfs[0]->points;
    ASSERT_GE(points.size(), 1001u);
    for (const BpfPoint& point : points)
        EXPECT_NEAR(point.y, static_cast<double>(std::lround(point.x * 1000) % 2), 1e-9) << point.x;
    EXPECT_TRUE(holds_together(box()));
}

TEST_F(SelectionEdits, AreOfAllTracksWhereSeveralHaveSelectedEvents) {
    add(10, 100);
    add(510, 100);
    select_all();
    say("track_add\nevent id 2 track 1\n.wait 100\ntrack_active 1\nselect_where time 0 9999");
    say("event id 1 label x\n.wait 100");
    box().tracks[0]->events.select_all();
    EXPECT_EQ(edited_times("quantise 100", "Quantise Events"), "0+100* 500+100*");
    expect_no_step("legato");  // each of the two is the last of its track
    say("track_visible 0 0");
    EXPECT_EQ(edited_times("quantise 100", "Quantise Event"), "10+100* 500+100*") << "but of visible ones";
}

TEST_F(SelectionEdits, SelectsByWhatEventsAre) {
    add(0, 100, 60, 10, "label verse");
    add(500, 100, 62, 60);
    add(500, 900, 64, 127, "label \"two words\"");
    add(1000, 100, 66, 60, "label verse");
    say(".wait 100");
    const auto after = [this](const std::string& line) {
        EXPECT_EQ(say(line, "error"), Lines()) << line;
        EXPECT_TRUE(holds_together(box()));
        return pitches();
    };
    EXPECT_EQ(after("select_where pitch 62 64"), "60@0 62@500* 64@500* 66@1000");
    EXPECT_EQ(after("select_where velocity 60 60"), "60@0 62@500* 64@500 66@1000*");
    EXPECT_EQ(after("select_where time 500 1000 add"), "60@0 62@500* 64@500* 66@1000*");
    EXPECT_EQ(after("select_where label verse remove"), "60@0 62@500* 64@500* 66@1000");
    EXPECT_EQ(after("select_where velocity 100 127 within"), "60@0 62@500 64@500* 66@1000");
    EXPECT_EQ(after("select_invert"), "60@0* 62@500* 64@500 66@1000*");
    EXPECT_EQ(after("select_where label \"two words\""), "60@0 62@500 64@500* 66@1000");
    EXPECT_EQ(after(".command select_invert"), "60@0* 62@500* 64@500 66@1000*");
    EXPECT_EQ(after("select_where label \"\" only"), "60@0 62@500* 64@500 66@1000");
    EXPECT_EQ(say("dump_selected", "out1").size(), 3u) << "clear, the event, done";
    EXPECT_EQ(last_edit(), "Insert Events") << "selecting is no edit";
    EXPECT_EQ(after("track_visible 0 0\nselect_invert\nselect_where pitch 0 131"),
              "60@0 62@500* 64@500 66@1000");
}

TEST_F(SelectionEdits, SelectsByIdentifierOnAnyTrack) {
    for (double i : {0., 1., 2.}) add(i * 100, 50);
    say("track_add other\nevent start 0 <note> 60 1 </note>\n.wait 100");
    const auto after = [&](const std::string& line) {
        say(line);
        std::string ids;
        for (const TrackRef& track : box().tracks)
            track->events.for_each([&](const Event& event) {
                if (event.selected) ids += std::to_string(event.id);
            });
        return ids;
    };
    EXPECT_EQ(after("event_select 3 1 3"), "13");
    EXPECT_EQ(after("event_select 4 2 add"), "1234");
    EXPECT_EQ(after("event_select 1 4 remove"), "23");
    EXPECT_EQ(after("event_select 4"), "4") << "only that, of all tracks";
    EXPECT_TRUE(says("event_select 99 2 only", "error", "error tq.sorvo: event_select: no event with id 99"));
    EXPECT_EQ(after("track_visible 0 0\nevent_select 1 4"), "4") << "none of an invisible track";
    EXPECT_EQ(after("event_select 1 4 sideways"), "4");
    EXPECT_EQ(last_edit(), "Insert Event") << "selecting is no edit";
    EXPECT_EQ(after("track_visible 0 1\nevent_show 3"), "3");
    EXPECT_EQ(box().activetrack, 0);
    EXPECT_EQ(say("event_show 2", "out1").size(), 3u) << "clear, the event, done";
}

TEST_F(SelectionEdits, DeletesByIdentifier) {
    for (double i : {0., 1., 2.}) add(i * 100, 50);
    say(".wait 100");
    EXPECT_TRUE(says("event_delete 2 77 1 2", "error", "error tq.sorvo: event_delete: no event with id 77"));
    EXPECT_EQ(last_edit(), "Delete Events");
    EXPECT_EQ(times(), "200+50");
    say("undo");
    EXPECT_EQ(edited_times("event_delete 2", "Delete Event"), "0+50 200+50");
    const long steps = box().history.cursor;
    say("event_delete 99");
    EXPECT_EQ(box().history.cursor, steps);
}

TEST_F(SelectionEdits, TellWhatIsWrongByName) {
    add(13, 100);
    select_all();
    const std::pair<const char*, const char*> faults[] = {
        {"quantise 0", "GRID has to be a number from 1 to 86400000, not 0"},
        {"quantise 250 2", "STRENGTH has to be a number from 0 to 1, not 2"},
        {"quantise 250 begin", "the last argument has to be one of starts, ends, both, not begin"},
        {"quantise 250 ends 1", "1 is not expected there"},
        {"quantise 1/0", "the last argument has to be one of starts, ends, both, not 1/0"},
        {"quantise 1/8th", "the last argument has to be one of starts, ends, both, not 1/8th"},
        {"curve_fade Pitch 1 0", "NAME is to be a curve other than \"Pitch\""},
        {"curve_fade Volume 1 2", "TO has to be a number from 0 to 1, not 2"},
        {"stretch", "FACTOR is missing"},
        {"stretch slowly", "FACTOR has to be a number from 0.001 to 1000, not slowly"},
        {"legato -5", "GAP_MS has to be a number from 0 to 86400000, not -5"},
        {"humanise 10", "VELOCITY is missing"},
        {"humanise 10 5 -1", "SEED has to be a number from 0 to 1000000000, not -1"},
        {"velocity_ramp 0 128", "TO has to be a number from 0 to 127, not 128"},
        {"reverse it", "it is not expected there"},
        {"split here", "here is not expected there"},
        {"select_where", "the first argument is missing"},
        {"select_where colour 1 2",
         "the first argument has to be one of pitch, velocity, time, label, not colour"},
        {"select_where pitch 70 60", "LOW is above HIGH"},
        {"select_where time 0", "TO is missing"},
        {"event_delete", "ID is missing"},
        {"event_delete 1 x", "ID has to be a number from 1 to 4503599627370496, not x"},
        {"time_display_type 3", "TYPE has to be a number from 0 to 2, not 3"},
        {"time_display_type weeks", "TYPE has to be one of ms, minutes, bars, not weeks"}};
    const std::string before = document();
    for (const auto& [line, fault] : faults) {
        const std::string name = std::string(line).substr(0, std::string(line).find(' '));
        EXPECT_EQ(say(line, "error"),
                  Lines{"error tq.sorvo: bad argument for message " + name + ": " + fault})
            << line;
        EXPECT_EQ(document(), before) << line;
    }
    EXPECT_EQ(last_edit(), "Insert Event");
}

TEST_F(SelectionEdits, TheTimeDisplaysTypeIsChosenByNumberAndName) {
    for (const auto& [line, type] : {std::pair("time_display_type 2", 2),
                                     {"time_display_type ms", 0},
                                     {".command bars_beats", 2},
                                     {"time_display_type minutes", 1},
                                     {"time_display_type bars", 2}}) {
        say(line);
        EXPECT_EQ(box().timedisplaytype, type) << line;
    }
    EXPECT_EQ(box().layout[Part::TimeDisplay].height, 48) << "there is room for bars and beats";
}

TEST_F(SelectionEdits, BufferRangesEndWithTheirEvents) {
    say(".sound kick 1000 1 1000\nevent start 0 duration 1000 <buffer> kick </buffer>\n"
        "event start 400 duration 100");
    select_all();
    const auto end = [this] { return fmt::format("{}", box().events_by_id.find(1)->link().end); };
    EXPECT_EQ(edited("legato", "Legato Event", end), "400");
    EXPECT_EQ(end(), "1000") << "it comes back";
}

}  // namespace
}  // namespace tq::test
