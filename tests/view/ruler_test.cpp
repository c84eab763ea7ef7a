#include "view/ruler.h"

#include <map>

#include "model/bars.h"
#include "view/layout.h"
#include "view/maindisplay.h"
#include "view_fixture.h"

namespace tq {
namespace {

/// A main display 1000 pixels wide: 10 s at the least zoom.
struct RulerTest : ViewTest {
    RulerTest() {
        resize(1000 + 165 + 40 + 15, 600);
        send("zoom_out_all");
    }
    Ruler ruler(double ratio = 1) { return build_ruler(box, ratio); }
    static std::string texts(const Ruler& ruler, double y_from = -1) {
        std::string all;
        for (const RulerText& text : ruler.texts)
            if (text.at.y > y_from) all += (all.empty() ? "" : " ") + text.text;
        return all;
    }
    static double width(const std::string& text) { return jtextlayout_measure(text, ruler_font()).width; }
    void show(TimeDisplayType type) { set_time_display_type(box, type); }
    /// No two texts of a line touch, and no two ticks are on one pixel.
    void expect_readable(const std::string& what) {
        for (double ratio : {1., 1.25, 1.5, 2.}) {
            const Ruler now = ruler(ratio);
            for (size_t i = 1; i < now.ticks.size(); ++i)
                ASSERT_GE(std::abs(now.ticks[i].x - now.ticks[i - 1].x), 1.9) << what << " at " << ratio;
            std::map<double, double> ends;  // by line
            for (const RulerText& text : now.texts) {
                EXPECT_TRUE(!ends.contains(text.at.y) || text.at.x > ends[text.at.y] + 1)
                    << what << text.text;
                ends[text.at.y] = text.at.x + width(text.text);
            }
        }
    }
};

TEST_F(RulerTest, TimesStandOverTheirTicks) {
    const Ruler now = ruler();
    EXPECT_EQ(texts(now), "0 1000 2000 3000 4000 5000 6000 7000 8000 9000 10000");
    EXPECT_EQ(now.texts[0].at, (Point{2, 0}));
    EXPECT_NEAR(now.texts[3].at.x, 300 - width("3000") / 2, 1e-9);
    ASSERT_EQ(now.ticks.size(), 100u);
    EXPECT_EQ(now.ticks[20], (RulerTick{200, 9}));
    EXPECT_EQ(now.ticks[25], (RulerTick{250, 7}));
    EXPECT_EQ(now.ticks[26], (RulerTick{260, 6}));
}

TEST_F(RulerTest, ScrolledItBeginsInTheMiddle) {
    send("zoom_hor 0.25", "scroll_hor 0.5");
    const MainDisplay& md = box.maindisplay;
    const Ruler now = ruler();
    const double first = std::floor(md.horizontalscroll / md.bigbarsize) * md.mslabelincrement;
    EXPECT_NEAR(std::stod(now.texts.front().text), first, md.mslabelincrement);
    EXPECT_NEAR(now.texts[1].at.x + width(now.texts[1].text) / 2,
                TQ_Prseq_Maindisplay_CalculateMouseFromPosition(box, md, std::stod(now.texts[1].text)) -
                    md.horizontalscroll,
                1e-6);
    EXPECT_LT(now.ticks.back().x, md.rect.width);
    EXPECT_GE(now.ticks.front().x, -1);
    expect_readable("scrolled");
}

TEST_F(RulerTest, MinutesAndSeconds) {
    show(TimeDisplayType::MinutesSeconds);
    send("maxtime 3700000", "zoom_out_all");
    const std::string all = " " + texts(ruler()) + " ";
    EXPECT_TRUE(all.starts_with(" 00:00.0 08:20.0 ")) << all;
    send("zoom_hor 0.02");
    TQ_Prseq_Maindisplay_CalculateMsLabelIncrement(box, box.maindisplay);
    box.maindisplay.mslabelincrement = 1050;
    EXPECT_TRUE(texts(ruler()).starts_with("00:00.0 00:01.50 00:02.100 ")) << texts(ruler());
    box.maindisplay.mslabelincrement = 3600000;
    send("maxtime 3700000");
    EXPECT_TRUE(texts(ruler()).starts_with("00:00.0")) << texts(ruler());
}

TEST_F(RulerTest, BarsAndTheirSignatures) {
    show(TimeDisplayType::BarsBeats);
    send("maxtime 38000", "zoom_out_all");
    prseq_bar(box, 3, 3, 4);
    const Ruler now = ruler();
    const double numbers = 48 - jtextlayout_measure("1", ruler_font()).height - 9;
    EXPECT_EQ(texts(now, 0), "1 2 3 4 5 6 7 8 9 10 11 12 13");
    std::string signatures;
    for (const RulerText& text : now.texts)
        if (text.at.y == 0) signatures += text.text + " ";
    EXPECT_EQ(signatures, "4/4 3/4 ");
    EXPECT_EQ(now.texts.front().at.x, 2);
    const double pixels = 1000 / box.timelinelength;
    for (const RulerText& text : now.texts)
        EXPECT_TRUE(text.text != "4" || text.at == (Point{11000 * pixels - width("4") / 2, numbers}));
    EXPECT_EQ(now.ticks[0], (RulerTick{0, 9}));
    EXPECT_EQ(now.ticks[1], (RulerTick{std::floor(1000 * pixels + 0.5), 6}));
    EXPECT_EQ(now.ticks[4], (RulerTick{std::floor(4000 * pixels + 0.5), 9}));
    EXPECT_EQ(now.ticks[11].length, 9) << "two bars of four beats, one of three";
}

/// Ten days, a bar of a million beats, signatures that change at every bar: always some, never too many.
TEST_F(RulerTest, AtAnyZoomOfAnyTimelineItIsReadable) {
    for (TimeDisplayType type :
         {TimeDisplayType::Milliseconds, TimeDisplayType::MinutesSeconds, TimeDisplayType::BarsBeats})
        for (const char* length : {"maxtime 60000", "maxtime 864000000"}) {
            show(type);
            send(length);
            TQ_Prseq_Meter_CalculateMeasures(box.meter, box.timelinelength);
            prseq_bar(box, 5, 7, 8);
            prseq_bar(box, 9, 1000000, 4);
            for (long bar = 20; bar < 60; ++bar) prseq_bar(box, bar, 3 + bar % 2, 8);
            for (double zoom : {0., 1e-7, 1e-5, 1e-4, 0.001, 0.01, 0.03, 0.1, 0.4, 1.})
                for (double scroll : {0., 0.00001, 0.003, 0.5, 1.}) {
                    send("zoom_hor " + std::to_string(zoom), "scroll_hor " + std::to_string(scroll));
                    expect_readable(std::string(length) + " at " + std::to_string(zoom) + ", " +
                                    std::to_string(scroll));
                }
            send("zoom_hor 0.");
            EXPECT_GE(ruler().texts.size(), 2u);
        }
}

TEST_F(RulerTest, AtTheSmallestZoomsBarsAreCountedBySteps) {
    show(TimeDisplayType::BarsBeats);
    send("maxtime 998000");
    TQ_Prseq_Meter_CalculateMeasures(box.meter, box.timelinelength);
    send("zoom_out_all");
    const std::string all = texts(ruler(), 0);
    EXPECT_TRUE(all.starts_with("1 11 21 31 ")) << all;
    EXPECT_EQ(ruler().ticks.size(), 250u) << "a tick a bar, none a beat";
}

TEST_F(RulerTest, ABoxWithoutRoomHasNone) {
    box.minimum_size = {};
    send("maxtime 864000000");
    for (double w : {1., 100., 219., 220., 221., 230., 260., 300.}) {
        resize(w, 240);
        EXPECT_LE(ruler().ticks.size(), 200u) << w;
        EXPECT_LE(ruler().texts.size(), 5u) << w;
    }
}

struct RulerPaintTest : RulerTest {
    unsigned at(double x, double y) { return pixel(box.maindisplay.rect.x + x, 24 + y); }
};

TEST_F(RulerPaintTest, ALoopThatIsOffIsPale) {
    see("cycle 1", "cyclerange 2000 5000");
    EXPECT_EQ(at(305, 18), 0x1aff33u) << "the loop's colour";
    EXPECT_NE(at(505, 18), 0x1aff33u);
    const unsigned beside = at(505, 18);
    see("cycle 0");
    const unsigned pale = at(305, 18);
    EXPECT_NE(pale, beside);
    EXPECT_GT((pale & 0xff), 0x80u);
    see("cyclerange 5000 2000");
    EXPECT_EQ(at(305, 18), beside) << "nothing lies between the ends of a loop that jumps on";
}

TEST_F(RulerPaintTest, ATickIsDarkAndLight) {
    see("cyclerange 0 0");
    EXPECT_EQ(at(200, 17), 0x969696u);
    EXPECT_EQ(at(201, 17), 0xfafafau);
    EXPECT_NE(at(210, 17), 0x969696u);
    EXPECT_EQ(at(210, 19), 0x969696u);
    EXPECT_EQ(at(205, 23), 0x636363u) << "the line below";
}

}  // namespace
}  // namespace tq
