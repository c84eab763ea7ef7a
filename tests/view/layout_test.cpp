#include "view/layout.h"

#include "view_fixture.h"

namespace tq {
namespace {

struct LayoutTest : ViewTest {
    LayoutTest() { resize(1000, 600); }
    const Rect& part(Part which) { return box.layout[which]; }
};

TEST_F(LayoutTest, PartsTileTheBox) {
    see("parameterdisplay 1");
    EXPECT_EQ(part(Part::UpperDisplay), (Rect{0, 0, 1000, 24}));
    EXPECT_EQ(part(Part::TrackDisplay), (Rect{0, 24, 165, 576}));
    EXPECT_EQ(part(Part::TimeDisplay), (Rect{205, 24, 780, 24}));
    EXPECT_EQ(part(Part::KeyDisplay), (Rect{165, 48, 40, 457}));
    EXPECT_EQ(part(Part::MainDisplay), (Rect{205, 48, 780, 457}));
    EXPECT_EQ(part(Part::ParameterDisplay), (Rect{205, 505, 780, 80}));
    EXPECT_EQ(part(Part::HorScrollbar), (Rect{165, 585, 820, 15}));
    EXPECT_EQ(part(Part::VertScrollbar), (Rect{985, 48, 15, 537}));
}

TEST_F(LayoutTest, HiddenDisplaysGiveTheirRoomToTheMainDisplay) {
    for (const char* name : {"trackdisplay 0", "keydisplay 0"}) send(name);
    paint();
    EXPECT_EQ(part(Part::MainDisplay), (Rect{0, 48, 985, 537}));
    set_time_display_type(box, TimeDisplayType::BarsBeats);
    paint();
    EXPECT_EQ(part(Part::MainDisplay), (Rect{0, 72, 985, 513}));
    EXPECT_EQ(part(Part::VertScrollbar).y, 72);
    EXPECT_EQ(part(Part::KeyDisplay).y, 72);
    EXPECT_EQ(whichpartisthemouse(box, 0, 100), Part::MainDisplay)
        << "a display without width is under no point";
}

TEST_F(LayoutTest, APointOnAnEdgeBelongsToTheNextPartOrToNone) {
    see("parameterdisplay 1");
    struct {
        double x, y;
        Part part;
    } const rows[] = {
        {0, 0, Part::UpperDisplay},
        {999, 23.9, Part::UpperDisplay},
        {1000, 10, Part::None},
        {0, 24, Part::TrackDisplay},
        {165, 48, Part::KeyDisplay},
        {204.9, 504, Part::KeyDisplay},
        {205, 504.9, Part::MainDisplay},
        {205, 505, Part::ParameterDisplay},
        {985, 505, Part::VertScrollbar},
        {984.9, 585, Part::HorScrollbar},
        {985, 585, Part::None},
        {999, 599, Part::None},
        {180, 520, Part::None},
        {205, 24, Part::TimeDisplay},
        {190, 30, Part::None},
        {-1, 10, Part::None},
        {164.9, 599.9, Part::TrackDisplay},
        {300, 600, Part::None},
    };
    for (const auto& row : rows)
        EXPECT_EQ(whichpartisthemouse(box, row.x, row.y), row.part) << row.x << " " << row.y;
}

TEST_F(LayoutTest, ABoxTooSmallForItsPartsIsPaintedAllTheSame) {
    box.minimum_size = {};
    for (double side : {1., 20., 60., 200.}) {
        resize(side, side);
        EXPECT_EQ(picture->size(), (Size{side, side}));
    }
}

}  // namespace
}  // namespace tq
