// SPDX-License-Identifier: MIT

#include "derive/fault_plot.h"
#include "derive/secondary_data.h"
#include "derive/secondary_rows.h"
#include "drawing/plot_state.h"
#include "drawing/symbol_choice.h"

#include <algorithm>
#include <limits>

namespace quandrel {
namespace {

constexpr const char* kRemoves =
    "This will remove the overlayed data in this plot.\nDo you want to continue?";
constexpr const char* kNotPlanes =
    "You have indicated that your Primary data are not Planes as required by this option\nDo you "
    "want to continue and treat these data as Planes anyway?";
constexpr const char* kNotLines =
    "You have indicated that your Secondary data are Planes not Lines as required by this "
    "option\nDo you want to continue and treat these Secondary data as Lines anyway?";
constexpr const char* kTooMany =
    "You already have more than one overlayed dataset in this plot\nTo use this option you need "
    "to plot and process the primary data first";

const std::vector<FaultRow> kFaults = {{60, 90, 60, 90}, {60, 90, -50, 60}, {80, 200, 10, 290}};

class SecondaryData : public FaultTest {
protected:
    static PlotRecord& Record() { return ActiveRecord(); }

    /// Plunge or dip cells of the table in degrees, by place.
    static std::vector<int> Cells(int slot) {
        std::vector<int> cells;
        for (const double plunge : TableOf(slot).plunge) {
            cells.push_back(IsErrorRow(plunge) ? kErrorRow
                                               : static_cast<int>(RoundToEven(RadToDeg(plunge))));
        }
        return cells;
    }

    static int Arrows(int slot) {
        int arrows = 0;
        for (const DrawOperation& operation : DrawnOn(Form(slot).Plot())) {
            const bool isArrow =
                operation.kind == DrawOperation::Kind::Markers && operation.text.starts_with("50/");
            arrows += isArrow ? static_cast<int>(operation.points.size()) : 0;
        }
        return arrows;
    }
};

using ToggleSecondary = SecondaryData;

TEST_F(ToggleSecondary, PlotsTheOtherSetAsWhatItIs) {
    struct Case {
        std::int16_t primary, secondary, kind, kindOfSecondary, kindAgain;
    };

    const Case cases[] = {
        {kPrimaryPlane, kSecondaryLine, kPlanes, kLines, kPlanes},
        {kPrimaryPlane, kPitchInPlane, kPolarLines, kPolarLines, kPlanes},
        {kPrimaryLine, kSecondaryPlane, kPolarLines, kPlanes, kLines},
        {kPrimaryLine, kSecondaryLine, kPolarLines, kPolarLines, kPolarLines},
        {kPrimaryPlane, kSecondaryPlane, kPlanes, kPlanes, kPlanes},
    };
    for (const Case& c : cases) {
        const int slot = NewFaultPlot(kFaults, c.secondary);
        Record().PrimaryFormat = c.primary;
        Record().DataKind = c.kind;
        ToggleSecondaryData();
        EXPECT_NE(Record().ShowSecondary, 0);
        EXPECT_EQ(Record().DataKind, c.kindOfSecondary);
        EXPECT_EQ(Record().Modified, 0) << "looking changes nothing";
        ToggleSecondaryData();
        EXPECT_EQ(Record().ShowSecondary, 0);
        EXPECT_EQ(Record().DataKind, c.kindAgain);
        EXPECT_GT(slot, 0);
    }
}

TEST_F(ToggleSecondary, BringsTheRowsToTheirPlaces) {
    const int slot = NewFaultPlot(kFaults);
    SetSecondary(slot, 3, kErrorRow, kErrorRow);
    EXPECT_EQ(Cells(slot), (std::vector<int>{30, 30, 10})) << "poles";
    ToggleSecondaryData();
    std::vector<int> cells = Cells(slot);
    std::ranges::sort(cells);
    EXPECT_EQ(cells, (std::vector<int>{kErrorRow, -50, 60}));
    EXPECT_EQ(Form(slot).Caption(), "faults.txt: 1   [2nd Lines]      ");
}

TEST_F(ToggleSecondary, LetsPlainSymbolsFollowTheSignAndKeepsTheOthers) {
    const int slot = NewFaultPlot({{60, 90, -50, 60}, {60, 90, -50, 60}});
    gDataSymbol.At(slot, 2) = CodeOfStyleRow(5);
    ToggleSecondaryData();
    EXPECT_EQ(gDataSymbol(slot, 1), CodeOfStyleRow(kUpRowSymbol));
    EXPECT_EQ(gDataSymbolBase(slot, 1), CodeOfStyleRow(kUpRowSymbol));
    EXPECT_EQ(gDataSymbol(slot, 2), CodeOfStyleRow(5));
    ToggleSecondaryData();
    EXPECT_EQ(gDataSymbol(slot, 1), CodeOfStyleRow(kRowSymbol));
}

TEST_F(ToggleSecondary, DoesNothingWithOverlaysOrWithoutASecondSet) {
    NewFaultPlot(kFaults, kNoSecondary);
    ToggleSecondaryData();
    EXPECT_EQ(Record().ShowSecondary, 0);
    Record().SecondaryFormat = kSecondaryLine;
    AddOverlay(kOverlayLines, 10, 20, CodeOfStyleRow(2));
    ToggleSecondaryData();
    EXPECT_EQ(Record().ShowSecondary, 0);
}

using SecondaryOverlay = SecondaryData;

TEST_F(SecondaryOverlay, HoldsRowIAtNPlusI) {
    const int slot = NewFaultPlot({{60, 90, 60, 90},
                                   {kErrorRow, 0, 0, 0},
                                   {60, 90, -50, 60},
                                   {60, 90, kErrorRow, kErrorRow}});
    SetSecondaryButton(kOverlaySecondary, true);
    EXPECT_EQ(Record().OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(Record().OverlayRows[1], 4) << "error rows keep their place";
    EXPECT_EQ(Record().OverlayKind[1], kOverlayPolarLines);
    EXPECT_EQ(Record().SelectedOverlay, 1);
    EXPECT_EQ(Record().NumData, 4);
    EXPECT_EQ(Record().NumLoadedData, 8);
    EXPECT_EQ(Line(slot, 5), "60/090");
    EXPECT_EQ(gDataDip(slot, 6), kErrorRow);
    EXPECT_EQ(Line(slot, 7), "-50/060");
    EXPECT_EQ(gDataDip(slot, 8), kErrorRow);
    EXPECT_EQ(gDataSymbol(slot, 5), CodeOfStyleRow(kFirstOverlaySymbol + 1));
    EXPECT_EQ(gDataSymbol(slot, 7), CodeOfStyleRow(kFirstOverlaySymbol + 2)) << "upward";
    EXPECT_TRUE(IsSecondaryButtonDown(kOverlaySecondary));
    EXPECT_NE(Record().Modified, 0);
}

TEST_F(SecondaryOverlay, OfPlanesIsOfPolesAndCanBecomeGreatCircles) {
    const int slot = NewFaultPlot({{60, 90, 30, 180}}, kSecondaryPlane);
    SetSecondaryButton(kOverlaySecondary, true);
    EXPECT_EQ(Record().OverlayKind[1], kOverlayPoles);
    EXPECT_EQ(Cells(slot), (std::vector<int>{30, 60}));
    FigureLayer overlay;
    overlay.LayerOf = kLayerOfOverlay;
    overlay.LayerIndex = 1;
    ChooseData(PlotOf(slot), overlay);
    SetPlotSymbol(0);
    EXPECT_EQ(Record().OverlayKind[1], kOverlayGreatCircles);
}

TEST_F(SecondaryOverlay, TakesTheAppendedValuesAlong) {
    const int slot = NewFaultPlot({{60, 90, 60, 90}});
    Record().HasAppendedNumeric = kTrue;
    Record().HasAppendedText = kTrue;
    Record().HasAppendedLine = kTrue;
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Text));
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Line));
    gAppNumeric.At(slot, 1) = 2.5F;
    gAppText.Set(slot, 1, "fault A");
    gAppLineDip.At(slot, 1) = kInvalidAppendedLine;
    SetSecondaryButton(kOverlaySecondary, true);
    EXPECT_EQ(gAppNumeric(slot, 2), 2.5F);
    EXPECT_EQ(gAppText(slot, 2), "fault A");
    EXPECT_EQ(gAppLineDip(slot, 2), kInvalidAppendedLine);
}

TEST_F(SecondaryOverlay, GoesWithWhatWasLaidOverIt) {
    NewFaultPlot(kFaults);
    AddOverlay(kOverlayLines, 10, 20, CodeOfStyleRow(2));
    SetSecondaryButton(kOverlaySecondary, true);
    EXPECT_EQ(Record().SelectedOverlay, 2);
    AddOverlay(kOverlayLines, 30, 40, CodeOfStyleRow(2));
    SetSecondaryButton(kOverlaySecondary, false);
    EXPECT_EQ(Record().OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(Record().SelectedOverlay, 0);
    EXPECT_EQ(Record().NumLoadedData, 4);
    EXPECT_EQ(TableOf(gActivePlot).size(), 4U);
    SetSecondaryButton(kOverlaySecondary, false);
    EXPECT_EQ(Record().OverlayRows[kOverlayCount], 1) << "none of its own is left";
}

TEST_F(SecondaryOverlay, IsMadeOnce) {
    NewFaultPlot(kFaults);
    SetOverlaySecondary(true);
    SetOverlaySecondary(true);
    EXPECT_EQ(Record().OverlayRows[kOverlayCount], 1);
}

TEST_F(SecondaryOverlay, IsRefusedWhereTheSecondarySetIsPlotted) {
    NewFaultPlot(kFaults);
    ToggleSecondaryData();
    Expect("The secondary data is already plotted\nTo use this option you need to plot and "
           "process the primary data first");
    SetSecondaryButton(kOverlaySecondary, true);
    EXPECT_EQ(Record().OverlayRows[kOverlayCount], 0);
    EXPECT_FALSE(IsSecondaryButtonDown(kOverlaySecondary));
}

TEST_F(SecondaryOverlay, IsRefusedAsTheTwentyFirst) {
    NewFaultPlot(kFaults);
    for (int i = 0; i < kMaxOverlays; ++i) {
        AddOverlay(kOverlayLines, 10, 20, CodeOfStyleRow(2));
    }
    Expect("You can't overlay more than 20 datasets in any one plot.");
    SetSecondaryButton(kOverlaySecondary, true);
    EXPECT_EQ(Record().OverlayRows[kOverlayCount], kMaxOverlays);
}

TEST_F(SecondaryOverlay, KeepsTheRowsThatFoundMemory) {
    NewFaultPlot(kFaults);
    gPlatform.mostRows = 5;
    Expect("An error has been encountered. Not all the data will be plotted");
    SetSecondaryButton(kOverlaySecondary, true);
    gPlatform.mostRows = std::numeric_limits<std::int32_t>::max() / 2;
    EXPECT_EQ(Record().OverlayRows[1], 2);
    EXPECT_EQ(Record().NumLoadedData, 5);
    EXPECT_EQ(TableOf(gActivePlot).size(), 5U);
}

TEST_F(SecondaryOverlay, FollowsAChangeOfTheMainRows) {
    const int slot = NewFaultPlot(kFaults);
    SetSecondaryButton(kOverlaySecondary, true);
    SetSecondary(slot, 2, 20, 45);
    RefreshSecondaryOverlay();
    EXPECT_EQ(Line(slot, 5), "20/045");
    EXPECT_EQ(Cells(slot)[4], 20);
    AddOverlay(kOverlayLines, 30, 40, CodeOfStyleRow(2));
    SetSecondary(slot, 2, 21, 45);
    RefreshSecondaryOverlay();
    EXPECT_EQ(Line(slot, 5), "21/045");
    EXPECT_EQ(Line(slot, 7), "30/040");
}

using SlipOptions = SecondaryData;

TEST_F(SlipOptions, AloneShowTheSlipLinesWithArrows) {
    const int slot = NewFaultPlot(kFaults);
    SetSecondaryButton(kSlipArrowsAlone, true);
    EXPECT_NE(Record().ShowSecondary, 0);
    EXPECT_EQ(Record().DataKind, kLines);
    EXPECT_EQ(Record().PlotSymbolMode, kPointSymbols);
    EXPECT_NE(Record().DensityInvalid, 0);
    EXPECT_EQ(Record().SelectedOverlay, 0);
    EXPECT_EQ(Record().NumSymbolsInPlot, 1);
    EXPECT_EQ(Arrows(slot), 3);
    EXPECT_TRUE(IsSecondaryButtonDown(kSlipArrowsAlone));
    SetSecondaryButton(kSlipArrowsAlone, false);
    EXPECT_EQ(Record().DensityInvalid, 0);
    EXPECT_EQ(Record().NumSymbolsInPlot, 0);
    EXPECT_EQ(Record().PlotSymbolMode, kPointSymbols);
    EXPECT_EQ(Arrows(slot), 0);
}

TEST_F(SlipOptions, OnPlanesDrawGreatCirclesAndTheLinesAsAnOverlayWithArrows) {
    const int slot = NewFaultPlot(kFaults);
    SetSecondaryButton(kSlipArrowsOnPlanes, true);
    EXPECT_EQ(Record().ShowSecondary, 0);
    EXPECT_EQ(Record().DataKind, kPlanes);
    EXPECT_EQ(Record().PlotSymbolMode, kGreatCircles);
    EXPECT_EQ(Record().OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(Record().OverlayRows[1], 3);
    EXPECT_EQ(Record().OverlayKind[1], kOverlayPolarLines);
    EXPECT_EQ(Record().SelectedOverlay, 1);
    EXPECT_EQ(Record().NumLoadedData, 6);
    EXPECT_NE(Record().DensityInvalid, 0);
    EXPECT_EQ(Record().NumSymbolsInPlot, 2);
    EXPECT_EQ(Arrows(slot), 3);
    for (std::int32_t row = 1; row <= 3; ++row) {
        const float inOverlay = SlipArrowAngle(PlotOf(slot), 3 + row);
        Record().ShowSecondary = kTrue;
        Record().DataKind = kLines;
        EXPECT_FLOAT_EQ(inOverlay, SlipArrowAngle(PlotOf(slot), row)) << "that of the line alone";
        Record().ShowSecondary = 0;
    }
}

TEST_F(SlipOptions, OnPolesShowTheFirstSetAsPolarLines) {
    const int slot = NewFaultPlot(kFaults);
    ToggleSecondaryData();
    SetSecondaryButton(kSlipArrowsOnPoles, true);
    EXPECT_EQ(Record().ShowSecondary, 0);
    EXPECT_EQ(Record().DataKind, kPolarLines);
    EXPECT_EQ(Record().PlotSymbolMode, kPointSymbols);
    EXPECT_EQ(Record().NumSymbolsInPlot, 3);
    EXPECT_EQ(Arrows(slot), 3);
    std::vector<int> cells = Cells(slot);
    std::ranges::sort(cells);
    EXPECT_EQ(cells, (std::vector<int>{10, 30, 30})) << "poles";
}

// Kept: after the arrows on planes.
TEST_F(SlipOptions, ReleasedOnPlanesLeaveTheGreatCirclesAndTheLines) {
    const int slot = NewFaultPlot(kFaults);
    SetSecondaryButton(kSlipArrowsOnPlanes, true);
    SetSecondaryButton(kSlipArrowsOnPlanes, false);
    EXPECT_EQ(Record().PlotSymbolMode, kGreatCircles);
    EXPECT_EQ(Record().OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(Record().SelectedOverlay, 0);
    EXPECT_EQ(Record().NumSymbolsInPlot, 0);
    EXPECT_EQ(Arrows(slot), 0);
    SetSecondaryButton(kSlipArrowsOnPlanes, true);
    EXPECT_EQ(Record().OverlayRows[kOverlayCount], 1) << "in the place of the lines that were left";
    EXPECT_EQ(Record().NumLoadedData, 6);
}

TEST_F(SlipOptions, ReleasedOnPolesLeaveAnOverlayThatTheyDidNotMake) {
    NewFaultPlot(kFaults);
    SetSecondaryButton(kSlipArrowsOnPoles, true);
    AddOverlay(kOverlayLines, 10, 20, CodeOfStyleRow(2));
    Record().PlotSymbolMode = kGreatCircles;
    SetSecondaryButton(kSlipArrowsOnPoles, false);
    EXPECT_EQ(Record().OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(Record().PlotSymbolMode, kPointSymbols);
}

TEST_F(SlipOptions, GiveWayToOneAnotherWithoutAQuestion) {
    NewFaultPlot(kFaults);
    const int order[] = {kSlipArrowsAlone,    kSlipArrowsOnPlanes, kSlipArrowsOnPoles,
                         kSlipArrowsOnPlanes, kSlipArrowsAlone,    kSlipArrowsOnPoles};
    for (const int button : order) {
        SetSecondaryButton(button, true);
        for (int other = kSlipArrowsAlone; other <= kSlipArrowsOnPoles; ++other) {
            EXPECT_EQ(IsSecondaryButtonDown(other), other == button);
        }
        EXPECT_EQ(Record().OverlayRows[kOverlayCount], button == kSlipArrowsOnPlanes ? 1 : 0);
        EXPECT_EQ(Record().ShowSecondary != 0, button == kSlipArrowsAlone);
    }
}

TEST_F(SlipOptions, AskBeforeTheyRemoveAnOverlayOfTheUser) {
    for (const int button : {kSlipArrowsAlone, kSlipArrowsOnPoles}) {
        NewFaultPlot(kFaults);
        AddOverlay(kOverlayLines, 10, 20, CodeOfStyleRow(2));
        Expect(kRemoves, Button::Cancel);
        SetSecondaryButton(button, true);
        EXPECT_EQ(Record().OverlayRows[kOverlayCount], 1);
        EXPECT_EQ(Record().NumSymbolsInPlot, 0);
        Expect(kRemoves);
        SetSecondaryButton(button, true);
        EXPECT_EQ(Record().OverlayRows[kOverlayCount], 0);
        EXPECT_TRUE(IsSecondaryButtonDown(button));
    }
}

// Kept: the arrows on planes take the place of an overlay without a question.
TEST_F(SlipOptions, OnPlanesTakeThePlaceOfAnOverlayWithoutAQuestion) {
    const int slot = NewFaultPlot(kFaults);
    AddOverlay(kOverlayLines, 10, 20, CodeOfStyleRow(2));
    SetSecondaryButton(kSlipArrowsOnPlanes, true);
    EXPECT_EQ(Record().OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(Line(slot, 4), "60/090");
}

TEST_F(SlipOptions, AreRefusedWithSeveralOverlays) {
    NewFaultPlot(kFaults);
    AddOverlay(kOverlayLines, 10, 20, CodeOfStyleRow(2));
    AddOverlay(kOverlayLines, 10, 20, CodeOfStyleRow(2));
    for (int button = kSlipArrowsAlone; button <= kSlipArrowsOnPoles; ++button) {
        Expect(kTooMany);
        SetSecondaryButton(button, true);
    }
    EXPECT_EQ(Record().OverlayRows[kOverlayCount], 2);
    EXPECT_EQ(Record().NumSymbolsInPlot, 0);
}

TEST_F(SlipOptions, AskWhetherOtherDataMayStandForFaults) {
    const int slot = NewFaultPlot(kFaults, kSecondaryPlane);
    Record().PrimaryFormat = kPrimaryLine;
    Record().DataKind = kLines;
    RebuildRowTable(slot);
    Expect(kNotPlanes, Button::Cancel);
    SetSecondaryButton(kSlipArrowsOnPoles, true);
    EXPECT_EQ(Record().PrimaryFormat, kPrimaryLine);
    Expect(kNotPlanes);
    Expect(kNotLines, Button::Cancel);
    SetSecondaryButton(kSlipArrowsOnPoles, true);
    EXPECT_EQ(Record().PrimaryFormat, kPrimaryLine) << "nothing has changed";
    EXPECT_EQ(Record().NumSymbolsInPlot, 0);
    Expect(kNotPlanes);
    Expect(kNotLines);
    SetSecondaryButton(kSlipArrowsOnPoles, true);
    EXPECT_EQ(Record().PrimaryFormat, kPrimaryPlane);
    EXPECT_EQ(Record().SecondaryFormat, kSecondaryPlane);
    std::vector<int> cells = Cells(slot);
    std::ranges::sort(cells);
    EXPECT_EQ(cells, (std::vector<int>{10, 30, 30})) << "the first set is planes now";
}

TEST_F(SlipOptions, EndWhenAnOverlayOfTheSecondaryDataIsLaidOverOrTakenOff) {
    NewFaultPlot(kFaults);
    SetSecondaryButton(kSlipArrowsOnPoles, true);
    SetSecondaryButton(kOverlaySecondary, true);
    EXPECT_EQ(Record().NumSymbolsInPlot, 0);
    EXPECT_EQ(Record().DensityInvalid, 0);
    SetSecondaryButton(kOverlaySecondary, false);
    SetSecondaryButton(kSlipArrowsOnPlanes, true);
    SetSecondaryButton(kOverlaySecondary, false);
    EXPECT_EQ(Record().NumSymbolsInPlot, 0);
    EXPECT_EQ(Record().OverlayRows[kOverlayCount], 0);
}

TEST_F(SlipOptions, DoNothingInARoseInAnEmptyPlotWithoutASecondSetOrWhileBusy) {
    const auto pressAll = [] {
        for (int button = kOverlaySecondary; button <= kSlipArrowsOnPoles; ++button) {
            SetSecondaryButton(button, true);
        }
        return Record().NumSymbolsInPlot == 0 && Record().OverlayRows[kOverlayCount] == 0;
    };
    NewFaultPlot(kFaults, kNoSecondary);
    EXPECT_TRUE(pressAll());
    NewFaultPlot({{kErrorRow, 0, 0, 0}});
    EXPECT_TRUE(pressAll());
    NewFaultPlot(kFaults);
    Record().PlotKind = kRose;
    EXPECT_TRUE(pressAll());
    Record().PlotKind = kEqualArea;
    gBusy = true;
    EXPECT_TRUE(pressAll());
    gBusy = false;
    gActivePlot = 0;
    SetSecondaryButton(kSlipArrowsAlone, true);
    EXPECT_FALSE(IsSecondaryButtonDown(kSlipArrowsAlone));
}

TEST_F(SlipOptions, AreDrawnOnTheSetInTheColourAndSizeOfTheirRow) {
    const int slot = NewFaultPlot({{60, 90, -60, 90}}); // a sense is given, so that there are heads
    gDataSymbol.At(slot, 1) = CodeOfStyleRow(7);
    SetSecondaryButton(kSlipArrowsOnPoles, true);
    for (const DrawOperation& operation : DrawnOn(Form(slot).Plot())) {
        if (operation.kind == DrawOperation::Kind::Markers && operation.text.starts_with("50/")) {
            const SymbolCode code = CodeOfStyleRow(7);
            EXPECT_EQ(operation.text.substr(0, operation.text.rfind('/')),
                      "50/" + std::to_string(CodeSize(code)));
            EXPECT_EQ(operation.colour, TableColour(CodeColour(code)));
        }
    }
    EXPECT_EQ(Arrows(slot), 1);
}

} // namespace
} // namespace quandrel
