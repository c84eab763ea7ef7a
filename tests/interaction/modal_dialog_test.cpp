// The question that comes before a document that is not saved is replaced.
#include <map>

#include "app/script_fixture.h"
#include "view/modal_dialog.h"

namespace tq::test {
namespace {

struct ModalDialogTest : ScriptTest {
    /// The line of a mouse call at a button of the open dialog.
    std::string at_button(const char* name, const std::string& call = "down") {
        for (const ModalButton& button : box().modaldialog->buttons)
            if (button.name.text() == name) {
                const Rect r = in_modal_dialog(box(), button.rect);
                return ".mouse " + call + " " + std::to_string(r.x + r.width / 2) + " " +
                       std::to_string(r.y + 2);
            }
        return ".mouse " + call + " 0 0";
    }
    /// What a press on a button and its release lead to: names of files that are asked for, reports of all
    /// tracks.
    std::string answer(const char* button, const std::string& dialogs) {
        say(dialogs);
        std::string told;
        for (const std::string& line : say(at_button(button) + "\n" + at_button(button, "up")))
            if (line.starts_with("dialog ") || line == "out2 tracks done")
                told += (told.empty() ? "" : ", ") + line.substr(line.find_last_of(' ') + 1);
        return told;
    }
    size_t events() { return say(".show events", "event").size(); }
};

TEST_F(ModalDialogTest, ComesOnlyBeforeADocumentThatIsNotSaved) {
    say(".command new");
    EXPECT_FALSE(box().modaldialog) << "nothing would be lost";
    say(".command open", "dialog");
    EXPECT_FALSE(box().modaldialog);
    say("event start 0\n.command new");
    ASSERT_TRUE(box().modaldialog);
    EXPECT_EQ(box().modaldialog->message.text(), "Do you want to save your document first?");
    EXPECT_EQ(events(), 1u);
    say("undo\nundo\nundo");
    EXPECT_TRUE(box().modaldialog) << "it stays until it is answered";
}

TEST_F(ModalDialogTest, EachAnswerDoesWhatItSays) {
    const std::string file = folder.file("saved.json"), other = folder.file("other.json");
    say("event start 1 \n event start 2\n.answer " + other + "\nwrite");
    const std::string save = ".answer " + file, open = ".answer " + other, cancel = ".answer cancel";
    struct Row {
        const char *command, *button;
        std::string dialogs, told;
        size_t events;  ///< of the document then
        long untitled;  ///< the number of the next untitled document
        bool saved;
    };
    for (const Row& row :
         {Row{"new", "Cancel", "", "", 1, 1, false},
          {"new", "Don't Save", "", "done", 0, 2, false},
          {"new", "Save", save, "done, untitled1.json, done", 0, 1, true},
          {"new", "Save", cancel, "done, untitled1.json", 1, 1, false},
          {"new", "Save", ".answer /nowhere/x.json", "done, untitled1.json", 1, 1, false},
          {"open", "Cancel", "", "", 1, 1, false},
          {"open", "Don't Save", open, "open, done", 2, 1, false},
          {"open", "Save", save + "\n" + open, "done, untitled1.json, open, done", 2, 1, true},
          {"open", "Save", cancel, "done, untitled1.json", 1, 1, false}}) {
        std::filesystem::remove(file);
        say("read nowhere\nevent start 0\n.command " + std::string(row.command));
        box().info.untitledcounter = 1;
        const std::string what = std::string(row.command) + " " + row.button + " " + row.dialogs;
        ASSERT_TRUE(box().modaldialog) << what;
        EXPECT_EQ(answer(row.button, row.dialogs), row.told) << what;
        EXPECT_FALSE(box().modaldialog) << what;
        EXPECT_EQ(events(), row.events) << what;
        EXPECT_EQ(box().info.untitledcounter, row.untitled) << what;
        EXPECT_EQ(std::filesystem::exists(file), row.saved) << what;
    }
}

TEST_F(ModalDialogTest, AnEarlierCancelledDialogDoesNotStopASaveThatAsksNothing) {
    say("event start 0\n.answer " + folder.file("a.json") + "\nwrite\nevent start 1");
    say(".answer cancel\n.command save_as\n.command new");
    EXPECT_EQ(answer("Save", ""), "done, done");
    EXPECT_EQ(events(), 0u);
}

TEST_F(ModalDialogTest, KeepsTheMouseForItself) {
    say("mouse_mode slice\nevent start 0 duration 10000 <note> 60 90 </note>\nzoom_out_all\n.command new");
    const Lines before = say(".show events\n.show view");
    for (const char* call : {"down", "drag", "up", "move", "double"})
        for (const char* point : {"5 5", "390 290", "210 130"})
            say(std::string(".mouse ") + call + " " + point);
    say(".paint\n.show layers\n.mouse move 250 150\n.wheel 210 130 0 1");
    EXPECT_EQ(say(".show events\n.show view"), before);
    EXPECT_TRUE(box().modaldialog) << "beside the buttons nothing happens";
    EXPECT_TRUE(says(".paint\n.show layers", "layers")) << "no key is lit under the pointer";
    say(at_button("Cancel"));
    say(".mouse down 390 10");
    EXPECT_FALSE(box().modaldialog);
}

TEST_F(ModalDialogTest, OpensInTheMidstOfADragAndEndsIt) {
    say("zoom_animation 0\nzoom_out_all\nevent start 0 duration 10000 <note> 60 90 </note>\nscroll_vert 0.5");
    say(".mouse down 300 150\n.mouse drag 320 160\n.command new");
    EXPECT_FALSE(box().gesture);
    EXPECT_EQ(say(at_button("Cancel") + "\n.mouse drag 300 200\n.mouse up 300 200", "error"), Lines());
}

TEST_F(ModalDialogTest, IsPaintedOverEverythingButTheBorder) {
    say(".size 600 400\n.command new\nevent start 0\n.paint\n.show layers");
    EXPECT_TRUE(says(".command new\n.paint\n.show layers", "layers modaldialog_layer"));
    EXPECT_TRUE(says(".paint\n.show layers", "layers"));
}

TEST(ModalDialogLayout, ButtonsStandInARowInTheMiddle) {
    struct Row {
        double text, first;        ///< widths
        double width, x0, x1, x2;  ///< of the dialog, and where the buttons are
    };
    for (const Row& row : {Row{300, 90, 340, 56, 160, 234}, {100, 90, 268, 20, 124, 198}}) {
        const ModalDialog dialog = lay_out_modal_dialog(
            {row.text, 17}, {{{}, {0, 0, row.first, 21}}, {{}, {0, 0, 60, 25}}, {{}, {0, 0, 50, 21}}});
        EXPECT_EQ(dialog.size, (Size{row.width, 17 + 40 + 25 + 20}));
        EXPECT_EQ(dialog.text, (Rect{(row.width - row.text) / 2, 20, row.text, 17}));
        EXPECT_EQ(dialog.buttons[0].rect, (Rect{row.x0, 57, row.first, 21}));
        EXPECT_EQ(dialog.buttons[1].rect, (Rect{row.x1, 57, 60, 25}));
        EXPECT_EQ(dialog.buttons[2].rect, (Rect{row.x2, 57, 50, 21}));
    }
}

}  // namespace
}  // namespace tq::test
