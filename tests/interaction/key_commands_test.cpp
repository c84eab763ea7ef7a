// What keys do, as scripts press them.
#include "app/script_fixture.h"
#include "model/selection.h"

namespace tq::test {
namespace {

struct Keys : ScriptTest {
    Keys() {
        say("event start 0 <note> 60 90 </note>\nevent start 500 <note> 62 90 </note>\n"
            "event start 900 <note> 64 90 </note>\n.wait 100");
    }
    /// The starts of the events, selected ones with a "*".
    std::string events() {
        std::string text;
        if (!box().tracks.empty())
            box().tracks[0]->events.for_each([&](const Event& event) {
                text += (text.empty() ? "" : " ") + std::to_string(static_cast<long>(event.start)) +
                        (event.selected ? "*" : "");
            });
        return text;
    }
    std::string after(const std::string& lines) {
        say(lines);
        return events();
    }
};

TEST_F(Keys, selectAllAndStepThroughTheTrack) {
    EXPECT_EQ(after(".key -12"), "0 500 900") << "nothing is selected to begin with";
    EXPECT_EQ(after(".key 97\n.key -11\n.key -12"), "0* 500* 900*") << "there is nothing beyond the ends";
    TQ_Prseq_Tracks_DeselectAllEventsInTrack(box(), 0);
    TQ_Prseq_Tracks_SelectEvent(box(), 0, 1);
    EXPECT_EQ(after(".key -12"), "0 500 900*");
    EXPECT_TRUE(says(".key -11", "out1", R"(
        out1 event clear
        out1 event 0 id 2 track 0 start 500 duration 1000 <note> 62. 90. </note> <bpf> Pitch 0. 62. 1000. 62. </bpf>
        out1 event done)"));
    EXPECT_EQ(after(".key -11\n.key -11"), "0* 500 900");
    EXPECT_EQ(after("mouse_mode zoom\n.key 97"), "0* 500 900") << "in this mode the key does nothing";
}

TEST_F(Keys, cutCopyPasteAndDelete) {
    EXPECT_EQ(after(".key 97\n.key 120"), "");
    EXPECT_EQ(after(".key 118"), "0* 500* 900*");
    EXPECT_EQ(after(".key -7"), "");
    EXPECT_EQ(after(".key 122"), "0* 500* 900*");
    EXPECT_EQ(after(".key 122 shift"), "");
    EXPECT_EQ(after(".key 122 command"), "") << "other modifiers make it another key";
    EXPECT_EQ(after("undoredo 1\n.key 97\n.key 99\n.key 118"), "0 0* 500 500* 900 900*");
    EXPECT_EQ(after("mouse_mode edit_bpf\n.key -7\n.key 97"), "0 0* 500 500* 900 900*")
        << "these are for points now";
    EXPECT_TRUE(says("undoredo_dump", R"(
        out3 undoredo clear
        out3 undoredo append "Add Track"
        out3 undoredo append "Insert Events"
        out3 undoredo append "Paste Events"
        out3 undoredo done)"));
}

}  // namespace
}  // namespace tq::test
