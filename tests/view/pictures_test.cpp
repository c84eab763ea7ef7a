#include "view/pictures.h"

#include <gtest/gtest.h>

#include "host/graphics.h"
#include "host/resources.h"
#include "view/pict_button.h"

namespace tq {
namespace {

/// Where a sheet of 24 x 24 pixels of the view is not transparent, in pixels of the screen: first and last
/// column.
std::string columns_drawn(const Surface& sheet) {
    const int side = static_cast<int>(24 * sheet.ratio());
    int first = side, last = -1;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            if (surface_pixel(sheet, x, y) >> 24 > 127) first = std::min(first, x), last = std::max(last, x);
    return std::to_string(first) + "-" + std::to_string(last);
}

TEST(Pictures, EveryDrawingCameOutAtBothSizes) {
    size_t found = 0;
    for (const auto& file : std::filesystem::directory_iterator(resources_folder())) {
        const std::string name = file.path().filename().string();
        if (!name.ends_with(".png")) continue;
        const double times = name.find("@2x") == name.npos ? 1 : 2;
        const SurfaceRef picture = bundled_picture(gensym(name));
        ASSERT_TRUE(picture) << name;
        EXPECT_EQ(picture->size(), (Size{16 * times, 16 * times})) << name;
        ++found;
    }
    EXPECT_GE(found, 40u);
    EXPECT_FALSE(bundled_picture(gensym("nothing.png")));
}

TEST(Pictures, AButtonShowsThePictureOfItsStateInTheMiddleAndSharplyAtEveryRatio) {
    const Symbol off = gensym("iconmenu_cursor_normal.png"), on = gensym("iconmenu_cursor_selected.png");
    const PictButton button = TQ_Prseq_Graphics_CreatePictButton(off, on, {}, {});
    for (const auto& [ratio, columns] :
         {std::pair{1., "4-19"}, {1.25, "5-24"}, {1.5, "6-29"}, {2., "8-39"}}) {
        for (bool enabled : {true, false}) {
            const SurfaceRef sheet = jgraphics_image_surface_create(24, 24, ratio);
            {
                Graphics g(*sheet);
                TQ_Prseq_Graphics_DrawPictButton(g, button, {0, 0, 24, 24}, true, enabled);
            }
            EXPECT_EQ(columns_drawn(*sheet), enabled ? columns : std::to_string(int(24 * ratio)) + "--1");
            const int middle = static_cast<int>(12 * ratio);
            EXPECT_EQ(surface_pixel(*sheet, middle, middle), enabled ? 0xffa9c7e8u : 0u) << ratio;
        }
    }
}

}  // namespace
}  // namespace tq
