// When the metronome clicks, and where bars and beats are.
#include "app/patch/metronome.h"

#include "app/patch/bar_beats.h"
#include "app/script_fixture.h"
#include "model/bars.h"

namespace tq::test {
namespace {

/// "TIME PITCH" of each note.
struct Clicks : Player {
    Lines heard;
    void note(const PlayedNote& note) override {
        heard.push_back(std::to_string(std::lround(note.ms * 1000)) + (note.pitch == 76 ? " high" : " low"));
    }
    void stop(const std::string&, double) override {}
    void stop_track(long, double) override {}
    void stop_all(double) override {}
};

struct MetronomeTest : ScriptTest {
    Clicks clicks;
    Metronome metronome{script.session(), clicks};

    /// What is heard while the lines are run; the window looks after each of them.
    testing::AssertionResult hears(const std::string& lines, std::string_view expected) {
        clicks.heard.clear();
        for (const std::string& line : lines_of(lines)) {
            say(line);
            metronome.follow();
        }
        return same_lines(clicks.heard, lines_of(expected));
    }
};

TEST_F(MetronomeTest, ClicksOnTheBeatsOfTheDocumentWhereverPlayingBegins) {
    EXPECT_TRUE(hears("int 1\n.wait 1500\nint 0", "")) << "off to begin with";
    say("position 2500\nmaxtime 60000");
    prseq_bar(box(), 2, 3, 8);
    metronome.turn(true);
    EXPECT_TRUE(hears(".wait 1000", "")) << "nothing plays";
    EXPECT_TRUE(hears("int 1\n.wait 3200\nint 0\n.wait 2000",
                      "3000000 low\n4000000 high\n4500000 low\n5000000 low\n5500000 high"));
    metronome.turn(false);
    EXPECT_TRUE(hears("position 4000\nint 1\n.wait 3000", ""));
}

TEST_F(MetronomeTest, FollowsJumpsLoopsAndTheTempo) {
    metronome.turn(true);
    EXPECT_TRUE(hears("cyclerange 1000 2000\ncycle 1\nint 1\n.wait 3500",
                      "0 high\n1000000 low\n2000000 low\n3000000 low"))
        << "once where the loop's end is a beat, and its start is another";
    EXPECT_TRUE(
        hears("cycle 0\nposition 3250\n.wait 1000\nposition 8000\n.wait 500", "4250000 high\n4500000 high"));
    EXPECT_TRUE(hears("position 8500\n.tempo 240\n.wait 1000", "5750000 low"))
        << "the transport's ticks stay, and are half as many ms";
}

TEST(BarBeats, AreThereAndBackAndGoOnBehindTheLastBar) {
    const Session session;
    Meter meter = session.box().meter;
    meter.firstbarnumber = 5;
    TQ_Prseq_Meter_AddBarRegion(meter, 1, 7, 8);
    TQ_Prseq_Meter_CalculateMeasures(meter, 10000);
    EXPECT_FALSE(bar_beat_at(meter, -1));
    EXPECT_FALSE(ms_of(meter, {4, 1}));
    EXPECT_FALSE(ms_of(meter, {5, 0.5}));
    for (const auto& [ms, bar, beat] : {std::tuple(0., 5, 1.),
                                        {3999., 5, 4.999},
                                        {4000., 6, 1.},
                                        {7250., 6, 7.5},
                                        {7500., 7, 1.},
                                        {25250., 12, 1.5}}) {
        const std::optional<BarBeat> place = bar_beat_at(meter, ms);
        ASSERT_TRUE(place);
        EXPECT_EQ(place->bar, bar) << ms;
        EXPECT_NEAR(place->beat, beat, 1e-9) << ms;
        EXPECT_NEAR(ms_of(meter, *place).value(), ms, 1e-9);
    }
    EXPECT_EQ(beat_from(meter, 3000.01)->ms, 4000) << "the next bar's first beat";
    EXPECT_TRUE(beat_from(meter, 3000.01)->begins_bar);
    EXPECT_EQ(beat_from(meter, 4001)->ms, 4500);
    EXPECT_FALSE(beat_from(meter, 4001)->begins_bar);
}

}  // namespace
}  // namespace tq::test
