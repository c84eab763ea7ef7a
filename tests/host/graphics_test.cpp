#include "host/graphics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "host/box.h"
#include "host/class.h"
#include "host/host.h"
#include "host/image.h"
#include "host/text.h"
#include "temporary_folder.h"

namespace tq {
namespace {

constexpr unsigned red = 0xffff0000, white = 0xffffffff;

/// A white sheet of 20 x 20 pixels of the view.
struct Sheet {
    explicit Sheet(double ratio = 1) : surface(jgraphics_image_surface_create(20, 20, ratio)) {
        Graphics g(*surface);
        jgraphics_set_source_rgba(g, 1, 1, 1, 1);
        jgraphics_rectangle_fill_fast(g, {0, 0, 20, 20});
    }
    template <typename Draw>
    Sheet& draw(Draw draw_it) {
        Graphics g(*surface);
        jgraphics_set_source_rgba(g, 1, 0, 0, 1);
        draw_it(g);
        return *this;
    }
    /// A row of pixels of the screen: '#' red, '.' white, '?' anything in between.
    std::string row(int y) const { return line(y, true); }
    std::string column(int x) const { return line(x, false); }
    std::string line(int at, bool horizontal) const {
        std::string text;
        int length = static_cast<int>(20 * surface->ratio());
        for (int i = 0; i < length; ++i) {
            unsigned pixel = horizontal ? surface_pixel(*surface, i, at) : surface_pixel(*surface, at, i);
            text += pixel == red ? '#' : pixel == white ? '.' : '?';
        }
        return text;
    }
    SurfaceRef surface;
};

TEST(Graphics, ThinLinesAreOneCrispPixelOfTheScreenAtEveryRatio) {
    for (double ratio : {1., 2., 3.}) {
        Sheet sheet(ratio);
        sheet.draw([](Graphics& g) { jgraphics_line_draw_fast(g, {5, 0}, {5, 20}, 0.5); });
        std::string row = sheet.row(3);
        size_t covered = ratio == 3 ? 2 : 1;  // 1.5 pixels round up
        EXPECT_EQ(std::count(row.begin(), row.end(), '#'), covered) << row;
        EXPECT_EQ(row.find('?'), std::string::npos) << row;
        EXPECT_EQ(row.find('#'), 5 * ratio - (covered == 2 ? 1 : 0)) << row;
    }
}

TEST(Graphics, LinesBetweenPixelsAndWideLinesStayCrisp) {
    Sheet sheet;
    sheet.draw([](Graphics& g) {
        jgraphics_line_draw_fast(g, {2.4, 1}, {2.4, 19}, 1);
        jgraphics_line_draw_fast(g, {10, 5}, {10, 9}, 2);
        jgraphics_line_draw_fast(g, {15, 12}, {19, 12}, 1);
    });
    EXPECT_EQ(sheet.row(7), "..#......##.........");
    EXPECT_EQ(sheet.row(12), "..#............####.");
    EXPECT_EQ(sheet.column(2), ".##################.");
}

TEST(Graphics, RectanglesThatShareAnEdgeNeitherOverlapNorLeaveAGap) {
    for (double ratio : {1., 1.25, 1.5, 2.}) {
        Sheet sheet(ratio);
        sheet.draw([](Graphics& g) {
            jgraphics_set_source_rgba(g, 1, 0, 0, 0.5);
            for (int i = 0; i < 10; ++i) jgraphics_rectangle_fill_fast(g, {0, i * 1.7, 20, 1.7});
        });
        unsigned half = surface_pixel(*sheet.surface, 3, 0);
        EXPECT_NE(half, white);
        for (int y = 0; y < static_cast<int>(16 * ratio); ++y)
            ASSERT_EQ(surface_pixel(*sheet.surface, 3, y), half) << "ratio " << ratio << " row " << y;
    }
}

TEST(Graphics, OutlinesLieInsideTheirRectangle) {
    Sheet sheet;
    sheet.draw([](Graphics& g) { jgraphics_rectangle_draw_fast(g, {0, 0, 20, 20}, 1); });
    EXPECT_EQ(sheet.row(0), std::string(20, '#'));
    EXPECT_EQ(sheet.row(19), std::string(20, '#'));
    EXPECT_EQ(sheet.row(10), "#..................#");
    sheet.draw([](Graphics& g) {
        jgraphics_set_line_width(g, 1);
        jgraphics_rectangle(g, {4, 4, 1, 1});
        jgraphics_stroke(g);
    });
    EXPECT_EQ(sheet.row(4), "#...#..............#");
}

TEST(Graphics, HugeAndEmptyShapesAreCutToTheSurface) {
    Sheet sheet;
    sheet.draw([](Graphics& g) {
        jgraphics_rectangle_fill_fast(g, {-1e12, 3, 1e12 + 4, 1});
        jgraphics_rectangle_fill_fast(g, {10, 3, 1e300, 1});
        jgraphics_rectangle_fill_fast(g, {5, 6, 0, 4});
        jgraphics_rectangle_draw_fast(g, {-1e9, 10, 2e9, 3}, 1);
        jgraphics_line_draw_fast(g, {1e15, 0}, {1e15, 20}, 1);
    });
    EXPECT_EQ(sheet.row(3), "####......##########");
    EXPECT_EQ(sheet.row(7), std::string(20, '.'));
    EXPECT_EQ(sheet.row(10), std::string(20, '#'));
    EXPECT_EQ(sheet.row(11), std::string(20, '.'));
}

TEST(Graphics, TranslationAddsUpAndCurvesAreSmooth) {
    Sheet sheet;
    sheet.draw([](Graphics& g) {
        jgraphics_translate(g, 3, 0);
        jgraphics_translate(g, 2, -1);
        jgraphics_rectangle_fill_fast(g, {0, 1, 2, 1});
        jgraphics_ellipse(g, {0, 6, 10, 10});
        jgraphics_fill(g);
    });
    EXPECT_EQ(sheet.row(0), ".....##.............");
    EXPECT_EQ(surface_pixel(*sheet.surface, 10, 10), red);
    EXPECT_NE(sheet.row(5).find('?'), std::string::npos);
}

TEST(Graphics, APictureOnePixelWideIsStretchedIntoRows) {
    SurfaceRef gradient = jgraphics_image_surface_create(1, 10);
    if (Graphics g(*gradient); true) {
        jgraphics_set_source(g, LinearPattern{{0, 0}, {0, 10}, {1, 0, 0, 1}, {0, 0, 1, 1}});
        jgraphics_rectangle(g, {0, 0, 1, 10});
        jgraphics_fill(g);
    }
    Sheet sheet;
    sheet.draw([&](Graphics& g) {
        jgraphics_image_surface_draw(g, *gradient, {0, 0, 1, 10}, {2, 0, 6, 20});
    });
    EXPECT_GT(surface_pixel(*sheet.surface, 4, 0), 0xffe00000u);
    EXPECT_EQ(surface_pixel(*sheet.surface, 2, 19) & 0xff0000, surface_pixel(*gradient, 0, 9) & 0xff0000);
    EXPECT_EQ(surface_pixel(*sheet.surface, 1, 5), white);
    EXPECT_EQ(surface_pixel(*sheet.surface, 8, 5), white);
}

TEST(Text, IsMeasuredAndJustified) {
    JFont font = jfont_create("Geneva", 12);
    Size wide = jtextlayout_measure("Bpf: Pitch", font), narrow = jtextlayout_measure("Bpf", font);
    EXPECT_GT(wide.width, narrow.width);
    EXPECT_EQ(wide.height, narrow.height);
    EXPECT_GE(wide.height, 12);
    EXPECT_EQ(jtextlayout_measure("iii", jfont_create("Courier", 12)).width,
              jtextlayout_measure("WWW", jfont_create("Courier", 12)).width);
    EXPECT_EQ(jtextlayout_measure("", font).width, 0);

    Sheet left, right;
    JTextLayout layout{.text = "l", .font = font, .box = {0, 0, 20, 20}, .color = {0, 0, 0, 1}};
    left.draw([&](Graphics& g) { jtextlayout_draw(g, layout); });
    layout.horizontal = HorizontalJustification::Right;
    layout.vertical = VerticalJustification::Bottom;
    right.draw([&](Graphics& g) { jtextlayout_draw(g, layout); });
    EXPECT_NE(left.row(8).substr(0, 8), std::string(8, '.'));
    EXPECT_NE(right.row(12).substr(12), std::string(8, '.'));
    EXPECT_EQ(right.row(12).substr(0, 12), std::string(12, '.'));
}

TEST(Text, ThatDoesNotFitIsCutWithAnEllipsis) {
    JTextLayout layout{.text = "a long text",
                       .font = jfont_create("Courier", 8),
                       .box = {0, 0, 14, 12},
                       .ellipsis = true,
                       .color = {0, 0, 0, 1}};
    Sheet sheet;
    sheet.draw([&](Graphics& g) { jtextlayout_draw(g, layout); });
    std::string blank(6, '.');
    bool drawn = false;
    for (int y = 0; y < 12; ++y) {
        EXPECT_EQ(sheet.row(y).substr(14), blank);
        drawn = drawn || sheet.row(y).substr(0, 14) != std::string(14, '.');
    }
    EXPECT_TRUE(drawn);
}

TEST(Image, IsWrittenWholeOrNotAtAll) {
    const test::TemporaryFolder folder;
    const std::string path = folder.file("picture.png");
    SurfaceRef surface = jgraphics_image_surface_create(10, 10, 2);
    if (Graphics g(*surface); true) {
        jgraphics_set_source_rgba(g, 1, 0, 0, 1);
        jgraphics_rectangle_fill_fast(g, {0, 0, 10, 10});
    }
    EXPECT_EQ(surface_write_png(*surface, path), std::nullopt);
    SurfaceRef read = jgraphics_image_surface_create_from_file(path);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->size(), (Size{20, 20}));
    EXPECT_EQ(surface_pixel(*read, 19, 19), red);
    auto failure = surface_write_png(*surface, folder.file("missing/picture.png"));
    ASSERT_TRUE(failure);
    EXPECT_NE(failure->find("picture.png"), std::string::npos);
    EXPECT_FALSE(jgraphics_image_surface_create_from_file(folder.file("nothing.png")));
}

struct LayerTest : testing::Test {
    Host host;
    Class box_class{"box"};
    Box box{host, box_class};
    SurfaceRef view = jgraphics_image_surface_create(50, 50);
    Symbol name = gensym("test_layer");
    int draws = 0;

    void paint(double width = 10, double height = 10) {
        Graphics g(*view);
        if (auto layer = jbox_start_layer(box, g.ratio(), name, width, height)) {
            ++draws;
            jgraphics_set_source_rgba(*layer, 1, 0, 0, 1);
            jgraphics_rectangle_fill_fast(*layer, {0, 0, width, height});
            jbox_end_layer(box, name);
        }
        jbox_paint_layer(box, g, name, 5, 5);
    }
};

TEST_F(LayerTest, IsDrawnAgainOnlyWhenItMust) {
    paint();
    paint();
    EXPECT_EQ(draws, 1);
    EXPECT_EQ(surface_pixel(*view, 5, 5), red);
    EXPECT_EQ(surface_pixel(*view, 15, 15), 0u);
    jbox_invalidate_layer(box, name);
    paint();
    EXPECT_EQ(draws, 2);
    paint(12, 10);
    EXPECT_EQ(draws, 3);
    view = jgraphics_image_surface_create(50, 50, 2);
    paint(12, 10);
    EXPECT_EQ(draws, 4);
    EXPECT_EQ(surface_pixel(*view, 33, 29), red);
    EXPECT_EQ(box.layers.drawn, std::vector<Symbol>{name}) << "once, however often nobody asks";
}

TEST_F(LayerTest, WithoutAreaIsNotDrawn) {
    paint(0, 10);
    paint(10, -3);
    EXPECT_EQ(draws, 0);
    EXPECT_EQ(surface_pixel(*view, 5, 5), 0u);
}

}  // namespace
}  // namespace tq
