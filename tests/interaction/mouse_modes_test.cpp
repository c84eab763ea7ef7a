// What each mode does with presses, drags and releases in the main display.
#include "interaction/hand.h"
#include "view/layout.h"

namespace tq::test {
namespace {

struct InsertMode : Hand {
    InsertMode() { say("mouse_mode insert"); }
};

TEST_F(InsertMode, APressMakesAnEventAndTheDragDrawsIt) {
    mouse("move", 1234.5, 60);
    EXPECT_EQ(cursor(), "cursor 0");
    EXPECT_EQ(tip(), "tiptool Position: 1234.00 ms\\nPitch: 60.25");
    EXPECT_EQ(mouse("down", 1234.5, 60).back(), "out3 undoredo done") << "recorded by the press";
    EXPECT_EQ(events(), "1234+1000@60");
    EXPECT_EQ(tip(), "tiptool Start: 1234.00 ms\\nDuration: 1000.00 ms\\nPitch: 60.25");
    mouse("drag", 1500, 62);
    EXPECT_EQ(tip(), "tiptool Start: 1234.00 ms\\nDuration: 266.00 ms\\nPitch: 62.25");
    mouse("drag", 900, 62);
    EXPECT_EQ(events(), "1234+1@62") << "never shorter";
    mouse("drag", 1500, -20);
    EXPECT_EQ(release(), (Lines{"out1 event clear", "out1 event done"}))
        << "the selected events, which are none";
    EXPECT_EQ(events(), "1234+266@0");
    EXPECT_EQ(tip(), "tiptool hidden");
    EXPECT_EQ(history(), "Add Track, [Insert Event]");
    EXPECT_EQ(box().tracks[0]->name, "Untitled");
    EXPECT_EQ(box().tracks[0]->events.first()->velocity, 80);
    EXPECT_TRUE(comes_back());
}

TEST_F(InsertMode, SnapsToTheGridOfTheRulerAndToSemitones) {
    say("snaptime 1\nsnappitch 1\ntrack_add");
    mouse("move", 1234, 60);
    EXPECT_EQ(tip(), "tiptool Position: 1200.00 ms\\nPitch: 60.00");
    drag(at(1234, 60), at(1777, 61));
    EXPECT_EQ(events(), "1200+600@61");
    set_time_display_type(box(), TimeDisplayType::MinutesSeconds);
    drag(at(3336, 70), at(3338, 70));
    EXPECT_EQ(events(), "1200+600@61 3300+1@70") << "shorter than half the grid";
    set_time_display_type(box(), TimeDisplayType::BarsBeats);
    drag(at(5300, 72), at(5777, 72));
    EXPECT_EQ(events(), "1200+600@61 3300+1@70 5000+800@72") << "the start is that of a beat";
}

TEST_F(InsertMode, AHiddenTrackTakesNothing) {
    say("track_add\ntrack_visible 0 0");
    EXPECT_EQ(mouse("down", 1000, 60), Lines());
    mouse("drag", 2000, 60);
    EXPECT_EQ(release(), Lines());
    EXPECT_EQ(events(), "");
}

TEST_F(InsertMode, AnUndoInTheMiddleOfADragEndsIt) {
    mouse("down", 1000, 60);
    mouse("drag", 2000, 60);
    say("undo");
    mouse("drag", 3000, 64);
    release();
    EXPECT_EQ(events(), "");
    say("redo");
    EXPECT_EQ(events(), "1000+1000@60");
}

TEST_F(InsertMode, WhatIsTakenBackInTheMiddleOfADragHasNeverBeen) {
    say("track_add");
    mouse("down", 1000, 60);
    mouse("drag", 2000, 60);
    say(".command select_nothing");
    mouse("drag", 3000, 64);
    release();
    EXPECT_EQ(events(), "");
    EXPECT_EQ(history(), "[Add Track]");
}

struct ZoomMode : Hand {
    ZoomMode() { say("mouse_mode zoom\nzoom_hor 0.2\nscroll_hor 0.3\nzoom_vert 0.2"); }
    /// The times and pitches at the edges of the main display.
    struct View {
        double start, end, top, bottom;
    };
    View view() {
        const MainDisplay& md = box().maindisplay;
        const auto time = [&](double x) {
            return TQ_Prseq_Maindisplay_CalculatePositionFromMouse(box(), md, x + md.horizontalscroll);
        };
        const auto pitch = [&](double y) { return TQ_Prseq_Maindisplay_CalculatePitchFromMouse(md, y); };
        return {time(0), time(md.rect.width), pitch(0), pitch(md.rect.height)};
    }
    Point in_display(double x, double y) {
        const Rect& rect = box().maindisplay.rect;
        return {rect.x + x * rect.width, rect.y + y * rect.height};
    }
};

TEST_F(ZoomMode, AClickZoomsInByTwoAndWithOptionOut) {
    mouse("move", in_display(0.3, 0.4));
    EXPECT_EQ(cursor(), "cursor 4");
    mouse("move option", in_display(0.3, 0.4));
    EXPECT_EQ(cursor(), "cursor 5");
    const View before = view();
    const double ms = before.start + 0.5 * (before.end - before.start);
    click(in_display(0.5, 0.5));
    View now = view();
    EXPECT_NEAR(now.end - now.start, (before.end - before.start) / 2, 1);
    EXPECT_NEAR((now.start + now.end) / 2, ms, 2) << "around the pointer";
    EXPECT_NEAR(now.top - now.bottom, (before.top - before.bottom) / 2, 0.1);
    click(in_display(0.5, 0.5), " option");
    now = view();
    EXPECT_NEAR(now.end - now.start, before.end - before.start, 1);
}

TEST_F(ZoomMode, ADragZoomsToWhatItCovers) {
    const View before = view();
    const double width = before.end - before.start;
    mouse("down", in_display(0.25, 0.25));
    EXPECT_EQ(mouse("drag", in_display(0.75, 0.5)), Lines());
    EXPECT_TRUE(box().maindisplay.marqueeactive);
    const Lines said = release();
    EXPECT_EQ(said.size(), 6u) << "four values of the view, and the selection";
    EXPECT_FALSE(box().maindisplay.marqueeactive);
    View now = view();
    EXPECT_NEAR(now.start, before.start + 0.25 * width, 2);
    EXPECT_NEAR(now.end, before.start + 0.75 * width, 2);
    // With option it zooms nowhere, and neither does what something else ends.
    const std::string seen = say(".show view").at(0);
    drag(in_display(0.2, 0.2), in_display(0.6, 0.6), " option");
    mouse("down", in_display(0.2, 0.2));
    mouse("drag", in_display(0.6, 0.6));
    release(" option");
    mouse("down", in_display(0.2, 0.2));
    mouse("drag", in_display(0.6, 0.6));
    say(".focus out");
    release();
    mouse("down", in_display(0.2, 0.2));
    mouse("drag", in_display(0.6, 0.6));
    mouse("drag", in_display(0.2, 0.2));
    release();
    EXPECT_EQ(say(".show view").at(0), seen);
    EXPECT_FALSE(box().maindisplay.marqueeactive);
}

struct SliceAndGlue : Hand {
    SliceAndGlue() {
        add(1000, 2000, 60);
        add(5000, 1000, 60);
    }
};

TEST_F(SliceAndGlue, CutAndJoin) {
    say("mouse_mode slice\nsnaptime 1");
    mouse("move", 2004, 60);
    EXPECT_EQ(cursor(), "cursor 8");
    EXPECT_EQ(tip(), "tiptool Slice: 2000.000000 ms");
    mouse("move", 2004, 70);
    EXPECT_EQ(tip(), "tiptool hidden");
    click(2004, 70);
    click(2004, 60);
    EXPECT_EQ(events(), "1000+1000@60 2000+1000@60 5000+1000@60");
    click(1004, 60);
    EXPECT_EQ(events(), "1000+1000@60 2000+1000@60 5000+1000@60") << "too near the begin";
    say("mouse_mode glue");
    mouse("move", 1500, 60);
    EXPECT_EQ(cursor(), "cursor 9");
    click(1500, 60);
    EXPECT_EQ(events(), "1000+2000@60 5000+1000@60");
    click(1500, 60);
    EXPECT_EQ(events(), "1000+5000@60");
    click(1500, 60);
    EXPECT_EQ(history(), "Add Track, Insert Event, Insert Event, Slice Event, Glue Events, [Glue Events]");
    EXPECT_TRUE(comes_back());
}

TEST_F(SliceAndGlue, WhatTheyMakeIsInspectedWhereTheInspectorIsOpen) {
    click(1500, 60);
    say("event_inspector_open\nmouse_mode slice");
    click(1400, 60);
    EXPECT_EQ(events(), "1000+400@60* 1400+1600@60 5000+1000@60");
    EXPECT_EQ(say(".show fields", "field eventEd_duration"), (Lines{"field eventEd_duration 400."}));
    say("mouse_mode glue\n.key 97");
    click(1500, 60);
    EXPECT_EQ(events(), "1000+400@60 1400+4600@60*") << "and nothing else";
    EXPECT_EQ(say(".show fields", "field eventEd_duration"), (Lines{"field eventEd_duration 4600."}));
}

TEST_F(SliceAndGlue, TheGridOfSlicingIsThatOfTheMillisecondsAlsoInBars) {
    say("mouse_mode slice\nsnaptime 1");
    set_time_display_type(box(), TimeDisplayType::BarsBeats);
    click(2214, 60);
    EXPECT_EQ(events(), "1000+1200@60 2200+800@60 5000+1000@60");
}

struct SelectMode : Hand {
    SelectMode() {
        add(1000, 1000, 60);
        add(3000, 1000, 64);
    }
    double edge(double ms, double pixels) { return ms + pixels * 10; }  // ms
};

TEST_F(SelectMode, TheCursorTellsWhatAPressTakesHoldOf) {
    struct {
        double ms;
        const char* cursor;
    } const rows[] = {{edge(1000, -2), "cursor -1"}, {edge(1000, 2), "cursor 1"},
                      {edge(1000, 4), "cursor -1"},  {edge(2000, -4), "cursor -1"},
                      {edge(2000, -2), "cursor 2"},  {edge(2000, 2), "cursor 2"},
                      {edge(2000, 4), "cursor -1"}};
    for (const auto& row : rows) {
        mouse("move", row.ms, 60);
        EXPECT_EQ(cursor(), row.cursor) << row.ms;
    }
    mouse("move", edge(1000, 2), 60);
    mouse("leave", {-1, -1});
    EXPECT_EQ(cursor(), "cursor -1");
    mouse("move", edge(1000, 2), 60);
    say(".wheel 600 30 0 1");
    EXPECT_EQ(cursor(), "cursor -1") << "over a part that does not scroll";
}

TEST_F(SelectMode, EdgesResizeAndNeverTurnOver) {
    drag(at(edge(1000, 1), 60), at(500, 60));
    EXPECT_EQ(events(), "500+1500@60* 3000+1000@64");
    drag(at(edge(500, 1), 60), at(5000, 60));
    EXPECT_EQ(events(), "1999+1@60* 3000+1000@64");
    drag(at(edge(4000, -1), 64), at(100, 64));
    EXPECT_EQ(events(), "1999+1@60 3000+1@64*");
    EXPECT_EQ(history(),
              "Add Track, Insert Event, Insert Event, Change Event Start, Change Event Start, "
              "[Change Event Duration]");
    EXPECT_TRUE(comes_back());
    drag(at(edge(3000, 5), 64), at(3500, 64));
    EXPECT_EQ(events(), "1999+1@60 3000+500@64*") << "also where there is no place to grab it inside";
    add(3500, 500, 64);
    drag(at(edge(3500, 2), 64), at(3700, 64));
    EXPECT_EQ(events(), "1999+1@60 3000+500@64 3700+300@64*") << "what is under the pointer comes first";
}

TEST_F(SelectMode, OptionDragsCopies) {
    say(".key 97");
    mouse("down option", 1500, 60);
    mouse("drag option", 2500, 62);
    EXPECT_EQ(cursor(), "cursor 14");
    mouse("drag option", 2500, 63);
    release(" option");
    EXPECT_EQ(cursor(), "cursor -1");
    EXPECT_EQ(events(), "1000+1000@60 2000+1000@63* 3000+1000@64 4000+1000@67*");
    EXPECT_EQ(history(), "Add Track, Insert Event, Insert Event, [Copy Events]");
    EXPECT_TRUE(comes_back());
}

TEST_F(SelectMode, EveryClickSendsWhatIsSelected) {
    mouse("down", 1500, 60);
    EXPECT_EQ(release().size(), 3u);
    mouse("down", 9000, 60);
    EXPECT_EQ(release(), (Lines{"out1 event clear", "out1 event done"}));
    mouse("down right", 9000, 60);
    EXPECT_EQ(release(" right"), Lines()) << "the other button does not";
}

struct BufferMode : Hand {
    BufferMode() {
        make_sound();
        say("showbuffers 1\nmouse_mode buffer");
        add(1000, 2000, 60, "<buffer> sound </buffer>");
        add(5000, 1000, 60);
    }
    std::string range(long id) {
        const BufferLink& link = box().events_by_id.find(id)->link();
        return whole(link.start) + "-" + whole(link.end);
    }
};

TEST_F(BufferMode, DragsTheStartAndTheEndOfWhatIsPlayed) {
    EXPECT_EQ(range(1), "0-4000");
    mouse("move", 1500, 60);
    EXPECT_EQ(cursor(), "cursor 11");
    mouse("down", 1500, 60);
    mouse("drag", 1000, 60);
    EXPECT_EQ(tip(), "tiptool Buffer Start: 500.00 ms") << "to the left, later in the sound";
    mouse("drag", 9000, 60);
    EXPECT_EQ(range(1), "0-4000");
    mouse("drag", 800, 60);
    release();
    EXPECT_EQ(range(1), "700-4000");
    mouse("move", 3015, 60);
    EXPECT_EQ(cursor(), "cursor 12") << "also a little behind the event";
    mouse("move", 2990, 60);
    EXPECT_EQ(cursor(), "cursor 12");
    mouse("down", 2990, 60);
    mouse("drag", 2490, 60);
    EXPECT_EQ(tip(), "tiptool Buffer End: 2700.00 ms") << "held to what the event plays";
    mouse("drag", 990, 60);
    release();
    EXPECT_EQ(range(1), "700-2000");
    mouse("move", 2400, 60);
    EXPECT_EQ(cursor(), "cursor 12") << "after the line that shows the range's end";
    EXPECT_EQ(events(), "1000+2000@60* 5000+1000@60");
    click(1500, 60);
    drag(at(5500, 60), at(6000, 60));
    EXPECT_EQ(
        history(),
        "Add Track, Insert Event, Insert Event, Change Event MSP Buffer Start, [Change Event MSP Buffer End]")
        << "nothing for a click, nor for an event without a buffer";
    EXPECT_TRUE(comes_back());
}

TEST_F(BufferMode, ABufferThatGoesEndsNothingButTheDrag) {
    mouse("down", 1500, 60);
    mouse("drag", 1400, 60);
    say(".buffer sound");
    mouse("drag", 1000, 60);
    release();
    EXPECT_EQ(range(1), "100-4000");
    say("undo");
    EXPECT_EQ(range(1), "0-4000");
}

}  // namespace
}  // namespace tq::test
