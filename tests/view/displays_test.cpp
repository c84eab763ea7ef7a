// Key display, track list and scrollbars as they are painted.
#include "interaction/mouse.h"
#include "view/draw_keydisplay.h"
#include "view/layout.h"
#include "view_fixture.h"

namespace tq {
namespace {

struct DisplaysTest : ViewTest {
    DisplaysTest() {
        send("new_track_color 0", "track_add one", "track_add two");
        resize(1000, 600);
        see("zoom_vert 0.05", "keydisplayhighlightcolor 1 0 0 1");
    }
    /// The pointer over a pitch in the main display.
    void hover(double pitch) {
        const MainDisplay& md = box.maindisplay;
        prseq_mousemove(box, 500, md.rect.y + (132 - pitch - 0.5) * md.rowheight - md.verticalscroll, 0);
    }
    /// How many pixels are lit in a column of the keys.
    int lit(double x) {
        paint();
        int count = 0;
        for (double y = 48; y < 585; ++y) count += pixel(165 + x, y) == 0xff0000;
        return count;
    }
};

TEST_F(DisplaysTest, TheKeyUnderThePointerIsLit) {
    const double row = box.maindisplay.rowheight, white = row * 12 / 7;
    hover(61);
    EXPECT_EQ(lit_pitch(box), 61);
    EXPECT_NEAR(lit(10), row, 1);
    EXPECT_EQ(lit(33), 0) << "a black key is short";
    hover(62);
    EXPECT_NEAR(lit(33), white, 1);
    EXPECT_LT(lit(10), white) << "black keys lie over it";
    for (const char* mode : {"mouse_mode insert", "mouse_mode select"}) {
        send(mode);
        EXPECT_GT(lit(33), 0) << mode;
    }
    for (auto [off, on] : {std::pair{"mouse_mode edit_bpf", "mouse_mode select"},
                           std::pair{"keyhighlight 0", "keyhighlight 1"}}) {
        see(off);
        EXPECT_EQ(lit(33), 0) << off;
        see(on);
        EXPECT_GT(lit(33), 0) << on;
    }
    for (Point beside : {Point{180, 200}, Point{300, 30}, Point{990, 200}, Point{50, 200}}) {
        hover(62);
        prseq_mousemove(box, beside.x, beside.y, 0);
        EXPECT_EQ(lit(33), 0) << beside.x;
    }
    hover(62);
    prseq_mouseleave(box, -1, -1, 0);
    EXPECT_EQ(lit(33), 0);
}

TEST_F(DisplaysTest, KeysAreDrawnAnewOnlyWhereAnotherOneIsLit) {
    hover(61);
    EXPECT_EQ(layers_painted(), "keydisplay_layer");
    hover(61.3);
    EXPECT_EQ(layers_painted(), "");
    hover(60.2);
    EXPECT_EQ(layers_painted(), "keydisplay_layer");
    send("scroll_vert 0.6");
    EXPECT_NE(lit_pitch(box), 60) << "another row is under the pointer";
    prseq_mousedown(box, 500, 300, 16);
    const auto pressed = lit_pitch(box);
    prseq_mousedrag(box, 500, 300 - 3 * box.maindisplay.rowheight, 16);
    EXPECT_EQ(lit_pitch(box), *pressed + 3) << "dragged";
    prseq_mousedrag(box, 100, -5000, 16);
    EXPECT_EQ(lit_pitch(box), 131) << "beyond the display, and the pitches";
    prseq_mouseup(box, 100, 300, 16);
}

TEST_F(DisplaysTest, BlackKeysAreAsHighAsTheRowsBesideThem) {
    for (double ratio : {1., 1.25, 1.5, 2.}) {
        const SurfaceRef shot = paint(ratio);
        const auto at = [&](double x, int y) {
            return surface_pixel(*shot, static_cast<int>(x * ratio), y) & 0xffffff;
        };
        for (int y = static_cast<int>(60 * ratio); y < static_cast<int>(500 * ratio); ++y) {
            const bool black_lane = at(205 + 33, y) == 0xf5f5f5, black_key = at(165 + 10, y) == 0xc7c7c7;
            EXPECT_TRUE(black_key || !black_lane) << y << " at " << ratio;
        }
    }
}

TEST_F(DisplaysTest, TheActiveTracksRowIsInItsColour) {
    const unsigned active = pixel(95, 24 + 16 + 33), other = pixel(95, 24 + 16 + 13);
    EXPECT_NE(active, other);
    see("track_active 0");
    EXPECT_EQ(pixel(95, 24 + 16 + 13), active);
    EXPECT_EQ(pixel(95, 24 + 16 + 33), other);
    EXPECT_EQ(pixel(164, 300), 0x4d4d4du) << "the line at the right edge";
    const auto picture_of_cell = [&](double x) {
        std::string all;
        for (double y = 40; y < 60; ++y)
            for (double dx = 0; dx < 24; ++dx) all += std::to_string(pixel(x + dx, y)) + " ";
        return all;
    };
    const std::string eye = picture_of_cell(100), speaker = picture_of_cell(124);
    see("track_visible 0 0");
    EXPECT_NE(picture_of_cell(100), eye);
    EXPECT_EQ(picture_of_cell(124), speaker);
    see("track_visible 0 1", "track_mute 0 1");
    EXPECT_EQ(picture_of_cell(100), eye);
    EXPECT_NE(picture_of_cell(124), speaker);
}

TEST_F(DisplaysTest, APressedArrowLooksPressed) {
    send("zoom_hor 0.5");
    paint();
    const unsigned released = pixel(985 - 3, 588);
    EXPECT_EQ(released, 0xffffffu);
    prseq_mousedown(box, 985 - 8, 590, 16);
    paint();
    EXPECT_NE(pixel(985 - 3, 588), released);
    prseq_mouseup(box, 985 - 8, 590, 16);
    paint();
    EXPECT_EQ(pixel(985 - 3, 588), released);
}

TEST_F(DisplaysTest, KnobsFollowDisplaysThatComeAndGo) {
    for (const char* line : {"parameterdisplay 1", "keydisplay 0", "trackdisplay 0", "parameterdisplay 0"}) {
        send(line);
        const SurfaceRef kept = paint();
        prseq_show(box, Change::Initialisation);
        const SurfaceRef anew = paint();
        int different = 0;
        for (int y = 0; y < 600; ++y)
            for (int x = 0; x < 1000; ++x)
                different += surface_pixel(*kept, x, y) != surface_pixel(*anew, x, y);
        EXPECT_EQ(different, 0) << line;
    }
}

/// Whatever the box's size and switches are, painting and the mouse do no harm.
TEST_F(DisplaysTest, AnySizeIsPaintedAndPressed) {
    box.minimum_size = {};
    for (Size size : {Size{200, 240}, {1, 1}, {180, 100}, {219, 88}, {240, 130}, {3840, 2160}})
        for (const char* display :
             {"trackdisplay 0", "keydisplay 0", "parameterdisplay 1", "trackdisplay 1"}) {
            send(display);
            resize(size.width, size.height);
            for (double x : {0.2, 0.5, 0.8, 0.97})
                for (double y : {0.05, 0.15, 0.5, 0.99}) {
                    const Point at{x * size.width, y * size.height};
                    prseq_mousedown(box, at.x, at.y, 16);
                    prseq_mousedrag(box, at.x + 30, at.y - 20, 16);
                    prseq_mousewheel(box, at.x, at.y, 0, 0, 1);
                    prseq_mouseup(box, at.x, at.y, 16);
                }
            paint();
            for (double unity :
                 {box.horizontalscroll, box.verticalscroll, box.horizontalzoom, box.verticalzoom})
                EXPECT_TRUE(unity >= 0 && unity <= 1) << size.width << " " << unity;
        }
}

}  // namespace
}  // namespace tq
