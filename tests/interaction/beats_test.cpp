// Bars at the song's tempo, and what snaps to parts of their beats.
#include "interaction/hand.h"
#include "model/bars.h"
#include "view/grid.h"

namespace tq::test {
namespace {

/// Quarters of 600 ms, in four parts of 150 ms.
struct Beats : Hand {
    Beats() {
        say(".tempo 100\nbars_follow_tempo 1\ntime_display_type bars\nsnaptime 1\nsnap_division 4\nsnappitch "
            "1");
    }
};

TEST_F(Beats, FollowTheTempoWhereTheDocumentSaysSo) {
    const Meter& meter = box().meter;
    EXPECT_EQ(meter.spans.front().length, 2400);
    say(".tempo 120");
    EXPECT_EQ(meter.spans.front().length, 2000);
    say("track_add\nwrite " + folder.file("a.json") + "\nbars_follow_tempo 0");
    EXPECT_EQ(meter.spans.front().length, 4000);
    say("write " + folder.file("b.json") + "\nread " + folder.file("a.json"));
    EXPECT_EQ(meter.spans.front().length, 2000);
    EXPECT_EQ(text_of_file(folder.file("b.json")).find("bars_follow_tempo"), std::string::npos);
    say("bars_follow_tempo 1\nread " + folder.file("b.json"));
    EXPECT_EQ(meter.spans.front().length, 4000) << "as the document says";
    say(".command new");
    EXPECT_EQ(meter.spans.front().length, 2000) << "as new ones begin";
    EXPECT_FALSE(prseq_getdirtyflag(box()));
    say(".command bars_follow_tempo");
    EXPECT_EQ(meter.spans.front().length, 4000);
    const long bars = measure_count(meter);
    say("maxtime 60000");
    EXPECT_EQ(measure_count(meter), bars) << "these do not grow with the timeline";
    say(".command bars_follow_tempo\nevent start 90000 <note> 60 90 </note>");
    EXPECT_GT(measure_at(meter, measure_count(meter) - 1).end, 91000);
}

TEST_F(Beats, WhatTheHandDoesSnapsToTheirParts) {
    say("mouse_mode insert");
    click(1330, 60);
    EXPECT_EQ(events(), "1350+150@60") << "one part long";
    drag(at(2400, 62), at(2990, 62));
    EXPECT_EQ(events(), "1350+150@60 2400+600@62");
    say("mouse_mode select");
    drag(at(2990, 62), at(2870, 62));
    EXPECT_EQ(events(), "1350+150@60 2400+450@62*") << "the end";
    drag(at(2410, 62), at(2210, 62));
    EXPECT_EQ(events(), "1350+150@60 2250+600@62*") << "the start";
    say("mouse_mode slice");
    click(2590, 62);
    EXPECT_EQ(events(), "1350+150@60 2250+300@62 2550+300@62");
    say("mouse_mode select");
    EXPECT_TRUE(comes_back());
}

TEST_F(Beats, TheInsertModeEditsWhatIsThere) {
    say("mouse_mode insert");
    click(1230, 60);
    click(1240, 60);
    EXPECT_EQ(events(), "1200+150@60*") << "no other one on it";
    drag(at(1270, 60), at(1570, 62));
    EXPECT_EQ(events(), "1500+150@62*");
    click(1660, 62);
    EXPECT_EQ(events(), "1500+150@62 1650+150@62") << "right behind it";
    EXPECT_TRUE(comes_back());
}

TEST_F(Beats, KeysMoveByWholeSteps) {
    say("event start 610 duration 100 <note> 60 90 </note>\n.wait 100\n.command select_all");
    for (int i = 0; i < 3; ++i) say(".command move_earlier");
    EXPECT_EQ(events(), "160+100@60*") << "as far from the lines as it was";
    for (int i = 0; i < 3; ++i) say(".command move_later");
    EXPECT_EQ(events(), "610+100@60*");
    say(".command lengthen");
    EXPECT_EQ(events(), "610+250@60*");
}

/// 8 pixels: 3 of each edge leave 2 in the middle, a quarter of each 4.
TEST_F(Beats, NarrowEventsKeepAMiddle) {
    say("snaptime 0\nevent start 1000 duration 80 <note> 60 90 </note>\n.wait 100");
    drag(at(1025, 60), at(925, 60));
    EXPECT_EQ(events(), "925+155@60*");
    say("undo\nkeep_middle 1");
    drag(at(1025, 60), at(925, 60));
    EXPECT_EQ(events(), "900+80@60*");
    drag(at(910, 60), at(810, 60));
    EXPECT_EQ(events(), "810+170@60*");
}

TEST_F(Beats, WhatIsMovedTogetherKeepsItsDistances) {
    say("event start 600 duration 100 <note> 60 90 </note>\nevent start 817 duration 100 <note> 64 90 "
        "</note>\n.wait 100");
    say(".command select_all");
    drag(at(650, 60), at(820, 60));
    EXPECT_EQ(events(), "750+100@60* 967+100@64*");
    say(".command move_later");
    EXPECT_EQ(events(), "900+100@60* 1117+100@64*");
    say(".command quantise");
    EXPECT_EQ(events(), "900+100@60* 1050+100@64*");
}

TEST_F(Beats, CopiesBeginAtTheSamePlaceOfTheBar) {
    say("event start 0 duration 100 <note> 60 90 </note>\nevent start 1800 duration 100 <note> 64 90 "
        "</note>\n.wait 100");
    say(".command select_all\n.command duplicate");
    EXPECT_EQ(events(), "0+100@60 1800+100@64 2400+100@60* 4200+100@64*");
    say("event_delete 2 3 4\n.command select_all\n.command duplicate");
    EXPECT_EQ(events(), "0+100@60 150+100@60*") << "what is short, by a part of a beat";
    say("undo\nsnap_division 0\n.command select_all\n.command duplicate");
    EXPECT_EQ(events(), "0+100@60 100+100@60*") << "at its end";
}

/// The last of a bar of swung sixteenths lasts a little into the next bar.
TEST_F(Beats, WhatSwingsIsCopiedToTheNextBar) {
    for (int i = 0; i < 16; ++i)
        say("event start " + std::to_string(i * 150) + " duration 150 <note> 60 90 </note>");
    say(".wait 100\n.command select_all\nquantise snap 1 0.5\n.command duplicate");
    EXPECT_EQ(box().tracks[0]->events.at(15)->end(), 2437.5);
    EXPECT_EQ(box().tracks[0]->events.at(16)->start, 2400);
    say("undo\n.command select_all\n.command copy\nposition 2400\n.command paste_at_position");
    EXPECT_EQ(box().linecursor.position, 4800);
    say("undo\nevent_delete 15\nevent id 16 duration 300\n.wait 100\n.command select_all\n.command "
        "duplicate");
    EXPECT_EQ(box().tracks[0]->events.at(15)->start, 4800) << "what lasts longer than that is another bar";
}

TEST_F(Beats, PastingGoesOnFromThePosition) {
    say("event start 0 duration 100 <note> 60 90 </note>\nevent start 1800 duration 100 <note> 64 90 "
        "</note>\n.wait 100");
    say(".command select_all\n.command copy\nposition 2400\n.command paste_at_position\n.command "
        "paste_at_position");
    EXPECT_EQ(events(), "0+100@60 1800+100@64 2400+100@60 4200+100@64 4800+100@60* 6600+100@64*");
    EXPECT_EQ(box().linecursor.position, 7200);
    say("undo\nundo\n.command paste");
    EXPECT_EQ(events(), "0+100@60 0+100@60* 1800+100@64 1800+100@64*") << "where it was";
}

TEST_F(Beats, TheirPartsAreDrawnWhereThereIsRoom) {
    say("zoom_hor 0.01");
    const auto lines = [&] {
        const EventView view(box(), 1);
        std::string shown;
        for (const GridLine& line : build_grid(box(), view))
            if (line.x < 2400 * view.pixels_per_ms) shown += line.main ? 'B' : line.part ? '.' : 'b';
        return shown;
    };
    EXPECT_EQ(lines(), "B...b...b...b...B");
    say("snap_division 64");
    EXPECT_EQ(lines(), "BbbbB");
}

}  // namespace
}  // namespace tq::test
