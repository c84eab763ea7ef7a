// The ruler with the mouse: position and loop. The whole timeline of 10 s is 1000 pixels wide, from x = 205;
// the ruler is 24 high from y = 24, the loop's bar at its lower edge.
#include "app/script_fixture.h"
#include "instance/prseq.h"

namespace tq::test {
namespace {

struct TimeDisplayTest : ScriptTest {
    TimeDisplayTest() {
        say(".size 1220 600\nzoom_animation 0\nzoom_out_all\ncycle 1\ncyclerange 2000 5000");
    }
    Lines mouse(const std::string& what, double ms, double y, const std::string& keys = "") {
        return say(".mouse " + what + " " + std::to_string(205 + ms / 10) + " " + std::to_string(y) + keys);
    }
    static constexpr double bar = 43, above = 30;
    struct Drag {
        const char* before;  ///< messages
        double press, to;    ///< ms
        double start, end;   ///< of the loop, then
        const char* what;
    };
    void expect(const Drag& row) {
        say(std::string("snaptime 0\ncyclerange 2000 5000\n") + row.before);
        EXPECT_EQ(mouse("down", row.press, bar), Lines()) << row.what;
        mouse("drag", row.press + 1300, bar);
        const Lines said = mouse("drag", row.to, -50);
        EXPECT_NEAR(box().cycle.start, row.start, 1e-6) << row.what;
        EXPECT_NEAR(box().cycle.end, row.end, 1e-6) << row.what;
        ASSERT_EQ(said.size(), row.to < 0 || row.to > 10000 ? 2u : 1u) << "outside, it scrolls: " << row.what;
        EXPECT_TRUE(said.back().starts_with("out3 cyclerange ")) << said.back();
        mouse("up", row.to, bar);
    }
};

TEST_F(TimeDisplayTest, ThePositionGoesWithThePointer) {
    EXPECT_EQ(mouse("down", 7000, above), Lines({"out3 ticks 6720."}));
    EXPECT_NEAR(box().linecursor.position, 7000, 1e-6);
    mouse("drag", 1234, 500);
    EXPECT_NEAR(box().linecursor.position, 1234, 1e-6) << "also over the loop, and outside the ruler";
    mouse("drag", -500, above);
    EXPECT_EQ(box().linecursor.position, 0);
    mouse("drag", 12000, above);
    EXPECT_EQ(box().linecursor.position, 10000);
    say("snaptime 1\nevent start 0 <note> 60 90 </note>");
    mouse("drag", 1234, above);
    EXPECT_NEAR(box().linecursor.position, 1200, 1e-6) << "an edit meanwhile does not end it";
    mouse("up", 1234, above);
    mouse("drag", 5000, above);
    EXPECT_NEAR(box().linecursor.position, 1200, 1e-6);
    EXPECT_EQ(box().cycle.start, 2000);
}

TEST_F(TimeDisplayTest, WithShiftANewLoopIsDrawn) {
    const auto draw = [this](double from, double to) {
        mouse("down", from, above, " shift");
        mouse("drag", (from + to) / 2, above, " shift");
        mouse("drag", to, bar, " shift");
        mouse("up", to, bar, " shift");
    };
    say("cycle 0\nposition 100");
    draw(4040, 7980);
    EXPECT_EQ(box().cycle.start, 2000) << "only where that is wanted";
    say("cycle 0\nposition 100\nshift_draws_loop 1");
    draw(4040, 7980);
    EXPECT_EQ(box().cycle.start, 4000);
    EXPECT_EQ(box().cycle.end, 8000) << "on the grid";
    EXPECT_TRUE(box().cycle.active);
    EXPECT_EQ(box().linecursor.position, 100) << "the position stays";
    draw(5000, 1000);
    EXPECT_EQ(box().cycle.start, 1000) << "backwards, and over the loop's bar";
    EXPECT_EQ(box().cycle.end, 5000);
}

/// The grid is 100 ms: a tenth of a main division.
TEST_F(TimeDisplayTest, TheLoopIsDraggedByWhereItIsTakenHoldOf) {
    const Drag rows[] = {
        {"", 2010, 3333, 3323, 5000, "its start moves freely"},
        {"", 2030, 6030, 6000, 5000, "and passes its end"},
        {"", 2000, -700, 0, 5000, "but not the timeline's begin"},
        {"snaptime 1", 2010, 3370, 3400, 5000, "on the grid"},
        {"", 3000, 3333, 2333, 5333, "the whole of it"},
        {"", 3000, 20000, 7000, 10000, "stops at the timeline's end"},
        {"", 3000, -20000, 0, 3000, "and at its begin"},
        {"snaptime 1", 3000, 3370, 2400, 5400, "on the grid"},
        {"cyclerange 2000 5050\nsnaptime 1", 3000, 20000, 6950, 10000,
         "keeps its length where the grid ends"},
        {"", 4990, 6333, 6300, 6300, "its end keeps to the grid"},
        {"", 4990, 20000, 2000, 10000, "within the timeline"},
    };
    for (Drag row : rows) {
        if (std::string(row.what) == "its end keeps to the grid") row.start = 2000;
        expect(row);
    }
    expect({"cyclerange 5000 2000", 5000, 1000, 1000, 2000, "a start behind the end can be taken back"});
}

TEST_F(TimeDisplayTest, GripsAreThreePixelsWide) {
    struct {
        double pixels, y;  ///< from the loop's start
        double start, end;
    } const rows[] = {{0, bar, 2100, 5000},   {3, bar, 2100, 5000},   {4, bar, 2100, 5100},
                      {296, bar, 2100, 5100}, {297, bar, 2000, 5100}, {300, bar, 2000, 5100},
                      {301, bar, 2000, 5000}, {-1, bar, 2000, 5000},  {100, 37, 2000, 5000},
                      {100, 38, 2100, 5100}};
    for (const auto& row : rows) {
        say("cyclerange 2000 5000");
        const double ms = 2000 + 10 * row.pixels;
        mouse("down", ms, row.y);
        mouse("drag", ms + 100, row.y);
        mouse("up", ms, row.y);
        EXPECT_NEAR(box().cycle.start, row.start, 1e-6) << row.pixels << " " << row.y;
        EXPECT_NEAR(box().cycle.end, row.end, 1e-6) << row.pixels << " " << row.y;
    }
}

TEST_F(TimeDisplayTest, ALoopThatIsDraggedWhilePlayingEndsWhereItIsDraggedTo) {
    say("position 4000\nint 1\n.wait 500");
    mouse("down", 4990, bar);
    mouse("drag", 6000, bar);
    const Lines said = say(".wait 1000", "out3");
    EXPECT_EQ(said, Lines()) << "5 s is no end any more";
    EXPECT_EQ(say(".wait 600", "ticks"), Lines({"out3 ticks 1920."}));
}

TEST_F(TimeDisplayTest, DraggingTheLoopMakesTheDocumentDirtyAndRedrawsTheRuler) {
    say("undoredo_clear\n.paint\n.show layers");
    const long revision = box().revisions.current;
    mouse("down", 3000, bar);
    EXPECT_EQ(box().revisions.current, revision);
    mouse("drag", 3500, bar);
    EXPECT_NE(box().revisions.current, revision);
    say(".paint");
    EXPECT_EQ(say(".show layers"), Lines({"layers timedisplay_layer"}));
    roll_back_gesture(box());
    EXPECT_EQ(box().cycle.start, 2000);
    EXPECT_EQ(box().cycle.end, 5000);
}

}  // namespace
}  // namespace tq::test
