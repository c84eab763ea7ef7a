// The strip along the top: where things are in it, what redraws it, and what a press on an icon does.
#include <set>

#include "app/script_fixture.h"
#include "interaction/icon_menu.h"
#include "interaction/mouse.h"
#include "view/draw_upperdisplay.h"
#include "view/icon_menu.h"
#include "view/menu_bar.h"
#include "view/view_fixture.h"

namespace tq {
namespace {

struct UpperDisplay : ViewTest {
    UpperDisplay() { resize(700, 300); }
    /// The colours in the hint area, in pixels of the screen of the last picture.
    std::set<unsigned> hint_colors(double ratio) const {
        const Rect r = hint_place(box);
        std::set<unsigned> colors;
        for (double y = (r.y - 2) * ratio; y < (r.y + r.height + 3) * ratio; ++y)
            for (double x = (r.x - 2) * ratio; x < (r.x + r.width + 3) * ratio; ++x)
                colors.insert(pixel(x, y));
        return colors;
    }
    /// The indices of those that have the colour of the marked ground.
    std::vector<size_t> marked_icons() const {
        std::vector<size_t> marked;
        for (size_t i = 0; i < box.iconmenu.icons.size(); ++i) {
            const Rect icon = icon_rect(box, i);
            double x = icon.x;
            while (x < icon.x + icon.width && pixel(x, icon.y + 15) != 0x5a86b8) ++x;
            if (x < icon.x + icon.width) marked.push_back(i);
        }
        return marked;
    }
    void press(double x, double y) {
        prseq_mousedown(box, x, y, 16);
        prseq_mouseup(box, x, y, 16);
    }
};

TEST_F(UpperDisplay, HintsAndIconsFollowTheTitles) {
    const double bar = TQ_Prseq_Menu_CalculateMenuDisplaySize(12).bar.width;
    for (const auto& [switches, hint, icons] : {std::tuple{"menudisplay 1", bar + 10, bar + 30},
                                                {"dirtydisplay 0", bar + 10, bar + 30},
                                                {"focusdisplay 0", bar + 10, bar},
                                                {"menudisplay 0", 10., 0.},
                                                {"dirtydisplay 1", 10., 30.}}) {
        send(switches);
        EXPECT_EQ(hint_place(box), (Rect{hint, 7, 12, 10})) << switches;
        EXPECT_EQ(TQ_Prseq_IconMenu_GetRect(box), (Rect{icons, 4, 8 * 17 - 1, 16})) << switches;
    }
}

TEST_F(UpperDisplay, IsDrawnAnewWhenWhatItShowsChanges) {
    paint();
    for (const auto& [message, redrawn] : {std::pair{"track_add", true},
                                           {"track_add", false},
                                           {"undo", false},
                                           {"undo", true},
                                           {"mouse_mode zoom", true},
                                           {"menufontsize 14", true},
                                           {"menutitletextcolor 0 0 0 1", true},
                                           {"focusdisplay 0", true},
                                           {"position 200", false}}) {
        send(message);
        EXPECT_EQ(layers_painted().find("upperdisplay_layer") != std::string::npos, redrawn) << message;
    }
    prseq_focusgained(box);
    EXPECT_EQ(layers_painted(), "upperdisplay_layer");
}

TEST_F(UpperDisplay, TheFocusFrameIsOneEvenColourAtEveryRatio) {
    for (double ratio : {1., 1.25, 1.5, 2.}) {
        prseq_focuslost(box);
        paint(ratio);
        EXPECT_EQ(hint_colors(ratio), (std::set<unsigned>{0xe6e6e6, 0xebb8b8})) << ratio;
        prseq_focusgained(box);
        paint(ratio);
        EXPECT_EQ(hint_colors(ratio), (std::set<unsigned>{0xe6e6e6, 0xff0000})) << ratio;
    }
}

TEST_F(UpperDisplay, TheDirtyDotIsThereWhileTheDocumentDiffersFromItsFile) {
    const Rect hint = hint_place(box);
    const Point middle{hint.x + hint.width / 2, hint.y + hint.height / 2};
    for (const auto& [message, color] : {std::pair{"getdirty", 0xe6e6e6u},
                                         {"track_add", 0x5c5c5cu},
                                         {"undo", 0xe6e6e6u},
                                         {"redo", 0x5c5c5cu},
                                         {"dirtydisplay 0", 0xe6e6e6u}}) {
        see(message);
        EXPECT_EQ(pixel(middle.x, middle.y), color) << message;
    }
}

TEST_F(UpperDisplay, TheOpenTitleIsInverted) {
    box.menubar = {.opentitle = 1, .open = true};
    see(Change::UpperDisplay);
    const Rect title = TQ_Prseq_Menu_CalculateMenuDisplaySize(12).titles[1];
    EXPECT_EQ(pixel(title.x + 1, title.y + 2), 0x424242u);
    EXPECT_EQ(pixel(title.x - 1, title.y + 2), 0xe6e6e6u);
}

TEST_F(UpperDisplay, APressOnAnIconChoosesItsModeAndMarksIt) {
    using enum MouseMode;
    const Rect menu = TQ_Prseq_IconMenu_GetRect(box);
    size_t i = 0;
    for (MouseMode mode : {Select, Insert, Slice, Glue, Zoom, EditBpf, SelectBpf, MouseMode::Buffer}) {
        const Rect icon = icon_rect(box, i++);
        press(icon.x, icon.y + 16);
        EXPECT_EQ(box.maindisplay.mousemode, mode) << i;
        paint();
        EXPECT_EQ(marked_icons(), std::vector{i - 1});
    }
    EXPECT_FALSE(box.bpfeditor) << "as by message";
    for (Point beside :
         {Point{menu.x + 16.5, 10}, {menu.x - 1, 10}, {menu.x + 3, 3}, {menu.x + menu.width + 1, 10}})
        press(beside.x, beside.y);
    EXPECT_EQ(box.maindisplay.mousemode, MouseMode::Buffer);
    send("trackdisplay 0", "menudisplay 0");
    press(30 + 8, 10);
    EXPECT_EQ(box.maindisplay.mousemode, Select);
}

struct MissingPicture : test::ScriptTest {};

TEST_F(MissingPicture, IsAnErrorAndNoIcon) {
    EXPECT_FALSE(TQ_Prseq_IconMenu_MakeIcona(box(), "nothing.png", MouseMode::Zoom));
    EXPECT_TRUE(says(".wait 0", "error tq.sorvo: file nothing.png not found"));
    box().iconmenu = {};
    EXPECT_TRUE(says(".paint\n.mouse down 390 10", ""));
}

}  // namespace
}  // namespace tq
