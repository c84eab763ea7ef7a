#include <cmath>
#include <random>

#include "model/tracks.h"
#include "view/keydisplay.h"
#include "view/maindisplay.h"
#include "view/sector.h"
#include "view/zoom.h"
#include "view_fixture.h"

namespace tq {
namespace {

struct MappingTest : ViewTest {
    MainDisplay& md = box.maindisplay;
    MappingTest() { resize(1000, 600); }
    void total_page(double pixels) { md.horizontalzoom = pixels * md.horizontalzoomcoefficient; }
};

TEST_F(MappingTest, TimeAndPixelsAreInverse) {
    send("zoom_hor 0.3", "scroll_hor 0.4");
    EXPECT_GT(md.horizontalscroll, 0);
    for (double ms : {0., 1., 2500.5, 10000.}) {
        double page = TQ_Prseq_Maindisplay_CalculateMouseFromPosition(box, md, ms);
        EXPECT_NEAR(TQ_Prseq_Maindisplay_CalculatePositionFromMouse(box, md, page), ms, 1e-9);
    }
    EXPECT_NEAR(TQ_Prseq_Maindisplay_GetTotalPageSizeHorizontal(md), md.horizontalzoom * 1000, 1e-9);
}

/// At any size, zoom, scroll and length: time and pixels, pitch and pixels, what is seen and the unity
/// values.
TEST_F(MappingTest, GoesThereAndBackAgain) {
    std::mt19937 random(3);
    const auto any = [&](double low, double high) {
        return low + (high - low) * static_cast<double>(random() % 100001) / 1e5;
    };
    for (int i = 0; i < 400; ++i) {
        if (i % 40 == 0) send("maxtime " + std::to_string(1e4 * std::pow(4, i / 40)));
        jbox_set_size(box, {any(300, 4000), any(240, 2200)});
        TQ_Prseq_Zoom_ZoomToGivenZoomAndScroll(
            box, {std::pow(any(0, 1), 4), std::pow(any(0, 1), 3), any(0, 1), any(0, 1)});
        SCOPED_TRACE(i);
        const double x = any(0, md.rect.width), y = any(0, md.rect.height);
        const double ms = TQ_Prseq_Maindisplay_CalculatePositionFromMouse(box, md, x + md.horizontalscroll);
        EXPECT_NEAR(TQ_Prseq_Maindisplay_CalculateMouseFromPosition(box, md, ms) - md.horizontalscroll, x,
                    1e-5);
        const double pitch = TQ_Prseq_Maindisplay_CalculatePitchFromMouse(md, y);
        const Point back = TQ_Prseq_Maindisplay_CalculateDisplayPositionFromStartAndPitch(box, md, ms, pitch);
        EXPECT_NEAR(back.x, x, 1e-5);
        EXPECT_NEAR(back.y - md.verticalscroll, y, 1e-6);
        const ZoomScroll now = TQ_Prseq_Zoom_GetZoomScrollObjectNow(box);
        const Sector seen = TQ_Prseq_Zoom_CalculateSectorForGivenZoomAndScroll(box, now);
        EXPECT_NEAR(seen.start, ms - x / md.rect.width * seen.duration, seen.duration * 1e-6);
        EXPECT_NEAR(seen.toppitch + 1 - y / md.rowheight, pitch, 1e-6);
        const ZoomScroll again = TQ_Prseq_Zoom_CalculateZoomAndScrollValuesForGivenSector(box, seen);
        EXPECT_NEAR(again.horizontalzoom, now.horizontalzoom, 1e-7);
        EXPECT_NEAR(again.verticalzoom, now.verticalzoom, 1e-7);
        EXPECT_NEAR(again.horizontalscroll, now.horizontalscroll, 1e-6);
        EXPECT_NEAR(again.verticalscroll, now.verticalscroll, 1e-6);
    }
}

TEST_F(MappingTest, PitchesStandInRowsFromTheTop) {
    md.verticalscroll = 0;
    md.rowheight = 10;
    EXPECT_EQ(TQ_Prseq_Maindisplay_CalculatePitchFromMouse(md, 0), 132);
    EXPECT_EQ(TQ_Prseq_Maindisplay_CalculatePitchFromMouse(md, 9.5), 131.05);
    md.verticalscroll = 700;
    EXPECT_EQ(TQ_Prseq_Maindisplay_CalculatePitchFromMouse(md, 15), 60.5);
}

TEST_F(MappingTest, EventRectanglesAreAtLeastThreePixelsWide) {
    md.rowheight = 10;
    md.verticalscroll = 333;
    md.horizontalscroll = 100;
    total_page(1000);
    auto rect = [&](double pitch, double start, double duration) {
        return TQ_Prseq_Maindisplay_CalculateDisplayRectFromPitchAndStartAndDuration(box, md, pitch, start,
                                                                                     duration);
    };
    EXPECT_EQ(rect(131, 1000, 500), (Rect{0, 0, 50, 10}));
    EXPECT_EQ(rect(60, 0, 0), (Rect{-100, 710, 3, 10}));
    EXPECT_EQ(rect(60.5, 2000, 29), (Rect{100, 705, 3, 10}));
    EXPECT_EQ(TQ_Prseq_Maindisplay_CalculateDisplayPositionFromStartAndPitch(box, md, 2000, 60),
              (Point{100, 720}));
}

TEST_F(MappingTest, LabelIncrementIsTheLeastOfTheSeriesThatMakesAHundredPixels) {
    struct {
        double page, length, increment;
    } const rows[] = {
        {1000, 10000, 1000}, {1000, 10001, 1000}, {999, 10000, 2000},          {99, 10000, 100},
        {0, 10000, 100},     {32000, 10000, 100}, {100, 10000, 10000},         {10000, 10000, 100},
        {4999, 10000, 500},  {5000, 10000, 200},  {100, 100000001, 100000001}, {100, 60000000, 100000000},
    };
    for (const auto& row : rows) {
        box.timelinelength = row.length;
        TQ_Prseq_Maindisplay_CalculateZoomCoefficientHorizontal(box, md);
        total_page(row.page + 1e-7);
        EXPECT_EQ(TQ_Prseq_Maindisplay_CalculateMsLabelIncrement(box, md), row.increment)
            << row.page << " " << row.length;
        EXPECT_EQ(md.mslabelincrement, row.increment);
    }
}

TEST_F(MappingTest, BigBarsFollowFromTheIncrement) {
    total_page(3000);
    EXPECT_NEAR(TQ_Prseq_Maindisplay_CalculateBigBarSize(box, md, 500), 150, 1e-9);
    EXPECT_EQ(md.numberofbigbars, 20);
    EXPECT_EQ(TQ_Prseq_Maindisplay_CalculateSnappedPositionFromMouse(md, 50, 1024), 1000);
    EXPECT_EQ(TQ_Prseq_Maindisplay_CalculateSnappedPositionFromMouse(md, 50, 1025), 1050);
    EXPECT_NEAR(TQ_Prseq_Maindisplay_CalculateZoomValueHorizontalFromMsLabelIncrement(box, md, 500), 2,
                1e-12);
}

TEST_F(MappingTest, KeysAndRowsShareThePage) {
    KeyDisplay& kd = box.keydisplay;
    double white = TQ_Prseq_Keydisplay_CalculateWhiteKeyBroadnessFromZoomValue(kd, 1);
    EXPECT_NEAR(white, 13.714285714, 1e-9);
    EXPECT_NEAR(TQ_Prseq_Keydisplay_CalculateActualZoomValueFromWhiteKeyBroadness(kd, white), 1, 1e-12);
    EXPECT_EQ(TQ_Prseq_Keydisplay_CalculateBlackKeyBroadnessFromZoomValue(kd, 2), 16);
    EXPECT_EQ(TQ_Prseq_Keydisplay_GetTotalPageSize(kd), 2112);
    // the least zoom fits all rows into a height, the greatest one row
    EXPECT_NEAR(TQ_Prseq_Keydisplay_CalculateMinimumZoomValue(kd, 528) * 1056, 528, 1e-9);
    EXPECT_NEAR(TQ_Prseq_Keydisplay_CalculateMaximumZoomValue(kd, 528) * 8, 528, 1e-9);
    kd.rect.height = 512;
    EXPECT_NEAR(TQ_Prseq_Keydisplay_ConvertToActualScrollValueFromUnityScrollValue(kd, 0.25), 400, 1e-9);
    EXPECT_NEAR(TQ_Prseq_Keydisplay_ConvertToUnityScrollValueFromActualScrollValue(kd), 0.25, 1e-12);
}

}  // namespace
}  // namespace tq
