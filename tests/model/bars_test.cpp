// Bars and beats, steps, and the other arithmetic with corners.
#include "model/bars.h"

#include <gtest/gtest.h>

#include <cmath>

#include "app/script_fixture.h"
#include "instance/colors.h"
#include "instance/defaults.h"
#include "instance/geometry.h"
#include "instance/utilities.h"
#include "model/parameters.h"

namespace tq::test {
namespace {

struct Bars : ScriptTest {
    std::string bars(double length = 10000) {
        TQ_Prseq_Meter_CalculateMeasures(box().meter, length);
        std::ostringstream text;
        for (long i = 0; i < measure_count(box().meter); ++i) {
            Measure bar = measure_at(box().meter, i);
            EXPECT_EQ(bar.index, i);
            text << bar.start << "-" << bar.end << " ";
        }
        return text.str();
    }
};

TEST_F(Bars, coverTheTimeline) {
    EXPECT_EQ(bars(), "0-4000 4000-8000 8000-12000 ");
    EXPECT_EQ(bars(8000), "0-4000 4000-8000 8000-12000 ") << "a bar that starts at the end is made";
    EXPECT_EQ(bars(7999.9), "0-4000 4000-8000 ");
    prseq_bar(box(), 2, 3, 4);
    EXPECT_EQ(bars(), "0-4000 4000-7000 7000-10000 10000-13000 ");
    prseq_bar(box(), 1, 7, 8);
    EXPECT_EQ(bars(), "0-3500 3500-6500 6500-9500 9500-12500 ") << "in place of the first signature";
    prseq_bar(box(), 1000, 4, 4);
    EXPECT_EQ(bars(), "0-3500 3500-6500 6500-9500 9500-12500 ") << "beyond the end nothing shows";
}

TEST_F(Bars, refuseWhatIsNoSignature) {
    for (auto [bar, beats, value] :
         {std::array{2L, 4L, 3L}, {2, 0, 4}, {2, -1, 4}, {0, 4, 4}, {2, 4, 256}, {2, 4, 0}, {2, 4, -4}}) {
        out.str("");
        prseq_bar(box(), bar, beats, value);
        EXPECT_EQ(out.str(), "error tq.sorvo: bad value\n") << beats << "/" << value << " at " << bar;
    }
    EXPECT_EQ(bars(), "0-4000 4000-8000 8000-12000 ");
}

TEST_F(Bars, drawPositionsToTheirBeats) {
    prseq_bar(box(), 3, 7, 8);
    struct Row {
        double position, snapped;
    };
    for (const Row& row : {Row{0, 0},
                           {1400, 1000},
                           {1600, 2000},
                           {3900, 4000},
                           {4000, 4000},
                           {8200, 8000},
                           {8300, 8500},
                           {11499, 11500},
                           {11500, -1},
                           {-1, -1}})
        EXPECT_EQ(TQ_Prseq_Meter_CalculateSnappedNotePosition(box().meter, row.position), row.snapped)
            << row.position;
    EXPECT_FALSE(TQ_Prseq_Meter_GetMeasureFromPosition(box().meter, 99999));
    EXPECT_EQ(TQ_Prseq_Meter_GetMeasureFromPosition(box().meter, 7999.9)->index, 1);
}

TEST_F(Bars, haveParametersBesideThemThatSnapToSteps) {
    say("track_add A\ntrack_parameter_add Five 0 1 0 5\ntrack_parameter_add Two -1 1 0 "
        "2\ntrack_parameter_add Free 10 20 10 0\nevent start 0");
    Track& track = *box().tracks[0];
    Event& event = *track.events.first();
    struct Row {
        const char* name;
        double unity, value;
    };
    for (const Row& row : {Row{"Five", 0.6, 0.5},
                           {"Five", 0.63, 0.75},
                           {"Two", 0.4, -1},
                           {"Two", 0.6, 1},
                           {"Two", 1, 1},
                           {"Free", 0.33, 13.3},
                           {"Velocity", 1, 127},
                           {"Velocity", 0.5, 63.5},
                           {"Nothing", 0.5, 0}}) {
        track.displayedparameter = gensym(row.name);
        EXPECT_NEAR(TQ_Prseq_Parameters_CalculateEventParameterValue(track, event, row.unity), row.value,
                    1e-9)
            << row.name;
    }
    EXPECT_NEAR(TQ_Prseq_Parameters_GetEventParameterValueFromName(event, gensym("Free")), 13.3, 1e-9);
    EXPECT_EQ(event.velocity, 63.5);
}

TEST_F(Bars, areNeighboursOfOtherArithmetic) {
    EXPECT_EQ(scale(5, 0, 10, 100, 200), 150);
    EXPECT_EQ(scale(15, 0, 10, 100, 200), 250) << "not clipped";
    EXPECT_TRUE(TQRectContainsPoint({10, 20, 30, 40}, 40, 60)) << "on the edges";
    EXPECT_FALSE(TQRectContainsPoint({10, 20, 30, 40}, 40.1, 60));
    EXPECT_TRUE(TQRectsIntersect({0, 0, 10, 10}, {10, 10, 5, 5})) << "corners that touch";
    EXPECT_FALSE(TQ_Utilities_PointOnLine(1, 1, 1, 1, 1, 1)) << "a line without length";
    EXPECT_EQ(TQ_Utilities_RoundValueWithSteps(0.26, 1, 5), 0.25);
    EXPECT_EQ(TQ_Utilities_RoundValueWithSteps(0.26, 1, 1), 0.26);
    EXPECT_EQ(TQ_Utilities_ConvertMidiToHz(box(), 69), 440);
    EXPECT_NEAR(TQ_Utilities_ConvertMidiToHz(box(), 81), 880, 1e-9);
    EXPECT_NEAR(TQ_Utilities_ConvertHzToMidi(box(), TQ_Utilities_ConvertMidiToHz(box(), 33.3)), 33.3, 1e-9);
    EXPECT_EQ(whole_ms(-1.9), -1);
    EXPECT_EQ(whole_ms(1e300), 9000000000000000000);
}

TEST(Colors, goThereAndBack) {
    Rgb grey = hsl2rgb(1, 0.7, 0.3), red = hsl2rgb(0, 1, 0.5);
    EXPECT_EQ(std::tuple(grey.red, grey.green, grey.blue), std::tuple(0.3, 0.3, 0.3))
        << "the circle is open at 1";
    EXPECT_EQ(std::tuple(red.red, red.green, red.blue), std::tuple(1, 0, 0));
    for (double h = 0; h < 1; h += 0.09)
        for (double s : {0.2, 0.7, 1.0})
            for (double l : {0.1, 0.5, 0.9}) {
                Rgb rgb = hsl2rgb(h, s, l);
                Hsl hsl = rgb2hsl(rgb.red, rgb.green, rgb.blue);
                EXPECT_NEAR(std::fmod(hsl.hue + 1e-9, 1), h, 1e-6) << h << " " << s << " " << l;
                EXPECT_NEAR(hsl.saturation, s, 1e-6) << h << " " << s << " " << l;
                EXPECT_NEAR(hsl.luminosity, l, 1e-6) << h << " " << s << " " << l;
            }
}

TEST(Colors, ofANewTrackComeFromItsHue) {
    auto palette = TQ_Prseq_Defaults_TrackColors(0.5, 0.8, 0.7);
    Rgb first = hsl2rgb(0.5, 0.8, 0.7);
    EXPECT_EQ(std::tuple(palette[0].red, palette[0].green, palette[0].alpha),
              std::tuple(first.red, first.green, 0.75));
    EXPECT_EQ(std::tuple(palette[2].red, palette[2].green, palette[2].blue),
              std::tuple(palette[3].red, palette[3].green, palette[3].blue));
    EXPECT_EQ(std::pair(palette[2].alpha, palette[3].alpha), std::pair(1.0, 0.25));
}

}  // namespace
}  // namespace tq::test
