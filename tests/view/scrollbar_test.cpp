#include "view/scrollbar.h"

#include <gtest/gtest.h>

#include <cmath>

#include "view/scrollbar_layout.h"

namespace tq {
namespace {

using Bar = TQScrollbar;

/// A page of 1000 pixels at the present zoom, 300 of them visible.
TQScrollbar make_bar(Bar::Orientation orientation = Bar::Orientation::Horizontal,
                     Bar::Zoom zoom = Bar::Zoom::AtStart) {
    TQScrollbar bar = TQScrollbar_Create(orientation, true, zoom);
    bar.selectionpagesize = 300;
    bar.maximumpagesize = 10000;
    TQScrollbar_SetMinMaxZoomValue(bar, 0.3, 10);
    TQScrollbar_SetZoomValue(bar, TQScrollbar_CalculateZoom(bar, 1000));
    TQScrollbar_CalculateTotalPageSize(bar, bar.zoomvalue);
    return bar;
}

TEST(Scrollbar, ConversionsAreInverse) {
    TQScrollbar bar = make_bar();
    EXPECT_NEAR(bar.zoomvalue, 1, 1e-12);
    EXPECT_NEAR(bar.totalpagesize, 1000, 1e-9);
    EXPECT_NEAR(TQScrollbar_ZoomUnityValueToZoomValue(bar, bar.zoomunityvalue), 1, 1e-12);
    EXPECT_NEAR(TQScrollbar_ScrollUnityValueToScrollValue(bar, 0.5), 350, 1e-9);
    EXPECT_NEAR(TQScrollbar_ScrollValueToScrollUnityValue(bar, 350), 0.5, 1e-12);
    EXPECT_EQ(TQScrollbar_Scale(3, 5, 5, 7, 9), 7) << "an empty range gives no infinite number";
}

TEST(Scrollbar, ValuesAreHeldInTheirRange) {
    TQScrollbar bar = make_bar();
    TQScrollbar_SetScrollUnityValue(bar, 0.5);
    TQScrollbar_Scroll(bar, 70);
    EXPECT_NEAR(bar.scrollunityvalue, 0.6, 1e-12);
    TQScrollbar_Scroll(bar, 1e9);
    EXPECT_EQ(bar.scrollunityvalue, 1);
    TQScrollbar_Scroll(bar, -1e9);
    EXPECT_EQ(bar.scrollunityvalue, 0);
    TQScrollbar_SetZoomUnityValue(bar, 1.5);
    EXPECT_EQ(bar.zoomvalue, 10);
    double unity = bar.zoomunityvalue;
    TQScrollbar_SetMinMaxZoomValue(bar, 0.3, 5);
    EXPECT_EQ(bar.zoomvalue, 5);
    EXPECT_EQ(bar.zoomunityvalue, unity) << "a new range leaves the unity value alone";
}

TEST(Scrollbar, ComponentsLieAlongTheBar) {
    TQScrollbar horizontal = make_bar();
    TQScrollbar_SetScrollUnityValue(horizontal, 0.5);
    TQScrollbar_MakeCalculations(horizontal, {165, 585, 832, 15});
    EXPECT_EQ(horizontal.zoombox, (Rect{0, 0, 100, 15}));
    EXPECT_EQ(horizontal.scrollbox, (Rect{100, 0, 700, 15}));
    EXPECT_EQ(horizontal.arrow0, (Rect{800, 0, 16, 15}));
    EXPECT_EQ(horizontal.arrow1, (Rect{816, 0, 16, 15}));
    EXPECT_NEAR(horizontal.knobsize, 210, 1e-9);
    EXPECT_NEAR(horizontal.knob.x, 100 + 245, 1e-9);
    EXPECT_EQ(horizontal.zoomknobminimum, 10);
    EXPECT_EQ(horizontal.zoomknobrange, 72);
    EXPECT_NEAR(horizontal.zoomknobposition, 10 + 72 * std::cbrt(horizontal.zoomunityvalue), 1e-9);

    TQScrollbar vertical = make_bar(Bar::Orientation::Vertical, Bar::Zoom::AtEnd);
    TQScrollbar_MakeCalculations(vertical, {985, 48, 15, 532});
    EXPECT_EQ(vertical.scrollbox, (Rect{0, 0, 15, 400}));
    EXPECT_EQ(vertical.arrow0, (Rect{0, 400, 15, 16}));
    EXPECT_EQ(vertical.arrow1, (Rect{0, 416, 15, 16}));
    EXPECT_EQ(vertical.zoombox, (Rect{0, 432, 15, 100}));
    EXPECT_EQ(vertical.zoomknobminimum, 442);
}

TEST(Scrollbar, AtTheLeastZoomThereIsNothingToScroll) {
    TQScrollbar bar = make_bar();
    TQScrollbar_SetZoomUnityValue(bar, 0);
    TQScrollbar_MakeCalculations(bar, {0, 0, 832, 15});
    EXPECT_FALSE(bar.knobexists);
    EXPECT_EQ(bar.scrollbox, (Rect{100, 0, 732, 15}));
    EXPECT_EQ(bar.arrows.width, 0);
    EXPECT_EQ(bar.selectionpagesize, bar.totalpagesize);
}

TEST(Scrollbar, AKnobIsNeverTooShortToGrabNorLongerThanItsBox) {
    TQScrollbar bar = make_bar();
    TQScrollbar_SetZoomUnityValue(bar, 1);
    TQScrollbar_MakeCalculations(bar, {0, 0, 432, 15});
    EXPECT_EQ(bar.knobsize, 20);
    TQScrollbar_MakeCalculations(bar, {0, 0, 140, 15});
    EXPECT_EQ(bar.knobsize, 8);
    EXPECT_EQ(bar.knobrange, 0);
}

}  // namespace
}  // namespace tq
