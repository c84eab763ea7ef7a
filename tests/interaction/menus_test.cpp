// The menus of the menu bar, pressed and answered as a user does.
#include "interaction/menus.h"

#include "app/script_fixture.h"
#include "view/menu_bar.h"

namespace tq {
namespace {

struct MenusTest : test::ScriptTest {
    Prseq& box = script.session().box();

    /// The lines that press a title, after those that answer its menu.
    std::string press(const std::string& title, const std::string& choice = "") {
        const auto index = static_cast<size_t>(std::ranges::find(menu_titles, title) - menu_titles.begin());
        const Rect rect = TQ_Prseq_Menu_CalculateMenuDisplaySize(box.menufontsize).titles[index];
        return (choice.empty() ? "" : ".choose \"" + choice + "\"\n") + ".mouse down " +
               std::to_string(rect.x + rect.width / 2) + " 12\n.mouse up 0 0";
    }
};

TEST_F(MenusTest, ShowWhatCanBeDone) {
    EXPECT_TRUE(says(press("File"), "popup", R"(popup - New
        popup + Open...
        popup =
        popup - Save
        popup - Save As...
        popup =
        popup + Document Inspector)"));
    EXPECT_TRUE(says(press("Edit"), "popup", R"(popup - Undo
        popup - Redo
        popup =
        popup - Cut
        popup - Copy
        popup - Paste
        popup - Delete
        popup =
        popup - Select All)"));
    EXPECT_TRUE(says(press("Tracks"), "popup", R"(popup + New Track
        popup - Delete Track
        popup =
        popup - Track Inspector)"));
    EXPECT_TRUE(says(press("Bpfs"), "popup", R"(popup - Edit
        popup =
        popup ~ Display All
        popup =
        popup - Bpf Point Time is Absolute
        popup ~ Bpf Point Time is Relative
        popup =
        popup - Pitch)"));
    say("track_add A\ntrack_add B\ntrack_bpf_add Gain 0 1 1\nevent start 0 <note> 60 99 </note>\n.wait "
        "100\nundo");
    EXPECT_TRUE(says(press("Tracks"), "popup", R"(popup + New Track
        popup + Delete Track
        popup =
        popup + Track Inspector
        popup =
        popup + A
        popup * B)"));
    const test::Lines edit = say(press("Edit"), "popup");
    ASSERT_GE(edit.size(), 2u);
    EXPECT_EQ(edit[0].substr(0, 13), "popup + Undo ");
    EXPECT_EQ(edit[1], "popup + Redo Insert Event");
    EXPECT_EQ(say(press("Bpfs"), "popup").back(), "popup + Gain");
    EXPECT_FALSE(box.menubar.open);
}

TEST_F(MenusTest, DoWhatIsChosen) {
    say(press("Tracks", "New Track"));
    say(press("Tracks", "New Track"));
    ASSERT_EQ(box.tracks.size(), 2u);
    say(press("Tracks", box.tracks[1]->name));
    EXPECT_EQ(box.activetrack, 1);
    say("track_bpf_add Gain 0 1 1\nevent start 0 <note> 60 99 </note>\n.wait 100\n" + press("Bpfs", "Gain"));
    EXPECT_EQ(box.tracks[1]->events.first()->activebpf->name().text(), "Gain");
    say(".paint\n.show layers\n" + press("Edit", "Select All"));
    EXPECT_NE(say(".paint\n.show layers").back().find(" maindisplay_layer"), std::string::npos);
    say(press("Edit", "Delete"));
    EXPECT_TRUE(box.tracks[1]->events.empty());
    say(press("Edit", "Undo Delete Event"));
    EXPECT_EQ(box.tracks[1]->events.size(), 1u);
    say(press("View", "m:s.ms"));
    EXPECT_EQ(box.timedisplaytype, 1);
    say(press("Bpfs", "Edit"));
    EXPECT_EQ(box.maindisplay.mousemode, MouseMode::EditBpf);
    EXPECT_EQ(say(press("Options", "Cycle"), "out3"), (test::Lines{"out3 cycle 1"}));
    say(press("Options", "Follow Line Cursor"));
    EXPECT_FALSE(box.linecursor.follow);
    say(press("File", "New"));
    EXPECT_TRUE(box.modaldialog) << "it asks first";
}

TEST_F(MenusTest, TurnOnAndOff) {
    say("track_add A");
    for (const auto& [title, item] : {std::pair{"View", "Track Display"},
                                      {"View", "Key Display"},
                                      {"View", "Parameter Display"},
                                      {"View", "Show Note Lanes"},
                                      {"Events", "Show Labels"},
                                      {"Events", "Show Messages"},
                                      {"Events", "Show Buffers"},
                                      {"Bpfs", "Display All"},
                                      {"Options", "Pitch Snap"},
                                      {"Options", "Time Snap"}}) {
        const auto mark = [&] {
            for (const std::string& line : say(press(title), "popup"))
                if (line.size() > 8 && line.substr(8) == item) return line[6];
            return '?';
        };
        const char before = mark();
        say(press(title, item));
        EXPECT_EQ(mark(), before == '*' ? '+' : '*') << item;
    }
}

TEST_F(MenusTest, AChoiceThatIsNotThereEndsTheScript) {
    EXPECT_THROW(say(press("File", "Save")), ScriptFault) << "it is disabled";
    EXPECT_THROW(say(press("File", "Print")), ScriptFault);
    EXPECT_TRUE(says("menudisplay 0\n" + press("File"), "popup", "")) << "titles that are not shown";
}

}  // namespace
}  // namespace tq
