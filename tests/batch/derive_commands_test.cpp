// SPDX-License-Identifier: MIT

#include "batch/derive_commands.h"
#include "core/plot_store.h"
#include "derive/secondary_data.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class DeriveCommands : public EngineTest {
protected:
    /// A plot of one fault.
    int NewFault(std::int16_t secondaryFormat) {
        gPrimaryDataType = kPrimaryPlane;
        const int slot = NewPlot();
        ActiveRecord().SecondaryFormat = secondaryFormat;
        AddRow(60, 90);
        int secondary = 1;
        GrowDataColumns(secondary, 1);
        gData2Dip.At(slot, 1) = 60;
        gData2Az.At(slot, 1) = 91;
        return slot;
    }
};

TEST_F(DeriveCommands, MakeAxesTakesTheThreeItemsOfTheMenu) {
    const int parent = NewFault(kSecondaryLine);
    for (const char* index : {"", "3", "-1", "01", "x"}) {
        EXPECT_NE(MakeAxes(index), "") << index;
    }
    EXPECT_EQ(CountOpenPlots(), 1);
    EXPECT_EQ(MakeAxes("1", "normal"), "");
    EXPECT_EQ(CountOpenPlots(), 3);
    gActivePlot = parent;
    EXPECT_EQ(MakeAxes("2", "normal"), "");
    EXPECT_EQ(ActiveRecord().AxesTitle, "T");
    EXPECT_EQ(ActiveRecord().PlotSymbolMode, kContours);
    gActivePlot = parent;
    EXPECT_EQ(MakeAxes("0", "normal"), "");
    EXPECT_EQ(ActiveRecord().AxesTitle, "P & T");
    ActiveRecord().AxesTitle.clear();
    Expect("You don't have any Secondary line data");
    EXPECT_NE(MakeAxes("0"), "");
}

TEST_F(DeriveCommands, MakeAxesNeverInventsASense) {
    const int parent = NewFault(kSecondaryLine);
    const std::string refusal = MakeAxes("0");
    EXPECT_NE(refusal.find("no row says in which sense it moved"), std::string::npos) << refusal;
    EXPECT_NE(MakeAxes("0", "sinistral"), "");
    EXPECT_EQ(CountOpenPlots(), 1);
    EXPECT_EQ(MakeAxes("0", "reverse"), "");
    EXPECT_EQ(gDataDip(gActivePlot, 1), 15);
    EXPECT_EQ(gDataDip(gActivePlot, 2), -75);
    EXPECT_NE(MakeAxes("0"), "") << "made again, the same question is open";
    gActivePlot = parent;
    gData2Dip.At(parent, 1) = -60;
    EXPECT_EQ(MakeAxes("0"), "");
    EXPECT_EQ(gDataDip(gActivePlot, 1), 15);
}

TEST_F(DeriveCommands, MakeIntersectionsSaysWhyItDoesNothing) {
    NewFault(kSecondaryLine);
    EXPECT_EQ(MakeIntersections(), "the rows of the plot do not hold two planes each");
    const int source = NewFault(kSecondaryPlane);
    EXPECT_EQ(MakeIntersections(), "");
    ActiveRecord().Modified = kTrue;
    gActivePlot = source;
    EXPECT_EQ(MakeIntersections(), "no intersections were made: their plot has been changed");
}

TEST_F(DeriveCommands, PlotOtherSetChangesTheSetThatIsShown) {
    NewFault(kNoSecondary);
    EXPECT_EQ(PlotOtherSet(), "the plot holds no secondary set");
    NewFault(kSecondaryLine);
    EXPECT_EQ(PlotOtherSet(), "");
    EXPECT_NE(ActiveRecord().ShowSecondary, 0);
    EXPECT_EQ(PlotOtherSet(), "");
    EXPECT_EQ(OverlaySecondarySet("on"), "");
    EXPECT_EQ(PlotOtherSet(), "the set of a plot with overlays cannot change");
}

TEST_F(DeriveCommands, OverlaySecondarySetSaysWhatCameOfIt) {
    NewFault(kSecondaryLine);
    EXPECT_EQ(OverlaySecondarySet("up"), "'up' is neither on nor off");
    EXPECT_EQ(OverlaySecondarySet("on"), "");
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(OverlaySecondarySet("off"), "");
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 0);
    EXPECT_EQ(PlotOtherSet(), "");
    Expect("The secondary data is already plotted");
    EXPECT_EQ(OverlaySecondarySet("on"), "refused: see the message");
    ActiveRecord().PlotKind = kRose;
    EXPECT_NE(OverlaySecondarySet("on"), "");
}

TEST_F(DeriveCommands, PressSecondaryButtonTogglesArrows) {
    NewFault(kSecondaryLine);
    for (int button = kSlipArrowsAlone; button <= kSlipArrowsOnPoles; ++button) {
        EXPECT_EQ(PressSecondaryButton(button), "");
        EXPECT_TRUE(IsSecondaryButtonDown(button));
    }
    EXPECT_EQ(PressSecondaryButton(kSlipArrowsOnPoles), "");
    EXPECT_FALSE(IsSecondaryButtonDown(kSlipArrowsOnPoles));
    NewFault(kNoSecondary);
    EXPECT_EQ(PressSecondaryButton(kSlipArrowsAlone), "the plot holds no secondary set");
}

} // namespace
} // namespace quandrel
