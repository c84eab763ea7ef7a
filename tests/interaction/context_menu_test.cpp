// The menus of the right button.
#include "interaction/hand.h"
#include "model/bpf_editor.h"

namespace tq::test {
namespace {

struct ContextMenu : Hand {
    ContextMenu() {
        add(1000, 1000, 60);
        add(3000, 1000, 64);
    }
    /// The lines of the menu at a place, without those of the modes.
    std::string menu(double ms, double pitch, const std::string& choice = "") {
        if (!choice.empty()) say(".choose \"" + choice + "\"");
        std::string text;
        const Lines lines = mouse("down right", ms, pitch);
        release(" right");
        for (size_t i = 0; i < lines.size(); ++i)
            if (lines[i].starts_with("popup ") && i >= 9)
                text += (text.empty() ? "" : ",") + lines[i].substr(6);
        return text;
    }
};

TEST_F(ContextMenu, OffersTheModesWithTheCurrentOneChecked) {
    Lines lines = mouse("down right", 9000, 60);
    EXPECT_TRUE(same_lines(
        Lines(lines.begin(), lines.begin() + 9),
        {"popup * Select", "popup + Insert", "popup + Slice", "popup + Glue", "popup + Zoom",
         "popup + Edit Bpf Points", "popup + Select Bpf Points", "popup + Buffer Start/End", "popup ="}));
    for (const char* mode : {"Insert", "Slice", "Glue", "Zoom", "Edit Bpf Points", "Select Bpf Points",
                             "Buffer Start/End", "Select"}) {
        menu(9000, 60, mode);
        lines = mouse("down right", 9000, 60);
        EXPECT_EQ(std::ranges::count(lines, std::string("popup * ") + mode), 1) << mode;
    }
    EXPECT_EQ(box().iconmenu.icons.size(), 8u);
}

TEST_F(ContextMenu, IsAboutTheEventUnderThePointer) {
    EXPECT_EQ(menu(9000, 60), "+ Select All,- Paste");
    EXPECT_EQ(menu(1500, 60), "+ Cut,+ Copy,- Paste,=,+ Delete,+ Select All");
    EXPECT_EQ(events(), "1000+1000@60* 3000+1000@64") << "it was selected by the press";
    menu(3500, 64, "Copy");
    EXPECT_EQ(menu(9000, 60, "Select All"), "+ Select All,+ Paste");
    EXPECT_EQ(events(), "1000+1000@60* 3000+1000@64*");
    menu(1500, 60, "Delete");
    EXPECT_EQ(events(), "");
    menu(1500, 60, "Paste");
    EXPECT_EQ(events(), "1000+1000@60* 3000+1000@64*");
    menu(1500, 60, "Cut");
    EXPECT_EQ(history(), "Add Track, Insert Event, Insert Event, Delete Events, Paste Events, [Cut Events]");
    say("mouse_mode zoom\nundo\nundo\nundo");
    menu(9000, 60, "Select All");
    EXPECT_EQ(events(), "1000+1000@60* 3000+1000@64*") << "in every mode";
}

TEST_F(ContextMenu, IsAboutPointsWhereCurvesAreEdited) {
    say("mouse_mode select_bpf");
    EXPECT_EQ(menu(9000, 60), "- Select All,- Paste");
    click(1500, 60, " option");
    EXPECT_EQ(menu(9000, 60, "Select All"), "+ Select All,- Paste");
    EXPECT_EQ(selected_bpf_points(box(), *edited_bpf(box()).bpf).size(), 2u);
    EXPECT_EQ(menu(1500, 60), "- Cut,- Copy,- Paste,=,- Delete,+ Select All")
        << "the press has deselected it";
    say("mouse_mode zoom");
    EXPECT_TRUE(box().bpfeditor);
}

TEST_F(ContextMenu, OfTheParameterDisplayChoosesWhatIsShown) {
    say("parameterdisplay 1\ntrack_parameter_add Gain 0 10 5 0");
    const Rect lane = box().layout[Part::ParameterDisplay];
    const Point in_lane{lane.x + 500, lane.y + 20};
    say(".choose Gain");
    EXPECT_TRUE(same_lines(mouse("down right", in_lane), {"popup * Velocity", "popup + Gain"}));
    EXPECT_TRUE(same_lines(mouse("down control", in_lane), {"popup + Velocity", "popup * Gain"}));
    say("track_delete 0");
    EXPECT_EQ(mouse("down right", in_lane), Lines());
}

}  // namespace
}  // namespace tq::test
