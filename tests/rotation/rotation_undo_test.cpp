// SPDX-License-Identifier: MIT

#include "drawing/plot_state.h"
#include "input/data_rows.h"
#include "rotation_fixture.h"

namespace quandrel {
namespace {

class UndoOfRotation : public RotationTest {
protected:
    void MakeFaults() {
        PlanesWith(kSecondaryLine, {{60, 90}, {kErrorRow, 0}, {5, 360}},
                   {{20, 10}, {0, 0}, {-70, 80}});
        AddAppended({{15, 300}, {kInvalidAppendedLine, 0}, {0, 0}});
        AddOverlay(kOverlayPolarLines, 40, 0, CodeOfNewRow(ActiveRecord(), 1, false));
        gDataSymbolBase.At(gActivePlot, 4) = gDataSymbol(gActivePlot, 4);
        ActiveRecord().Modified = 0;
    }
};

struct Cells {
    std::vector<Pair> primary = Primary();
    std::vector<Pair> secondary = Secondary();
    std::vector<Pair> appended = Appended();
    SymbolCode drawn = gDataSymbol(gActivePlot, 4);
    SymbolCode base = gDataSymbolBase(gActivePlot, 4);
    std::vector<double> plunges = TableOf(gActivePlot).plunge;
    std::vector<double> trends = TableOf(gActivePlot).trend;

    bool operator==(const Cells&) const = default;
};

TEST_F(UndoOfRotation, GivesEveryCellBackThatRotatingBackWouldMiss) {
    MakeFaults();
    RebuildRowTable(gActivePlot);
    const Cells before;
    Rotate(AboutAxis(33, 71, 101));
    EXPECT_NE(Primary(), before.primary);
    EXPECT_NE(gDataSymbol(gActivePlot, 4), before.drawn);
    ASSERT_TRUE(CanUndoRotation());
    constexpr float kNoEigenvalue = -1;
    ActiveRecord().EigenResults[kGreatestAxis][kAxisPlunge] = kNoEigenvalue;
    EXPECT_TRUE(UndoRotation());
    EXPECT_NE(ActiveRecord().EigenResults[kGreatestAxis][kAxisPlunge], kNoEigenvalue)
        << "worked out";
    RebuildRowTable(gActivePlot);
    EXPECT_EQ(Cells(), before);
    EXPECT_EQ(ActiveRecord().RotationState, 0);
    EXPECT_EQ(ActiveRecord().Modified, 0);
    EXPECT_FALSE(CanUndoRotation()) << "once";
    EXPECT_FALSE(UndoRotation());
}

TEST_F(UndoOfRotation, TakesBackTheLastOneAlone) {
    PlotOf(kPrimaryPlane, kPlanes, {{60, 90}});
    Rotate(AboutAxis(33, 71, 101));
    const std::vector<Pair> between = Primary();
    Rotate(LineUp(10, 20));
    EXPECT_EQ(ActiveRecord().RotationState, kLineToVertical);
    EXPECT_TRUE(UndoRotation());
    EXPECT_EQ(Primary(), between);
    EXPECT_EQ(ActiveRecord().RotationState, kRotateAboutAxis);
    EXPECT_NE(ActiveRecord().Modified, 0);
}

TEST_F(UndoOfRotation, IsThereForThePlotThatWasRotated) {
    PlotOf(kPrimaryPlane, kPlanes, {{60, 90}});
    const int first = gActivePlot;
    Rotate(AboutAxis(33, 71, 101));
    PlotOf(kPrimaryPlane, kPlanes, {{60, 90}});
    EXPECT_FALSE(CanUndoRotation());
    gActivePlot = first;
    EXPECT_TRUE(CanUndoRotation());
    gBusy = true;
    EXPECT_FALSE(UndoRotation());
    gBusy = false;
}

TEST_F(UndoOfRotation, IsNotThereForAnotherPlotWithTheSameRowsInTheSlot) {
    PlotOf(kPrimaryPlane, kPlanes, {{60, 90}});
    const int slot = gActivePlot;
    Rotate(AboutAxis(33, 71, 101));
    const std::vector<Pair> turned = Primary();
    ReleasePlotSlot(slot);
    PlotOf(kPrimaryPlane, kPlanes, turned);
    ASSERT_EQ(gActivePlot, slot);
    ASSERT_EQ(Primary(), turned);
    EXPECT_FALSE(CanUndoRotation());
}

TEST_F(UndoOfRotation, EndsWithTheNextEdit) {
    using Edit = void (*)();
    const std::vector<Edit> edits = {
        [] { ForgetRotation(); },
        [] { gDataDip.At(gActivePlot, 1) = 12; },
        [] { gData2Az.At(gActivePlot, 3) += 1; },
        [] { gAppLineDip.At(gActivePlot, 1) = 3; },
        [] { --ActiveRecord().NumLoadedData; },
        [] { ReleasePlotSlot(gActivePlot); },
    };
    for (std::size_t i = 0; i < edits.size(); ++i) {
        MakeFaults();
        Rotate(AboutAxis(33, 71, 101));
        ASSERT_TRUE(CanUndoRotation()) << i;
        edits[i]();
        EXPECT_FALSE(CanUndoRotation()) << i;
        EXPECT_FALSE(UndoRotation()) << i;
    }
}

TEST_F(UndoOfRotation, LastsThroughOtherViewsAndStyles) {
    MakeFaults();
    const std::vector<Pair> before = Primary();
    Rotate(AboutAxis(33, 71, 101));
    gDataSymbol.At(gActivePlot, 1) = 70605;
    gDataSymbol.At(gActivePlot, 4) = 80706;
    ChangePlotKind(kEqualAngle);
    ActiveRecord().PlotSymbolMode = kGreatCircles;
    EXPECT_TRUE(UndoRotation());
    EXPECT_EQ(Primary(), before);
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), 70605U);
    EXPECT_EQ(gDataSymbol(gActivePlot, 4), 80706U) << "a style that was given since stays";
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualAngle);
}

TEST_F(UndoOfRotation, OfRowsThatWereSavedMakesThemUnsavedAgain) {
    PlotOf(kPrimaryPlane, kPlanes, {{60, 90}});
    ActiveRecord().Modified = 0;
    Rotate(AboutAxis(33, 71, 101));
    ActiveRecord().Modified = 0; // as a save leaves it
    EXPECT_TRUE(UndoRotation());
    EXPECT_NE(ActiveRecord().Modified, 0);
}

TEST_F(UndoOfRotation, LeavesAnotherChangeUnsaved) {
    PlotOf(kPrimaryPlane, kPlanes, {{60, 90}});
    ActiveRecord().Modified = 0;
    Rotate(AboutAxis(33, 71, 101));
    ActiveRecord().Modified = kTrue; // a girdle, or a description
    EXPECT_TRUE(UndoRotation());
    EXPECT_NE(ActiveRecord().Modified, 0);
}

} // namespace
} // namespace quandrel
