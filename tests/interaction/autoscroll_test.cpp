// What goes on while a button is held: the view scrolls, and what is dragged follows.
#include "interaction/autoscroll.h"

#include "interaction/hand.h"

namespace tq::test {
namespace {

TEST(Outside, IsASideOrACornerAndTellsHowFast) {
    const Rect rect{100, 50, 200, 100};
    struct {
        Point at;
        int right, down;
        double interval;
    } const rows[] = {{{100, 50}, 0, 0, 1000},   {{299, 149}, 0, 0, 1000}, {{320, 60}, 1, 0, 50},
                      {{300, 60}, 1, 0, 1000},   {{99, 60}, -1, 0, 1000},  {{90, 60}, -1, 0, 100},
                      {{200, -50}, 0, -1, 10},   {{200, 160}, 0, 1, 100},  {{90, 30}, -1, -1, 50},
                      {{340, 160}, 1, 1, 25},    {{310.9, 60}, 1, 0, 100}, {{90, 200}, -1, 1, 20},
                      {{301.5, 49}, 1, -1, 1000}};
    for (const auto& row : rows) {
        const Outside outside = TQ_Prseq_Mouse_DraggedOutsideMainDisplayRect(rect, row.at);
        EXPECT_EQ(outside.right, row.right) << row.at.x << " " << row.at.y;
        EXPECT_EQ(outside.down, row.down) << row.at.x << " " << row.at.y;
        EXPECT_EQ(outside.interval(), row.interval) << row.at.x << " " << row.at.y;
    }
    EXPECT_FALSE(TQ_Prseq_Mouse_DraggedOutsideTimeDisplayRect(rect, {200, 500}));
    EXPECT_EQ(TQ_Prseq_Mouse_DraggedOutsideTimeDisplayRect(rect, {50, 500}).right, -1);
    EXPECT_EQ(TQ_Prseq_Mouse_DraggedOutsideTimeDisplayRect(rect, {50, 500}).interval(), 20);
}

struct Autoscrolling : Hand {
    Autoscrolling() {
        add(1000, 1000, 65);
        say("maxtime 100000\nzoom_hor 0.2\nscroll_hor 0\nzoom_vert 0.02");
    }
    double scroll() { return box().maindisplay.horizontalscroll; }
    Point beside(double right, double down) {
        const Rect& rect = box().maindisplay.rect;
        return {right < 0   ? rect.x + right
                : right > 0 ? rect.x + rect.width + right
                            : rect.x + rect.width / 2,
                down < 0   ? rect.y + down
                : down > 0 ? rect.y + rect.height + down
                           : rect.y + rect.height / 2};
    }
    Point middle() { return beside(0, 0); }
};

TEST_F(Autoscrolling, ATenthOfADivisionAStepAndOneMoreForEachDrag) {
    const double step = box().maindisplay.bigbarsize / 10;
    mouse("down", middle());
    EXPECT_EQ(mouse("drag", beside(20, 0)).size(), 1u) << "the scroll is reported";
    EXPECT_NEAR(scroll(), step, 1e-6);
    mouse("drag", beside(20, 0));
    EXPECT_NEAR(scroll(), 2 * step, 1e-6);
    say(".wait 49.9");
    EXPECT_NEAR(scroll(), 2 * step, 1e-6);
    EXPECT_EQ(say(".wait 1000").size(), 20u);
    EXPECT_NEAR(scroll(), 22 * step, 1e-6);
    mouse("drag", middle());
    say(".wait 1000");
    EXPECT_NEAR(scroll(), 22 * step, 1e-6) << "inside again, it stops";
    mouse("drag", beside(-100, 0));
    release();
    const double now = scroll();
    EXPECT_NEAR(now, 21 * step, 1e-6);
    say(".wait 1000");
    EXPECT_EQ(scroll(), now) << "and with the release";
}

TEST_F(Autoscrolling, GoesUpAndDownByRowsAndTheMarqueeFollows) {
    const double before = box().maindisplay.verticalscroll, row = box().maindisplay.rowheight;
    const Point press = middle();
    mouse("down", press);
    mouse("drag", beside(0, 10));
    EXPECT_NEAR(box().maindisplay.verticalscroll, before + row, 1e-6);
    say(".wait 1000");
    EXPECT_NEAR(box().maindisplay.verticalscroll, before + 11 * row, 1e-6);
    EXPECT_NEAR(box().maindisplay.marquee.height, beside(0, 10).y - press.y + 11 * row, 1e-6)
        << "its corner stays where it was on the page";
    EXPECT_EQ(mouse("drag", beside(-10, -10)).size(), 2u) << "both ways at once";
}

TEST_F(Autoscrolling, WhatIsDraggedFollows) {
    const Point grip = at(1500, 65);
    mouse("down", grip);
    mouse("drag", {beside(100, 0).x, grip.y});
    const double start = box().events_by_id.find(1)->start;
    say(".wait 500");
    EXPECT_GT(box().events_by_id.find(1)->start, start + 1000);
    release();
    EXPECT_EQ(history(), "Add Track, Insert Event, [Move Event]");
    EXPECT_TRUE(comes_back());
}

TEST_F(Autoscrolling, TheLoopAndThePositionFollowInTheRulerAlsoWhilePlaying) {
    const Rect& ruler = box().layout[Part::TimeDisplay];
    const Point beside_ruler{ruler.x + ruler.width + 50, ruler.y - 200};
    const double step = box().maindisplay.bigbarsize / 10;
    say("cyclerange 0 3000\nint 1");
    mouse("down", {ruler.x + 50, ruler.y + 19});
    mouse("drag", beside_ruler);
    EXPECT_NEAR(scroll(), step, 1e-6);
    const double start = box().cycle.start;
    say(".wait 100");
    EXPECT_NEAR(scroll(), 6 * step, 1e-6);
    EXPECT_GT(box().cycle.start, start);
    release();
    mouse("down", {ruler.x + 500, ruler.y + 3});
    mouse("drag", beside_ruler);
    const double position = box().linecursor.position, now = scroll();
    say(".wait 100");
    EXPECT_NEAR(box().linecursor.position, position + 100, 1e-3);
    EXPECT_NEAR(scroll(), now + 5 * step, 1e-6) << "and not by pages, to where the position is";
}

TEST_F(Autoscrolling, NotWhereCurvesAreEditedAndNotWithoutADrag) {
    say("mouse_mode edit_bpf");
    mouse("down", 1500, 60);
    mouse("drag", beside(50, 0));
    say(".wait 500");
    release();
    EXPECT_EQ(scroll(), 0);
    say("mouse_mode slice");
    mouse("drag", beside(50, 0));
    EXPECT_EQ(scroll(), 0);
    mouse("down", middle());
    mouse("drag", beside(50, 0));
    EXPECT_GT(scroll(), 0) << "in all other modes";
}

struct HeldScrollbar : Autoscrolling {
    HeldScrollbar() { say("zoom_vert 0.02"); }
    Point hor(const Rect& rect, double x) {
        const Rect& part = box().layout[Part::HorScrollbar];
        return {part.x + rect.x + x, part.y + rect.height / 2};
    }
};

TEST_F(HeldScrollbar, AnArrowRepeatsUntilTheEnd) {
    const double step = box().maindisplay.bigbarsize;
    mouse("down", hor(box().horscrollbar.arrow1, 3));
    EXPECT_NEAR(scroll(), step, 1e-6);
    say(".wait 329");
    EXPECT_NEAR(scroll(), step, 1e-6);
    say(".wait 1");
    EXPECT_NEAR(scroll(), 2 * step, 1e-6);
    say(".wait 100");
    EXPECT_NEAR(scroll(), 4 * step, 1e-6);
    release();
    say(".wait 1000");
    EXPECT_NEAR(scroll(), 4 * step, 1e-6);
    mouse("down", hor(box().horscrollbar.arrow0, 3));
    EXPECT_EQ(say(".wait 5000").size(), 3u) << "then it stops";
    EXPECT_NEAR(scroll(), 0, 1e-6);
}

TEST_F(HeldScrollbar, APageRepeatsUntilTheKnobIsThere) {
    const TQScrollbar& bar = box().horscrollbar;
    const double press = bar.scrollbox.width / 2;
    mouse("down", hor(bar.scrollbox, press));
    EXPECT_NEAR(scroll(), bar.selectionpagesize, 1e-6);
    say(".wait 10000");
    EXPECT_GE(bar.knobposition + bar.knobsize, press);
    EXPECT_LE(bar.knobposition, press);
    release();
}

}  // namespace
}  // namespace tq::test
