// The scrollbars with the mouse. The box is 1000 x 600: the horizontal scrollbar begins at 165, its zoom box
// is 100 wide and its arrows end at 985; the vertical one's arrows end at 485.
#include "app/script_fixture.h"
#include "instance/prseq.h"

namespace tq::test {
namespace {

struct ScrollbarsTest : ScriptTest {
    ScrollbarsTest() {
        say(".size 1000 600\nzoom_animation 0\ntrack_add\nzoom_hor 0.25\nscroll_hor 0\nzoom_vert 0.02\n"
            "scroll_vert 0.5\n.paint\n.show layers");
    }
    const TQScrollbar& hor() { return box().horscrollbar; }
    const TQScrollbar& vert() { return box().vertscrollbar; }
    Lines mouse(const std::string& what, double x, double y) {
        return say(".mouse " + what + " " + std::to_string(x) + " " + std::to_string(y));
    }
    /// The middle of the horizontal knob, in the box.
    double knob_x() { return 165 + hor().knob.x + hor().knob.width / 2; }
    static constexpr double hor_y = 590;
    static constexpr const char* hor_layers = "layers horscrollbar_layer maindisplay_layer timedisplay_layer";
};

TEST_F(ScrollbarsTest, ArrowsAndPagesScrollAndSaySo) {
    const double room = hor().totalpagesize - hor().selectionpagesize;
    const double bar = box().maindisplay.bigbarsize, page = box().maindisplay.rect.width;
    struct {
        double x;
        double pixels;
        const char* what;
    } const rows[] = {{985 - 8, bar, "forward"},
                      {985 - 8, 2 * bar, "forward again"},
                      {985 - 24, bar, "back"},
                      {985 - 40, bar + page, "a page on"},
                      {165 + 101, bar, "a page back"},
                      {985 - 24, 0, "back"},
                      {985 - 24, 0, "nothing before the begin"}};
    for (const auto& row : rows) {
        const Lines said = mouse("down", row.x, hor_y);
        EXPECT_NEAR(box().maindisplay.horizontalscroll, row.pixels, 1e-6) << row.what;
        EXPECT_EQ(box().horizontalscroll, hor().scrollunityvalue);
        ASSERT_EQ(said.size(), 1u) << row.what;
        EXPECT_TRUE(said[0].starts_with("out3 scrollhor ")) << said[0];
        EXPECT_NEAR(std::stod(said[0].substr(15)), row.pixels / room, 1e-5);
        mouse("up", row.x, hor_y);
    }
    const double before = box().maindisplay.verticalscroll;
    EXPECT_TRUE(mouse("down", 990, 485 - 8)[0].starts_with("out3 scrollvert "));
    EXPECT_NEAR(box().maindisplay.verticalscroll, before + box().maindisplay.rowheight, 1e-6);
    mouse("up", 0, 0);
    mouse("down", 990, 60);
    EXPECT_NEAR(box().maindisplay.verticalscroll,
                before + box().maindisplay.rowheight - box().keydisplay.rect.height, 1e-6);
}

TEST_F(ScrollbarsTest, AKnobGoesWithThePointerAndShiftIsFine) {
    const double x = knob_x();
    EXPECT_EQ(mouse("down", x, hor_y), Lines()) << "taking hold scrolls nothing";
    mouse("drag", x + hor().knobrange / 2, hor_y - 300);
    EXPECT_NEAR(box().horizontalscroll, 0.5, 1e-9) << "wherever it goes across the bar";
    say(".mouse drag " + std::to_string(x + hor().knobrange / 2) + " 590 shift");
    EXPECT_NEAR(box().horizontalscroll, 0.005, 1e-9);
    EXPECT_EQ(mouse("drag", x + 5000, hor_y), Lines({"out3 scrollhor 1."}));
    EXPECT_EQ(mouse("drag", -5000, hor_y), Lines({"out3 scrollhor 0."}));
    say(".paint");
    EXPECT_EQ(say(".show layers"), Lines({hor_layers}));
    mouse("up", x, hor_y);
    EXPECT_EQ(mouse("drag", x + 100, hor_y), Lines()) << "released";
}

TEST_F(ScrollbarsTest, TheZoomKnobGoesByItsCube) {
    const double start = 165 + hor().zoomknobminimum;
    const Lines said = mouse("down", start + 30, hor_y);
    EXPECT_NEAR(box().horizontalzoom, std::pow((30 - 4) / 72., 3), 1e-9) << "its middle jumps to the press";
    ASSERT_EQ(said.size(), 1u);
    EXPECT_TRUE(said[0].starts_with("out3 zoomhor ")) << said[0];
    EXPECT_NEAR(hor().zoomknobposition, hor().zoomknobminimum + 26, 1e-9);
    mouse("drag", start + 40, hor_y);
    EXPECT_NEAR(box().horizontalzoom, std::pow(36 / 72., 3), 1e-9);
    EXPECT_EQ(mouse("drag", 5000, hor_y), Lines({"out3 zoomhor 1."}));
    EXPECT_EQ(mouse("drag", -5000, hor_y), Lines({"out3 zoomhor 0."}));
    EXPECT_FALSE(hor().knobexists);
    mouse("up", 0, 0);
    EXPECT_EQ(mouse("down", 900, hor_y), Lines()) << "there is nothing to scroll";
    mouse("up", 0, 0);
    const double zoom = box().verticalzoom;
    EXPECT_TRUE(mouse("down", 990, 48 + vert().zoomknobposition + 1)[0].starts_with("out3 zoomvert "));
    EXPECT_EQ(box().verticalzoom, zoom) << "a press on the knob only takes hold of it";
}

TEST_F(ScrollbarsTest, AnEditElsewhereDoesNotEndADragButAPressAndTheLossOfTheFocusDo) {
    const double x = knob_x();
    for (const char* edit : {"event start 0 <note> 60 90 </note>", "track_add", "undo", "int 1", "int 0",
                             "mouse_mode slice", "cyclerange 100 200", ".command select_all"}) {
        mouse("down", knob_x(), hor_y);
        say(edit);
        EXPECT_EQ(mouse("drag", x + 5000, hor_y), Lines({"out3 scrollhor 1."})) << edit;
        mouse("drag", -5000, hor_y);
        mouse("up", 0, 0);
    }
    for (const char* end : {".focus out", ".mouse down 500 10"}) {
        mouse("down", x, hor_y);
        say(end);
        EXPECT_EQ(mouse("drag", x + 100, hor_y), Lines()) << end;
    }
}

TEST_F(ScrollbarsTest, AnArrowIsPressedUntilTheRelease) {
    mouse("down", 985 - 8, hor_y);
    EXPECT_EQ(hor().grab, TQScrollbar::Grab::Arrow1);
    say("zoom_hor 0.5\n.paint\n.show layers");
    EXPECT_EQ(hor().grab, TQScrollbar::Grab::Arrow1) << "the bar was laid out anew";
    mouse("up", 985 - 8, hor_y);
    EXPECT_EQ(hor().grab, TQScrollbar::Grab::Nothing);
    say(".paint");
    EXPECT_EQ(say(".show layers"), Lines({"layers horscrollbar_layer vertscrollbar_layer"}));
}

TEST_F(ScrollbarsTest, APressEndsAnAnimatedZoom) {
    say("zoom_animation 1\nzoom_in\n.wait 100");
    mouse("down", 165 + hor().zoomknobminimum + 72, hor_y);
    say(".wait 1000");
    EXPECT_GT(box().horizontalzoom, 0.8);
}

TEST_F(ScrollbarsTest, WhatIsTakenBackShowsWhatWasShown) {
    mouse("down", knob_x(), hor_y);
    mouse("drag", 5000, hor_y);
    roll_back_gesture(box());
    EXPECT_EQ(box().horizontalscroll, 0);
    EXPECT_NEAR(box().horizontalzoom, 0.25, 1e-9);
}

}  // namespace
}  // namespace tq::test
