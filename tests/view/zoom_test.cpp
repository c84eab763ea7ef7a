#include "view/zoom.h"

#include "interaction/mouse.h"
#include "model/selection.h"
#include "model/tracks.h"
#include "view/maindisplay.h"
#include "view/sector.h"
#include "view_fixture.h"

namespace tq {
namespace {

struct ZoomTest : ViewTest {
    ZoomTest() { resize(1000, 600); }
    Sector sector() {
        paint();
        return TQ_Prseq_Zoom_CalculateSectorForGivenZoomAndScroll(box,
                                                                  TQ_Prseq_Zoom_GetZoomScrollObjectNow(box));
    }
    void expect_sector(const Sector& wanted) {
        Sector s = sector();
        EXPECT_NEAR(s.start, wanted.start, 1e-6);
        EXPECT_NEAR(s.toppitch, wanted.toppitch, 1e-9);
        EXPECT_NEAR(s.duration, wanted.duration, 1e-6);
        EXPECT_NEAR(s.span, wanted.span, 1e-9);
    }
};

TEST_F(ZoomTest, SettersHoldTheirValues) {
    send("zoom_hor 2", "zoom_vert -1", "scroll_hor 0.25", "scroll_vert 7.");
    EXPECT_EQ(box.horizontalzoom, 1);
    EXPECT_EQ(box.verticalzoom, 0);
    EXPECT_EQ(box.horizontalscroll, 0.25);
    EXPECT_EQ(box.verticalscroll, 1);
    EXPECT_TRUE(said.empty()) << "setters report nothing";
    paint();
    EXPECT_NEAR(box.maindisplay.horizontalzoom, 32, 1e-12);
    EXPECT_NEAR(box.maindisplay.horizontalscroll, 0.25 * (32000 - 780), 1e-6);
    EXPECT_NEAR(box.maindisplay.rowheight * 132, box.maindisplay.rect.height, 1e-9);
}

TEST_F(ZoomTest, ANewBoxShowsItsFirstView) {
    EXPECT_EQ(TQ_Prseq_Zoom_GetZoomScrollObjectNow(box), (ZoomScroll{0.04, 0.02, 0, 0.5}));
    ViewTest::resize(700, 500);
    EXPECT_EQ(box.horizontalzoom, 0.04) << "another size leaves the unity values alone";
}

TEST_F(ZoomTest, ASectorAndItsViewAreInverse) {
    for (const Sector& wanted :
         {Sector{1000, 72, 2500, 24}, {0, 131, 10000, 132}, {9000, 11, 1000, 12}, {5000.5, 60.25, 250, 1}}) {
        TQ_Prseq_Zoom_ZoomToGivenZoomAndScroll(
            box, TQ_Prseq_Zoom_CalculateZoomAndScrollValuesForGivenSector(box, wanted));
        expect_sector(wanted);
    }
}

TEST_F(ZoomTest, ZoomOutAllShowsEverything) {
    send("zoom_hor 0.5", "scroll_vert 1", "zoom_out_all");
    expect_sector({0, 131, 10000, 132});
    EXPECT_EQ(said.size(), 4u) << "all four values are reported";
}

TEST_F(ZoomTest, ZoomingInAndOutKeepsTheMiddle) {
    see("zoom_out_all");
    send("zoom_in");
    expect_sector({2500, 98, 5000, 66});
    send("zoom_in");
    expect_sector({3750, 81.5, 2500, 33});
    send("zoom_out");
    expect_sector({2500, 98, 5000, 66});
    send("zoom_out", "zoom_out");
    expect_sector({0, 131, 10000, 132});
}

TEST_F(ZoomTest, WhatLiesUnderAPointStaysThereWhenZooming) {
    see("zoom_hor 0.3", "scroll_hor 0.4", "zoom_vert 0.3", "scroll_vert 0.6");
    ViewTest::resize(900, 700);
    const MainDisplay& md = box.maindisplay;
    for (const ZoomCall& call : {ZoomCall{500, 300, 1.25, 1},
                                 {500, 300, 0.8, 0.8},
                                 {210, 680, 1, 1.5},
                                 {880, 60, 2, 0.7},
                                 {300.5, 400.5, 1 / 1.1, 1.1}}) {
        const double x = call.x - md.rect.x, y = call.y - md.rect.y;
        const MainDisplay before = md;
        const double ms = TQ_Prseq_Maindisplay_CalculatePositionFromMouse(box, md, x + md.horizontalscroll);
        const double pitch = TQ_Prseq_Maindisplay_CalculatePitchFromMouse(md, y);
        said.clear();
        session.call(call);
        const Point now = TQ_Prseq_Maindisplay_CalculateDisplayPositionFromStartAndPitch(box, md, ms, pitch);
        EXPECT_NEAR(now.x, x, 1e-6);
        EXPECT_NEAR(now.y - md.verticalscroll, y, 1e-6);
        EXPECT_NEAR(md.bigbarsize / md.mslabelincrement,
                    call.horizontal * before.bigbarsize / before.mslabelincrement, 1e-9);
        EXPECT_NEAR(md.rowheight, call.vertical * before.rowheight, 1e-9);
        EXPECT_TRUE(call.vertical != 1 || md.verticalscroll == before.verticalscroll);
        EXPECT_TRUE(call.horizontal != 1 || md.horizontalscroll == before.horizontalscroll);
        ASSERT_EQ(said.size(), 4u) << "all four values";
    }
}

TEST_F(ZoomTest, ZoomingAtAPointEndsAtTheLimits) {
    see("zoom_hor 0.3", "scroll_hor 0.4", "zoom_vert 0.3", "scroll_vert 0.6");
    const MainDisplay& md = box.maindisplay;
    const auto ms = [&] { return sector().start + sector().duration * (500 - md.rect.x) / md.rect.width; };
    const double under = ms();
    for (int i = 0; i < 40; ++i) session.call(ZoomCall{500, 300, 1.25, 1.25});
    EXPECT_EQ(box.horizontalzoom, 1);
    EXPECT_EQ(box.verticalzoom, 1);
    EXPECT_NEAR(ms(), under, 1e-6) << "turned on at the limit, nothing moves";
    session.call(ZoomCall{500, 300, 0.001, 0.001});
    expect_sector({0, 131, 10000, 132});
    session.call(ZoomCall{-1000, 9000, 2, 2});
    expect_sector({0, 65, 5000, 66});
    session.call(ZoomCall{9000, -1000, 2, 2});
    expect_sector({2500, 65, 2500, 33});
    said.clear();
    const Sector before = sector();
    session.call(ZoomCall{400, 300, 1, 1});
    EXPECT_EQ(sector(), before);
    EXPECT_TRUE(said.empty());
    ViewTest::resize(1, 1);
    session.call(ZoomCall{0, 0, 2, 2});
    EXPECT_TRUE(said.empty()) << "there is nothing to be seen";
}

TEST_F(ZoomTest, ZoomingAtAPointEndsAnAnimatedZoomAndWaitsForAnswers) {
    send("event start 0", "zoom_animation 1", "zoom_out_all");
    Scheduler& scheduler = session.host().scheduler;
    scheduler.run_until(scheduler.now() + 100);
    session.call(ZoomCall{500, 300, 2, 2});
    const Sector reached = sector();
    scheduler.run_until(scheduler.now() + 1000);
    EXPECT_EQ(sector(), reached);
    session.call(CommandCall{"new"});
    ASSERT_TRUE(box.modaldialog);
    session.call(ZoomCall{500, 300, 2, 2});
    EXPECT_EQ(sector(), reached);
}

TEST_F(ZoomTest, ZoomNearSelectionLeavesRoomAroundIt) {
    send("event start 4000 duration 100 <note> 60 90 </note>");
    session.host().scheduler.run_until(session.host().scheduler.now() + 100);
    see("zoom_animation 0", "zoom_out_all");
    session.call(CommandCall{"select_all_events"});
    session.call(CommandCall{"zoom_near_selection"});
    EXPECT_NEAR(sector().start, 3050, 1);
    EXPECT_NEAR(sector().duration, 2000, 1);
    EXPECT_NEAR(sector().span, 13, 0.5) << "an octave, and the note's own row";
}

TEST_F(ZoomTest, ZoomToSelectionFitsTheSelectedEvents) {
    send("zoom_to_selection");
    EXPECT_TRUE(said.empty()) << "nothing is selected";
    for (const char* event : {"event start 1000 duration 3000 <note> 60 100 </note>",
                              "event start 2000 duration 500 <note> 67 100 </note>"})
        send(event);
    TQ_Prseq_Tracks_SelectAllEvents(box, 0);
    send("zoom_to_selection");
    expect_sector({1000, 67, 3000, 8});
    send("track_add", "event start 9000 duration 0 <note> 50 100 </note>");
    TQ_Prseq_Tracks_SelectAllEvents(box, 1);
    send("zoom_to_selection");
    EXPECT_EQ(box.horizontalzoom, 1) << "an event without length is as near as can be";
    EXPECT_NEAR(box.horizontalscroll, 9000 / box.timelinelength, 1e-9) << "and in view";
}

TEST_F(ZoomTest, AnAnimatedZoomTakesHalfASecondInEqualSteps) {
    see("zoom_out_all");
    said.clear();
    send("zoom_animation 1");
    Scheduler& scheduler = session.host().scheduler;
    scheduler.run_until(scheduler.now() + 12345.625);
    double start = scheduler.now();
    send("zoom_in");
    EXPECT_EQ(said.front(), "zoomvert 0.") << "the report is of the view at the start";
    scheduler.run_until(start + 19.9);
    expect_sector({0, 131, 10000, 132});
    scheduler.run_until(start + 20);
    expect_sector({100, 131 - 33 / 25., 10000 - 200, 132 - 66 / 25.});
    scheduler.run_until(start + 499);
    EXPECT_GT(sector().duration, 5000 + 100);
    scheduler.run_until(start + 500);
    expect_sector({2500, 98, 5000, 66});
    ZoomScroll arrived = TQ_Prseq_Zoom_GetZoomScrollObjectNow(box);
    scheduler.run_until(start + 2000);
    EXPECT_EQ(TQ_Prseq_Zoom_GetZoomScrollObjectNow(box), arrived);
    EXPECT_FALSE(scheduler.next_due()) << "the clock has stopped";
}

TEST_F(ZoomTest, ANewZoomDuringAnAnimationStartsFromWhatIsSeen) {
    send("zoom_animation 1", "zoom_out_all");
    Scheduler& scheduler = session.host().scheduler;
    scheduler.run_until(scheduler.now() + 200);
    Sector halfway = sector();
    send("zoom_out_all");
    EXPECT_EQ(box.zoomanimation.start, halfway);
    scheduler.run_until(scheduler.now() + 480);
    EXPECT_LT(sector().duration, 10000);
    scheduler.run_until(scheduler.now() + 20);
    expect_sector({0, 131, 10000, 132});
}

TEST_F(ZoomTest, TheTimelineGrowsToWholeSeconds) {
    for (auto [asked, length] :
         {std::pair{12000., 14000.}, {9000., 14000.}, {14000.1, 16000.}, {16900., 19000.}}) {
        said.clear();
        prseq_resize_maxtime(box, asked);
        EXPECT_EQ(box.timelinelength, length) << asked;
        EXPECT_NE(said.back().find("maxtime"), std::string::npos);
    }
    EXPECT_EQ(box.horizontalscroll, 0);
    paint();
    EXPECT_NEAR(box.maindisplay.horizontalzoomcoefficient, 1 / 1900., 1e-15);
}

TEST_F(ZoomTest, TheWheelScrollsByDivisionsAndRows) {
    see("zoom_hor 0.5", "scroll_hor 0.5", "zoom_vert 0.5");
    const MainDisplay before = box.maindisplay;
    prseq_mousewheel(box, 500, 300, 0, 0.039062, 0);
    paint();
    EXPECT_NEAR(box.maindisplay.horizontalscroll, before.horizontalscroll - before.bigbarsize, 1e-6);
    EXPECT_EQ(said.size(), 1u);
    prseq_mousewheel(box, 500, 300, 0, 0, -2 * 0.039062);
    paint();
    EXPECT_NEAR(box.maindisplay.verticalscroll, before.verticalscroll + 2 * before.rowheight, 1e-6);
    EXPECT_EQ(box.verticalscroll, box.vertscrollbar.scrollunityvalue);
    said.clear();
    for (auto [x, y] :
         {std::pair{500., 10.}, {10., 300.}, {500., 30.}, {180., 300.}, {990., 300.}, {500., 590.}})
        prseq_mousewheel(box, x, y, 0, 1, 1);
    EXPECT_TRUE(said.empty()) << "elsewhere the wheel scrolls nothing";
}

}  // namespace
}  // namespace tq
