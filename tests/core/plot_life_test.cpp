// SPDX-License-Identifier: MIT

#include "core/plot_life.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class PlotLife : public EngineTest {};

TEST_F(PlotLife, BeginsInTheLowestFreeSlotWithAWindow) {
    ASSERT_TRUE(PrepareNewPlotWindow());
    EXPECT_EQ(gActivePlot, 1);
    EXPECT_TRUE(IsOpenSlot(1));
    EXPECT_NE(gPlotForm.at(1), nullptr);
}

TEST_F(PlotLife, IsRefusedWhenAllSlotsAreTaken) {
    gMaxPlots = 1;
    ASSERT_TRUE(PrepareNewPlotWindow());
    Expect("You now have 1 plots open");
    EXPECT_FALSE(PrepareNewPlotWindow());
    EXPECT_EQ(gActivePlot, 1);
}

TEST_F(PlotLife, EndsWithTheOpenPlotOfTheHighestSlotInFocus) {
    for (int slot = 1; slot <= 3; ++slot) {
        ASSERT_TRUE(PrepareNewPlotWindow());
    }
    gActivePlot = 1;
    ClosePlot(1);
    EXPECT_EQ(gActivePlot, 3);
    EXPECT_EQ(FindFreePlotSlot(), 1);
    EXPECT_EQ(gPlotForm.at(1), nullptr);
}

TEST_F(PlotLife, LeavesTheFocusWhereItIsWhenAnotherPlotEnds) {
    for (int slot = 1; slot <= 3; ++slot) {
        ASSERT_TRUE(PrepareNewPlotWindow());
    }
    gActivePlot = 2;
    ClosePlot(3);
    EXPECT_EQ(gActivePlot, 2);
    ClosePlot(2);
    ClosePlot(1);
    EXPECT_EQ(gActivePlot, 0);
}

} // namespace
} // namespace quandrel
