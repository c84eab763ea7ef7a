// What keys do, as scripts press them.
#include "app/script_fixture.h"
#include "interaction/commands.h"
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

/// What the mouse does by dragging, in steps: the window's shortcuts name these commands.
struct Steps : Keys {
    Steps() { say(".size 1220 600\nzoom_hor 0\nsnaptime 0"); }
    std::string after(const std::string& name) { return Keys::after(".command " + name); }
    double grid() { return box().maindisplay.mslabelincrement / 10; }
    std::string durations() {
        std::string text;
        box().tracks[0]->events.for_each(
            [&](const Event& e) { text += std::to_string(static_cast<long>(e.duration)) + " "; });
        return text;
    }
    std::string pitches() {
        std::string text;
        box().tracks[0]->events.for_each(
            [&](const Event& e) { text += std::to_string(static_cast<long>(e.pitch)) + " "; });
        return text;
    }
};

TEST_F(Steps, moveLengthenAndTransposeTheSelectionAsAWhole) {
    ASSERT_EQ(grid(), 100);
    EXPECT_EQ(after("move_later"), "0 500 900") << "nothing is selected";
    TQ_Prseq_Tracks_SelectEvent(box(), 0, 1);
    TQ_Prseq_Tracks_SelectEvent(box(), 0, 2);
    EXPECT_EQ(after("move_later"), "0 600* 1000*");
    for (int i = 0; i < 5; ++i) after("move_earlier");
    EXPECT_EQ(after("move_earlier"), "0 0* 400*") << "as far as it goes, and no event farther than another";
    after("lengthen");
    EXPECT_EQ(durations(), "1000 1100 1100 ");
    for (int i = 0; i < 12; ++i) after("shorten");
    EXPECT_EQ(durations(), "1000 25 25 ") << "by steps, then by halves";
    after("octave_up");
    after("transpose_up");
    EXPECT_EQ(pitches(), "60 75 77 ");
    for (int i = 0; i < 9; ++i) after("octave_up");
    EXPECT_EQ(pitches(), "60 129 131 ");
    after("octave_down");
    after("transpose_down");
    EXPECT_EQ(pitches(), "60 116 118 ");
    const size_t items = box().history.items.size();
    say("undoredo 3");
    EXPECT_EQ(events(), "0 500* 900*");
    say("undoredo 100");
    EXPECT_EQ(box().history.items.size(), items) << "what could not move made no step";
    EXPECT_EQ(pitches(), "60 116 118 ");
}

TEST_F(Steps, duplicateInsertAndGoFromTrackToTrack) {
    TQ_Prseq_Tracks_SelectEvent(box(), 0, 1);
    TQ_Prseq_Tracks_SelectEvent(box(), 0, 2);
    EXPECT_EQ(after("duplicate"), "0 500 900 1900* 2300*") << "after where the selection ends";
    EXPECT_EQ(after("select_nothing"), "0 500 900 1900 2300");
    EXPECT_EQ(after("duplicate"), "0 500 900 1900 2300");
    say("undo");
    EXPECT_EQ(events(), "0 500 900");
    EXPECT_EQ(after("go_to_end"), "0 500 900");
    EXPECT_EQ(box().linecursor.position, 1900);
    EXPECT_EQ(after("insert_event"), "0 500 900 1900*");
    EXPECT_EQ(pitches(), "60 62 64 60 ");
    after("go_to_start");
    EXPECT_EQ(box().linecursor.position, 0);
    say("track_add");
    after("previous_track");
    EXPECT_EQ(box().activetrack, 0);
    after("previous_track");
    EXPECT_EQ(box().activetrack, 0);
    after("next_track");
    after("next_track");
    EXPECT_EQ(box().activetrack, 1);
}

TEST_F(Steps, everyCommandCopesWithNothing) {
    Session empty;
    for (const CommandRow& row : commands()) {
        EXPECT_EQ(&command_row(row.id), &row) << row.name;
        EXPECT_EQ(find_command(row.name), &row) << row.name << " is another's name";
        EXPECT_FALSE(row.text(empty.box()).empty());
        empty.call(CommandCall{row.name});
        empty.box().modaldialog.reset();
    }
}

}  // namespace
}  // namespace tq::test
