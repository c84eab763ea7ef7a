// The loop: where it jumps, what it sends, and what it does not.
#include <gtest/gtest.h>

#include "app/script_fixture.h"

namespace tq::test {
namespace {

struct Looping : TimedScriptTest {
    Looping() {
        say("track_add A\ntrack_add B");
        for (int start : {0, 1000, 2000, 3000})
            say("event track 0 start " + std::to_string(start) + " duration 10 <note> " +
                std::to_string(start / 100) + " 1 </note>");
    }
    testing::AssertionResult plays(const std::string& text, std::string_view expected) {
        Lines kept;
        for (const std::string& line : say(text)) {
            size_t note = line.find("<note> ");
            if (line.find("out3 ticks") != line.npos)
                kept.push_back(line);
            else if (note != line.npos)
                kept.push_back(line.substr(0, line.find(' ')) + " " +
                               line.substr(note + 7, line.find(' ', note + 7) - note - 7));
        }
        return same_lines(kept, lines_of(expected));
    }
};

TEST_F(Looping, jumpsAtItsEndAndSendsNothingThatStartsThere) {
    EXPECT_TRUE(plays("cyclerange 1000 3000\ncycle 1\n1\n.wait 5500\n0", R"(
        137.500 0.
        1137.500 10.
        2137.500 20.
        3137.500 out3 ticks 960.
        3137.500 10.
        4137.500 20.
        5137.500 out3 ticks 960.
        5137.500 10.)"));
}

TEST_F(Looping, staysExactForManyPasses) {
    constexpr int passes = 2000;
    // 1875 ms are 1800 ticks: the report has no rounding to pass on.
    say("cyclerange 1875 2007.75\ncycle 1\n.transport 1875");
    Lines said = say("1\n.wait " + std::to_string(132.75 * passes - 5), "out0");
    ASSERT_EQ(said.size(), size_t{passes});
    for (int pass = 0; pass < passes; ++pass) {
        char time[32];
        std::snprintf(time, sizeof time, "%.3f ", 137.5 + 125 + 132.75 * pass + 1e-7);
        ASSERT_TRUE(said[static_cast<size_t>(pass)].starts_with(time))
            << said[static_cast<size_t>(pass)] << " is not at " << time;
    }
}

TEST_F(Looping, withoutFeedbackIsReportedOnce) {
    // The transport runs on; what the loop schedules again is late and leaves at once.
    EXPECT_TRUE(plays(".feedback off\ncyclerange 1000 3000\ncycle 1\n1\n.wait 6000\n0", R"(
        137.500 0.
        1137.500 10.
        2137.500 20.
        3137.500 out3 ticks 960.
        3137.500 10.
        3137.500 20.
        3137.500 30.)"));
}

TEST_F(Looping, doesNothingWhenItWasNeverArmed) {
    EXPECT_TRUE(plays("1\n.wait 500\ncycle 1\n.wait 1000\n0", "137.500 0.\n1137.500 10."))
        << "switched on while playing";
    EXPECT_TRUE(plays(".transport 900\n1\ncycle 0\n.wait 500\n0", "1737.500 10."))
        << "switched off while playing";
}

TEST_F(Looping, isHeldWithinTheTimeline) {
    EXPECT_TRUE(says("cyclerange -5 50000\ngetcyclerange", "137.500 out3 cyclerange 0 10000"));
    EXPECT_TRUE(says("cyclerange 3000.7 1000\ngetcyclerange", "137.500 out3 cyclerange 3000 1000"));
    EXPECT_TRUE(says("cycle 5\ngetcycle\ncycle -1\ngetcycle", "137.500 out3 cycle 1\n137.500 out3 cycle 0"));
}

TEST_F(Looping, letsTimeGoOnWithoutLength) {
    for (const char* range : {"1000 1000", "1000 1000.5", "0 0"})
        EXPECT_TRUE(plays(
            std::string("cyclerange ") + range + "\ncycle 1\n.transport 990\n1\n.wait 20\n0\n.wait 80",
            std::to_string(static_cast<int>(script.session().host().scheduler.now()) + 10) + ".500 10."))
            << range;
    EXPECT_EQ(say("cyclerange 3000 1000\n.transport 990\n1\n.wait 5\n.wait 2000\n0", "ticks").size(), 1u)
        << "an inverted range jumps ahead once";
}

}  // namespace
}  // namespace tq::test
