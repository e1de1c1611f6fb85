// SPDX-License-Identifier: MIT

#include "mapsession/map_view.h"

namespace quandrel {
namespace {

TEST(MapView, FitsABoxWithAMargin) {
    MapView view;
    view.Resize(400, 200);
    view.FitTo(MapBox::Of({1000, 2000}, {1090, 2018}));
    // 90 units on nine tenths of 400 pixels; the height would allow more.
    EXPECT_DOUBLE_EQ(view.UnitsPerPixel(), 0.25);
    EXPECT_DOUBLE_EQ(view.ToPixels({1000, 2009}).x, 20);
    EXPECT_DOUBLE_EQ(view.ToPixels({1000, 2009}).y, 100);
    EXPECT_DOUBLE_EQ(view.ToPixels({1045, 2018}).y, 100 - 9 / 0.25);
}

TEST(MapView, LeadsFromPixelsToTheMapAndBack) {
    MapView view;
    view.Resize(321, 123);
    view.FitTo(MapBox::Of({-7, 3}, {40, 90}));
    const MapPoint there = view.ToMap(view.ToPixels({12.5, 44.25}));
    EXPECT_NEAR(there.x, 12.5, 1e-12);
    EXPECT_NEAR(there.y, 44.25, 1e-12);
}

TEST(MapView, FitsAgainInAWindowOfAnotherSizeUntilItIsMoved) {
    MapView view;
    view.FitTo(MapBox::Of({0, 0}, {90, 90}));
    view.Resize(100, 100);
    EXPECT_DOUBLE_EQ(view.UnitsPerPixel(), 1);
    view.Resize(200, 200);
    EXPECT_DOUBLE_EQ(view.UnitsPerPixel(), 0.5);
    view.ZoomAbout({10, 20}, 2);
    view.Resize(400, 400);
    EXPECT_DOUBLE_EQ(view.UnitsPerPixel(), 0.25);
    EXPECT_EQ(view.Middle(), (MapPoint{10, 20}));
}

TEST(MapView, BringsTheGrabbedPointToWhereItIsDropped) {
    MapView view;
    view.FitTo(MapBox::Of({0, 0}, {100, 100}));
    const MapPoint before = view.ToPixels({30, 40});
    view.Pan({10, 10}, {30, 40});
    const MapPoint after = view.ToPixels({10, 10});
    EXPECT_NEAR(after.x, before.x, 1e-9);
    EXPECT_NEAR(after.y, before.y, 1e-9);
}

TEST(MapView, ShowsASinglePointInTheMiddle) {
    MapView view;
    view.FitTo(MapBox::Of({5, 6}, {5, 6}));
    EXPECT_EQ(view.Middle(), (MapPoint{5, 6}));
    EXPECT_DOUBLE_EQ(view.UnitsPerPixel(), 1);
}

TEST(MapView, KeepsAUsableScaleUnderAnyZoom) {
    MapView view;
    view.FitTo(MapBox::Of({4e6, 5e6}, {4.1e6, 5.1e6}));
    for (int i = 0; i < 2000; ++i) {
        view.ZoomAbout(view.Middle(), 2);
    }
    EXPECT_GT(view.UnitsPerPixel(), 1e-7);
    EXPECT_LT(view.Box().left, view.Box().right);
    for (int i = 0; i < 5000; ++i) {
        view.ZoomAbout(view.Middle(), 0.5);
    }
    EXPECT_LE(view.UnitsPerPixel(), 1e12);
    view.ZoomAbout({0, 0}, 0);
    view.ZoomAbout({0, 0}, -3);
    EXPECT_LE(view.UnitsPerPixel(), 1e12);
}

TEST(MapView, IgnoresABoxOfNothing) {
    MapView view;
    view.FitTo(MapBox());
    EXPECT_EQ(view.Middle(), (MapPoint{0, 0}));
}

} // namespace
} // namespace quandrel
