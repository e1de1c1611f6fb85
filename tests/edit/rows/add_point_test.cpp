// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "core/row_links.h"
#include "edit/history/undo.h"
#include "edit/marks/annotations.h"
#include "edit/rows/add_point.h"
#include "edit/selection/marquee.h"
#include "orientation/projection.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <cmath>

namespace quandrel {
namespace {

using namespace testing;

using Pair = std::pair<int, int>;

constexpr const char* kLinkQuestion =
    "If you manually add points to this plot you will break its link to the MapInfo Table\n"
    "Continue and add the new data point?";

class AddPoint : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        ForgetUndo();
        NewPlot();
        SetKind(kPrimaryLine, kPolarLines);
    }

    void TearDown() override {
        ConnectRowFollower({});
        ClearSelection();
        ForgetUndo();
        EngineTest::TearDown();
    }

    static void SetKind(std::int16_t format, std::int16_t kind) {
        ActiveRecord().PrimaryFormat = format;
        ActiveRecord().DataKind = kind;
    }

    static Pair Row(std::int32_t row) {
        return {gDataDip(gActivePlot, row), gDataAz(gActivePlot, row)};
    }

    static PlottedRow Plotted(std::int32_t row) {
        const RowTable& table = TableOf(gActivePlot);
        for (std::size_t place = 0; place < table.size(); ++place) {
            if (table.index[place] == row) {
                return table[place];
            }
        }
        return {};
    }
};

/// A place east of the centre by the textbook formula of the equal area net.
double EastOf(double plunge) {
    return 1000 * std::sqrt(2) * std::sin((90 - plunge) / 2 * kPi / 180);
}

TEST_F(AddPoint, ALineIsAddedUnderThePointer) {
    AddStereoPoint(kLeftMouseButton, EastOf(30), 0);
    ASSERT_EQ(ActiveRecord().NumData, 1);
    EXPECT_EQ(ActiveRecord().NumValidData, 1);
    EXPECT_EQ(ActiveRecord().NumLoadedData, 1);
    EXPECT_EQ(Row(1), (Pair{30, 90}));
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), CodeOfStyleRow(kRowSymbol));
    EXPECT_NE(ActiveRecord().Modified, 0);
    EXPECT_EQ(Form(gActivePlot).TimesShown(), 1); // drawn at once
}

TEST_F(AddPoint, TheRightButtonPointsUp) {
    AddStereoPoint(kRightMouseButton, EastOf(30), 0);
    EXPECT_EQ(Row(1), (Pair{-30, 90}));
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), CodeOfStyleRow(kUpRowSymbol));
}

TEST_F(AddPoint, APlaneIsAddedByItsPole) {
    SetKind(kPrimaryPlane, kPlanes);
    AddStereoPoint(kLeftMouseButton, EastOf(30), 0);
    EXPECT_EQ(Row(1), (Pair{60, 270}));
}

TEST_F(AddPoint, TheRightButtonAddsAPlaneOfOppositePolarityAtTheSamePlace) {
    SetKind(kPrimaryPlane, kPlanes);
    AddStereoPoint(kLeftMouseButton, EastOf(30), 0);
    AddStereoPoint(kRightMouseButton, EastOf(30), 0);
    EXPECT_EQ(Row(2), (Pair{-60, 270}));
    EXPECT_EQ(Plotted(1).x, Plotted(2).x);
    EXPECT_EQ(Plotted(1).y, Plotted(2).y);
}

TEST_F(AddPoint, ThePrimitiveIsOnTheNetAndBeyondItNothingIsAdded) {
    AddStereoPoint(kLeftMouseButton, 600, 800);
    EXPECT_EQ(ActiveRecord().NumData, 1);
    EXPECT_EQ(Row(1), (Pair{0, 37})); // the tangent is 3/4
    AddStereoPoint(kLeftMouseButton, 600, 801);
    AddStereoPoint(kLeftMouseButton, 1000.01, 0);
    EXPECT_EQ(ActiveRecord().NumData, 1);
}

TEST_F(AddPoint, PlacesThatRoundOffTheNetStayOnTheirSide) {
    AddStereoPoint(kLeftMouseButton, 707.6, 706.6); // rounds to (708, 707), beyond the primitive
    EXPECT_EQ(Row(1), (Pair{0, 45}));
}

TEST_F(AddPoint, ARoseTakesNone) {
    ActiveRecord().PlotKind = kRose;
    AddStereoPoint(kLeftMouseButton, 10, 10);
    EXPECT_FALSE(AddPointToPlot("10", "20"));
    EXPECT_EQ(ActiveRecord().NumLoadedData, 0);
}

TEST_F(AddPoint, SecondaryAndAppendedValuesAreMissing) {
    PlotRecord& record = ActiveRecord();
    record.SecondaryFormat = kSecondaryLine;
    record.HasAppendedLine = kTrue;
    record.HasAppendedNumeric = kTrue;
    record.HasAppendedText = kTrue;
    ASSERT_TRUE(AddPointToPlot("10", "20"));
    EXPECT_EQ(Row(1), (Pair{10, 20}));
    EXPECT_EQ(gData2Dip(gActivePlot, 1), kErrorRow);
    EXPECT_EQ(gAppLineDip(gActivePlot, 1), kInvalidAppendedLine);
    EXPECT_EQ(gAppNumeric(gActivePlot, 1), kInvalidNumber);
    EXPECT_EQ(gAppText(gActivePlot, 1), "");
}

TEST_F(AddPoint, ALinkedPlotIsAskedAboutOnce) {
    std::vector<std::int32_t> removed;
    ConnectRowFollower({.unlink = [&](int slot) { removed.push_back(slot); }});
    ActiveRecord().MapInfoLinked = kTrue;
    Expect(kLinkQuestion, Button::No);
    AddStereoPoint(kLeftMouseButton, 10, 10);
    EXPECT_EQ(ActiveRecord().NumData, 0);
    EXPECT_NE(ActiveRecord().MapInfoLinked, 0);
    Expect(kLinkQuestion, Button::Yes);
    AddStereoPoint(kLeftMouseButton, 10, 10);
    EXPECT_EQ(ActiveRecord().NumData, 1);
    EXPECT_EQ(ActiveRecord().MapInfoLinked, 0);
    EXPECT_EQ(removed, std::vector<std::int32_t>{gActivePlot});
    AddStereoPoint(kLeftMouseButton, 20, 20);
    EXPECT_EQ(ActiveRecord().NumData, 2);
}

TEST_F(AddPoint, BothAxesBecomeOneDataSetOfLines) {
    for (int row = 0; row < 4; ++row) {
        AddRow(row % 2 == 0 ? 30 : -30, 40 * row);
    }
    ActiveRecord().AxesTitle = "P & T";
    ActiveRecord().NumValidData = 2; // of faults
    const std::string question =
        "If you manually add points to this plot of kinematic axes you will break its link to the "
        "parent fault data plot.\nThe P & T data will then be treated as a single dataset of "
        "lines.\nContinue and add the new data point?";
    Expect(question, Button::No);
    EXPECT_FALSE(AddPointToPlot("10", "20"));
    EXPECT_EQ(ActiveRecord().AxesTitle, "P & T");
    EXPECT_EQ(ActiveRecord().NumValidData, 2);
    Expect(question, Button::Yes);
    EXPECT_TRUE(AddPointToPlot("10", "20"));
    EXPECT_EQ(ActiveRecord().AxesTitle, "");
    EXPECT_EQ(ActiveRecord().NumValidData, 5);
}

TEST_F(AddPoint, OneAxisIsAskedAboutInShort) {
    AddRow(30, 40);
    ActiveRecord().AxesTitle = "P";
    Expect("parent fault data plot.\nContinue and add the new data point?", Button::Yes);
    EXPECT_TRUE(AddPointToPlot("10", "20"));
    EXPECT_EQ(ActiveRecord().NumValidData, 2);
}

TEST_F(AddPoint, OverOverlaysPointsMakeOneOfTheirOwn) {
    SetKind(kPrimaryPlane, kPlanes);
    AddRow(45, 45);
    AddOverlay(kOverlayPoles, 30, 30, CodeOfStyleRow(2));
    PlotRecord& record = ActiveRecord();
    record.OverlayFiles[1] = {"planes.txt"};
    AddStereoPoint(kRightMouseButton, EastOf(30), 0);
    EXPECT_EQ(record.OverlayRows[kOverlayCount], 2);
    EXPECT_EQ(record.OverlayKind[1], kOverlayPoles);
    EXPECT_EQ(record.OverlayKind[2], kOverlayPolarLines);
    EXPECT_EQ(record.OverlayRows[2], 1);
    EXPECT_EQ(record.NumData, 1);
    EXPECT_EQ(Row(3), (Pair{-30, 90})); // a line, not the plane of the pole
    AddStereoPoint(kLeftMouseButton, EastOf(40), 0);
    EXPECT_EQ(record.OverlayRows[kOverlayCount], 2);
    EXPECT_EQ(record.OverlayRows[2], 2);
    EXPECT_EQ(Row(4), (Pair{40, 90}));
}

TEST_F(AddPoint, PolarLinesOfAFileAreNoneMadeByHand) {
    AddRow(45, 45);
    AddOverlay(kOverlayPolarLines, 30, 30, CodeOfStyleRow(2));
    ActiveRecord().OverlayFiles[1] = {"lines.txt"};
    EXPECT_TRUE(AddPointToPlot("10", "20"));
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 2);
    EXPECT_EQ(ActiveRecord().OverlayRows[1], 1);
}

TEST_F(AddPoint, TheSecondaryOverlayIsNotAddedTo) {
    ActiveRecord().SecondaryFormat = kSecondaryLine;
    AddRow(45, 45);
    AddOverlay(kOverlayPolarLines, 30, 30, CodeOfStyleRow(2));
    ActiveRecord().SelectedOverlay = 1;
    EXPECT_TRUE(AddPointToPlot("10", "20"));
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 2);
    EXPECT_EQ(ActiveRecord().SelectedOverlay, 0);
}

TEST_F(AddPoint, TwentyOverlaysAreTheMost) {
    AddRow(45, 45);
    for (int overlay = 1; overlay <= kMaxOverlays; ++overlay) {
        AddOverlay(kOverlayLines, 30, 30, CodeOfStyleRow(2));
    }
    Expect("You can't overlay any more points on this plot");
    EXPECT_FALSE(AddPointToPlot("10", "20"));
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], kMaxOverlays);
    EXPECT_EQ(ActiveRecord().NumLoadedData, 1 + kMaxOverlays);
}

TEST_F(AddPoint, APointOverSecondaryDataIsSeen) {
    ActiveRecord().SecondaryFormat = kSecondaryLine;
    AddRow(45, 45);
    ActiveRecord().ShowSecondary = kTrue;
    EXPECT_TRUE(AddPointToPlot("30", "90"));
    EXPECT_EQ(ActiveRecord().NumData, 1);
    EXPECT_EQ(ActiveRecord().OverlayRows[1], 1);
    EXPECT_EQ(Row(2), (Pair{30, 90}));
    EXPECT_EQ(gData2Dip(gActivePlot, 2), kErrorRow);
    EXPECT_NEAR(Plotted(2).x, EastOf(30), 0.5);
}

TEST_F(AddPoint, WithoutMemoryTheCountsAreAsBefore) {
    AddRow(45, 45);
    const std::int32_t former = gPlatform.mostRows;
    gPlatform.mostRows = 1;
    EXPECT_FALSE(AddPointToPlot("10", "20"));
    EXPECT_EQ(ActiveRecord().NumData, 1);
    EXPECT_EQ(ActiveRecord().NumValidData, 1);
    EXPECT_EQ(ActiveRecord().NumLoadedData, 1);
    ActiveRecord().ShowSecondary = kTrue; // the row would go into a new overlay
    EXPECT_FALSE(AddPointToPlot("10", "20"));
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 0);
    EXPECT_EQ(ActiveRecord().NumLoadedData, 1);
    EXPECT_EQ(TableOf(gActivePlot).size(), 1U);
    gPlatform.mostRows = former;
}

TEST_F(AddPoint, UndoTakesThePointOffAgain) {
    AddRow(45, 45);
    EXPECT_TRUE(AddPointToPlot("10", "20"));
    ASSERT_TRUE(CanUndo());
    UndoLastEdit();
    EXPECT_EQ(ActiveRecord().NumData, 1);
    EXPECT_EQ(TableOf(gActivePlot).size(), 1U);
}

TEST_F(AddPoint, UndoGivesBackTheOverlayOfTheSecondaryData) {
    ActiveRecord().SecondaryFormat = kSecondaryLine;
    AddRow(45, 45);
    AddOverlay(kOverlayPolarLines, 30, 30, CodeOfStyleRow(2));
    ActiveRecord().SelectedOverlay = 1;
    EXPECT_TRUE(AddPointToPlot("10", "20"));
    UndoLastEdit();
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(ActiveRecord().SelectedOverlay, 1);
    RedoLastEdit();
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 2);
    EXPECT_EQ(ActiveRecord().SelectedOverlay, 0);
}

TEST_F(AddPoint, UndoMakesAxesOfTheFaultsAgain) {
    AddRow(45, 45);
    AddRow(30, 30);
    ActiveRecord().AxesTitle = "P & T";
    ActiveRecord().NumValidData = 1;
    prompts.Expect("break its link to the parent", Button::Yes);
    EXPECT_TRUE(AddPointToPlot("10", "20"));
    EXPECT_EQ(ActiveRecord().AxesTitle, "");
    EXPECT_EQ(ActiveRecord().NumValidData, 3);
    UndoLastEdit();
    EXPECT_EQ(ActiveRecord().AxesTitle, "P & T");
    EXPECT_EQ(ActiveRecord().NumValidData, 1);
    EXPECT_EQ(ActiveRecord().NumData, 2);
}

TEST_F(AddPoint, UndoOfTheOnlyChangeLeavesNothingToSave) {
    AddRow(45, 45);
    ActiveRecord().Modified = 0;
    EXPECT_TRUE(AddPointToPlot("10", "20"));
    UndoLastEdit();
    EXPECT_EQ(ActiveRecord().Modified, 0);
}

TEST_F(AddPoint, TheAnnotationLayerGetsAMark) {
    gActiveLayer = kAnnotationLayer;
    AddStereoPoint(kRightMouseButton, 100, -50);
    EXPECT_EQ(ActiveRecord().NumData, 0);
    const auto marks = AnnotationsOf(gActivePlot);
    ASSERT_EQ(marks.size(), 1U);
    EXPECT_EQ(marks[0].X, 100);
    EXPECT_EQ(marks[0].Y, -50);
    EXPECT_EQ(marks[0].SymbolType, 22);
}

} // namespace
} // namespace quandrel
