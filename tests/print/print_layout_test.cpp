// SPDX-License-Identifier: MIT

#include "print/page_places.h"
#include "print/print_layout.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

PrintLayout LayoutOf(std::initializer_list<int> slots_, Sheet paper = {210, 297, 5}) {
    PrintLayout layout;
    layout.paper = paper;
    for (const int slot : slots_) {
        SelectPlot(layout, slot);
    }
    return layout;
}

TEST(LengthText, HasOneDecimalInEitherUnit) {
    struct Case {
        double millimetres;
        PageUnits units;
        const char* text;
    };

    const std::vector<Case> cases = {
        {100, PageUnits::Centimetres, "10.0"}, {86.3636, PageUnits::Centimetres, "8.6"},
        {25.4, PageUnits::Inches, "1.0"},      {100, PageUnits::Inches, "3.9"},
        {0, PageUnits::Inches, "0.0"},         {297, PageUnits::Centimetres, "29.7"},
    };
    for (const auto& [millimetres, units, text] : cases) {
        EXPECT_EQ(LengthText(millimetres, units, kSizeFormat), text);
        EXPECT_EQ(LengthText(millimetres, units, kPlaceFormat), text);
    }
}

TEST(TakeLength, KeepsAllDecimalsBehindTheTextThatShowsThem) {
    double length = 86.3636363;
    EXPECT_TRUE(TakeLength("8.6", PageUnits::Centimetres, kSizeFormat, length));
    EXPECT_EQ(length, 86.3636363);
    EXPECT_TRUE(TakeLength("3.4", PageUnits::Inches, kSizeFormat, length));
    EXPECT_EQ(length, 86.3636363);
}

TEST(TakeLength, TakesOtherNumbersInTheUnitsAndLeavesTheRest) {
    double length = 50;
    EXPECT_TRUE(TakeLength("8.65", PageUnits::Centimetres, kSizeFormat, length));
    EXPECT_DOUBLE_EQ(length, 86.5);
    EXPECT_TRUE(TakeLength("2,5", PageUnits::Inches, kSizeFormat, length));
    EXPECT_DOUBLE_EQ(length, 63.5);
    EXPECT_FALSE(TakeLength("wide", PageUnits::Inches, kSizeFormat, length));
    EXPECT_FALSE(TakeLength("", PageUnits::Inches, kSizeFormat, length));
    EXPECT_DOUBLE_EQ(length, 63.5);
}

TEST(SelectPlot, CentresTheFirstAndFitsItBy1100Units) {
    const PrintLayout layout = LayoutOf({3});
    ASSERT_EQ(layout.plots.size(), 1U);
    EXPECT_EQ(layout.plots[0].slot, 3);
    EXPECT_DOUBLE_EQ(layout.plots[0].centreX, 105);
    EXPECT_DOUBLE_EQ(layout.plots[0].centreY, 148.5);
    // A margin of 10 mm remains at either side: the 190 mm between are 2200 units.
    EXPECT_NEAR(layout.plots[0].radius, 190.0 / 2200 * 1000, 1e-9);
    EXPECT_TRUE(layout.fitsPage);
}

TEST(SelectPlot, TakesEachPlotOnce) {
    PrintLayout layout = LayoutOf({3, 1});
    EXPECT_EQ(SelectPlot(layout, 3), 0U);
    EXPECT_EQ(SelectPlot(layout, 1), 1U);
    EXPECT_EQ(layout.plots.size(), 2U);
}

TEST(SelectPlot, LeavesPlacedPlotsWhereTheyAre) {
    PrintLayout layout = LayoutOf({1});
    SizePlot(layout, 0, 30);
    MovePlot(layout, 0, 60, 70);
    SelectPlot(layout, 2);
    EXPECT_EQ(layout.plots[0].centreX, 60);
    EXPECT_EQ(layout.plots[0].radius, 30);
    EXPECT_EQ(layout.plots[1].centreX, 105);
    EXPECT_EQ(layout.plots[1].centreY, 148.5);
}

TEST(RemovePlot, FitsTheOthersAnew) {
    PrintLayout layout = LayoutOf({1, 2, 3});
    RemovePlot(layout, 0);
    RemovePlot(layout, 1);
    RemovePlot(layout, 7);
    const PrintLayout alone = LayoutOf({2});
    EXPECT_EQ(layout.plots, alone.plots);
}

TEST(MovePlot, EndsFittingAndStaysOnThePaper) {
    PrintLayout layout = LayoutOf({1, 2});
    const double radius = layout.plots[1].radius;
    MovePlot(layout, 1, -20, 400);
    EXPECT_FALSE(layout.fitsPage);
    EXPECT_EQ(layout.plots[1].centreX, 0);
    EXPECT_EQ(layout.plots[1].centreY, 297);
    EXPECT_EQ(layout.plots[1].radius, radius);
}

TEST(SizePlot, StaysWithinItsBounds) {
    PrintLayout layout = LayoutOf({1});
    SizePlot(layout, 0, 0);
    EXPECT_EQ(layout.plots[0].radius, kLeastRadius);
    SizePlot(layout, 0, 1e6);
    EXPECT_EQ(layout.plots[0].radius, 148.5);
    SizePlot(layout, 0, 100);
    EXPECT_EQ(layout.plots[0].radius, 100);
    EXPECT_EQ(layout.plots[0].centreX, 105);
}

TEST(PlacedPlots, HaveTextsClearOfAllNetsAndTexts) {
    PrintLayout layout = LayoutOf({1, 2, 3});
    for (std::size_t i = 0; i < 3; ++i) {
        SizePlot(layout, i, 25);
        MovePlot(layout, i, 50 + 20 * static_cast<double>(i), 50 + 80 * static_cast<double>(i));
    }
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_GT(layout.plots[i].texts.width, 20) << i;
        for (std::size_t k = 0; k < 3; ++k) {
            EXPECT_FALSE(DoOverlap(layout.plots[i].texts, NetSquare(layout.plots[k])));
            EXPECT_TRUE(i == k || !DoOverlap(layout.plots[i].texts, layout.plots[k].texts));
        }
    }
}

TEST(TakePaper, FitsAnewOrKeepsPlotsOnThePaper) {
    PrintLayout fitted = LayoutOf({1, 2});
    TakePaper(fitted, {297, 210, 5});
    EXPECT_EQ(fitted.plots, LayoutOf({1, 2}, {297, 210, 5}).plots);
    PrintLayout placed = LayoutOf({1});
    SizePlot(placed, 0, 40);
    MovePlot(placed, 0, 100, 280);
    TakePaper(placed, {148, 210, 5});
    EXPECT_EQ(placed.plots[0].centreX, 100);
    EXPECT_EQ(placed.plots[0].centreY, 210);
    EXPECT_EQ(placed.plots[0].radius, 40);
    EXPECT_FALSE(placed.fitsPage);
}

TEST(PrintLayout, NamesTheNetsThatReachOverTheEdge) {
    PrintLayout layout;
    layout.paper = {210, 297, 0};
    for (const int slot : {1, 4, 7}) {
        SelectPlot(layout, slot);
    }
    EXPECT_TRUE(PlotsOverEdge(layout).empty()) << "fitted";
    EXPECT_EQ(OverEdgeText({}), "");
    for (std::size_t i = 0; i < 3; ++i) {
        SizePlot(layout, i, 50);
        MovePlot(layout, i, 105, 148);
    }
    EXPECT_TRUE(PlotsOverEdge(layout).empty());
    MovePlot(layout, 1, 160, 148); // touches the edge
    EXPECT_TRUE(PlotsOverEdge(layout).empty());
    MovePlot(layout, 1, 161, 148);
    EXPECT_EQ(PlotsOverEdge(layout), (std::vector<int>{4}));
    EXPECT_EQ(OverEdgeText(PlotsOverEdge(layout)), "Plot 4 reaches over the edge of the paper");
    MovePlot(layout, 0, 105, 49);
    MovePlot(layout, 2, 105, 248);
    EXPECT_EQ(OverEdgeText(PlotsOverEdge(layout)),
              "Plots 1, 4 and 7 reach over the edge of the paper");
}

} // namespace
} // namespace quandrel
