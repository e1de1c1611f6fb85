// SPDX-License-Identifier: MIT

#include "core/plot_life.h"
#include "core/replot.h"
#include "derive/derived_plots.h"
#include "derive/fault_plot.h"
#include "derive/kinematic_plots.h"

#include <limits>

namespace quandrel {
namespace {

constexpr const char* kLostParent =
    "The parent data set for this P/T kinematic plot can no longer be recognised "
    "and cannot be processed further";

/// A normal fault, a reverse one on the same plane, a vertical strike-slip fault. Their axes by
/// hand: 75/270 and 15/090; exchanged; 0/315 and 0/225.
const std::vector<FaultRow> kThreeFaults = {{60, 90, 60, 90}, {60, 90, -60, 90}, {90, 90, 0, 0}};

const std::vector<std::string> kShortening = {"75/270", "15/090", "0/315"};
const std::vector<std::string> kExtension = {"-15/090", "-75/270", "0/225"};
const std::vector<std::string> kBoth = {"75/270", "-15/090", "15/090", "-75/270", "0/315", "0/225"};

class KinematicPlots : public FaultTest {
protected:
    /// Makes axes of the active plot and returns the slot that is then active.
    static int Make(int index) {
        EXPECT_TRUE(MakeKinematicPlots(index));
        return gActivePlot;
    }

    static const PlotRecord& Of(int slot) { return RecordOf(slot); }
};

TEST_F(KinematicPlots, HaveTheChoiceOfFormulasOfTheirParent) {
    for (const std::int16_t choice : {kFormulasOfPreferences, kOwnFormulas, kTextbookFormulas}) {
        const int parent = NewFaultPlot(kThreeFaults);
        RecordOf(parent).PlotFormulas = choice;
        const int second = Make(kAxesOnTwoPlots);
        EXPECT_EQ(Of(second).PlotFormulas, choice);
        EXPECT_EQ(Of(second - 1).PlotFormulas, choice);
    }
}

TEST_F(KinematicPlots, OnOnePlotPutEachTRowBehindItsPRow) {
    const int parent = NewFaultPlot(kThreeFaults);
    const int child = Make(kAxesOnOnePlot);
    EXPECT_NE(child, parent);
    EXPECT_EQ(Lines(child), kBoth);
    EXPECT_EQ(Of(child).NumValidData, 3) << "faults, not axes";
    EXPECT_EQ(Of(child).NumData, 6);
    EXPECT_EQ(Of(child).NumLoadedData, 6);
    EXPECT_EQ(Of(child).KinematicState, parent);
    EXPECT_EQ(Of(child).AxesTitle, "P & T");
    EXPECT_EQ(Of(child).PlotTitle, "Plot 2: faults.txt: 1");
    EXPECT_EQ(Of(child).DataKind, kPolarLines);
    EXPECT_EQ(Of(child).PrimaryFormat, kPrimaryLine);
    EXPECT_EQ(Of(child).SecondaryFormat, kNoSecondary);
    EXPECT_EQ(NumberOf(Of(child).KinematicBlock[0]), 1);
    EXPECT_EQ(NumberOf(Of(child).KinematicBlock[1]), 2);
    for (std::size_t i = 2; i < Of(child).KinematicBlock.size(); ++i) {
        EXPECT_FALSE(IsEmpty(Of(child).KinematicBlock[i])) << i;
        EXPECT_EQ(NumberOf(Of(child).KinematicBlock[i]), 0) << i;
    }
    EXPECT_EQ(Form(child).Told(PlotBox::NumberOfData), "3");
    EXPECT_EQ(Form(child).Caption(), "Plot 2: faults.txt: 1   [P & T axes]");
    EXPECT_EQ(Of(child).Modified, 0);
    EXPECT_EQ(Of(parent).Modified, 0);
    EXPECT_EQ(TableOf(child).size(), 6U);
}

TEST_F(KinematicPlots, WithContoursAreContouredOnAPlotEach) {
    NewFaultPlot(kThreeFaults);
    const int second = Make(kContouredAxes);
    const int first = second - 1;
    EXPECT_EQ(Lines(first), kShortening);
    EXPECT_EQ(Lines(second), kExtension);
    EXPECT_EQ(Of(first).AxesTitle, "P");
    EXPECT_EQ(Of(second).AxesTitle, "T");
    EXPECT_EQ(Of(first).PlotSymbolMode, kContours);
    EXPECT_EQ(Of(second).PlotSymbolMode, kContours);
    EXPECT_EQ(CountOpenPlots(), 3);
}

TEST_F(KinematicPlots, OnTwoPlotsHaveOneRowNumberForAFault) {
    const int parent = NewFaultPlot(kThreeFaults);
    const int second = Make(kAxesOnTwoPlots);
    const int first = second - 1;
    EXPECT_EQ(Form(second).Neighbour(), &Form(first));
    EXPECT_EQ(Lines(first), kShortening);
    EXPECT_EQ(Lines(second), kExtension);
    EXPECT_EQ(Of(first).AxesTitle, "P");
    EXPECT_EQ(Of(second).AxesTitle, "T");
    for (const int slot : {first, second}) {
        EXPECT_EQ(Of(slot).NumValidData, 3);
        EXPECT_EQ(Of(slot).NumData, 3);
        EXPECT_EQ(Of(slot).NumLoadedData, 3);
        EXPECT_EQ(Of(slot).KinematicState, parent);
        EXPECT_EQ(Form(slot).Told(PlotBox::NumberOfData), "3");
    }
}

TEST_F(KinematicPlots, GiveEachAxisItsOwnSymbolHorizontalOnesToo) {
    NewFaultPlot(kThreeFaults);
    const int child = Make(kAxesOnOnePlot);
    for (std::int32_t row = 1; row <= 6; ++row) {
        const SymbolCode code = CodeOfStyleRow(row % 2 == 1 ? kDerivedSymbol : kDerivedUpSymbol);
        EXPECT_EQ(gDataSymbol(child, row), code) << row;
        EXPECT_EQ(gDataSymbolBase(child, row), code) << row;
    }
}

TEST_F(KinematicPlots, LeaveOutAndTellOfFaultsWithoutAxes) {
    NewFaultPlot({{60, 90, 60, 90},
                  {60, 90, 70, 90},
                  {kErrorRow, 0, 0, 0},
                  {60, 90, kErrorRow, kErrorRow},
                  {60, 90, -69, 90}});
    const int child = Make(kAxesOnOnePlot);
    EXPECT_EQ(Of(child).NumValidData, 2);
    EXPECT_EQ(Of(child).NumData, 4);
    EXPECT_EQ(Of(child).DescriptionText,
              "Derived from faults.txt: 1: P and T axes of 2 of 4 faults; 1 left out: slip line "
              "10 degrees or more off the fault plane; 1 left out: no slip line");
}

TEST_F(KinematicPlots, ReadTheColumnsWhicheverSetIsShown) {
    const int parent = NewFaultPlot(kThreeFaults);
    ActiveRecord().ShowSecondary = kTrue;
    SetSecondary(parent, 2, kErrorRow, kErrorRow);
    RebuildRowTable(parent);
    Expect(kSenseQuestion, Button::Yes);
    const int child = Make(kAxesOnOnePlot);
    EXPECT_EQ(Lines(child), (std::vector<std::string>{"75/270", "-15/090", "0/315", "0/225"}));
    EXPECT_NE(Of(child).DescriptionText.find("2 of 3 faults; 1 left out: no slip line"),
              std::string::npos);
}

TEST_F(KinematicPlots, FollowTheOrderOfTheParentsRows) {
    // Poles at 30/270, 30/090: the drawing sorts the table by x, but the order of the parent's rows
    // does not change.
    NewFaultPlot({{60, 270, 60, 270}, {kErrorRow, 0, 0, 0}, {60, 90, 60, 90}, {60, 90, -60, 90}});
    ReplotActivePlot(true);
    const int second = Make(kAxesOnTwoPlots);
    EXPECT_EQ(Lines(second - 1), (std::vector<std::string>{"75/090", "75/270", "15/090"}));
    EXPECT_EQ(gAppText(second - 1, 1), "P 1");
    EXPECT_EQ(gAppText(second - 1, 2), "P 3");
    EXPECT_EQ(gAppText(second, 3), "T 4");
    EXPECT_EQ(Of(second).AppNonNumName, kAxisColumn);
}

TEST_F(KinematicPlots, LeaveOverlayRowsOfTheParentAlone) {
    NewFaultPlot({{60, 90, -60, 90}});
    AddOverlay(kOverlayPolarLines, 60, 90, CodeOfStyleRow(2));
    EXPECT_EQ(Of(Make(kAxesOnOnePlot)).NumValidData, 1);
}

TEST_F(KinematicPlots, AreRecomputedAfterAnEditOfTheParent) {
    const int parent = NewFaultPlot(kThreeFaults);
    const int child = Make(kAxesOnOnePlot);
    RecordOf(child).PlotSymbolMode = kContours;
    SetSecondary(parent, 1, -60, 90);
    gActivePlot = child;
    EXPECT_EQ(Make(kAxesOnOnePlot), child);
    EXPECT_EQ(Line(child, 1), "15/090");
    EXPECT_EQ(Of(child).NumData, 6);
    EXPECT_EQ(TableOf(child).size(), 6U);
    EXPECT_EQ(Of(child).PlotSymbolMode, kPointSymbols) << "never contours of both";
    EXPECT_EQ(CountOpenPlots(), 2);
}

TEST_F(KinematicPlots, ACommandToTheParentMakesFurtherPlots) {
    const int parent = NewFaultPlot(kThreeFaults);
    const int child = Make(kAxesOnOnePlot);
    gActivePlot = parent;
    EXPECT_NE(Make(kAxesOnOnePlot), child);
    EXPECT_EQ(CountOpenPlots(), 3);
}

TEST_F(KinematicPlots, TwoPlotsAreRecomputedTogetherFromEither) {
    const int parent = NewFaultPlot(kThreeFaults);
    const int second = Make(kAxesOnTwoPlots);
    const int first = second - 1;
    for (const int slot : {first, second}) {
        SetSecondary(parent, 1, -60, 90);
        gActivePlot = slot;
        EXPECT_EQ(Make(kAxesOnTwoPlots), second);
        EXPECT_EQ(Line(first, 1), "15/090");
        EXPECT_EQ(Line(second, 1), "-75/270");
        EXPECT_EQ(Of(first).AxesTitle, "P");
        EXPECT_EQ(Of(second).AxesTitle, "T");
        EXPECT_EQ(CountOpenPlots(), 3);
    }
}

TEST_F(KinematicPlots, TwoPlotsBecomeOneAndOneBecomesTwo) {
    NewFaultPlot(kThreeFaults);
    const int second = Make(kAxesOnTwoPlots);
    const int first = second - 1;
    EXPECT_EQ(Make(kAxesOnOnePlot), first) << "the plot of P stays";
    EXPECT_FALSE(IsOpenSlot(second));
    EXPECT_EQ(Lines(first), kBoth);
    const int again = Make(kAxesOnTwoPlots);
    EXPECT_EQ(Lines(first), kShortening);
    EXPECT_EQ(Lines(again), kExtension);
}

TEST_F(KinematicPlots, TakeNoOtherPlotOfTheParentForThePartner) {
    const int parent = NewFaultPlot(kThreeFaults);
    const int both = Make(kAxesOnOnePlot);
    gActivePlot = parent;
    const int second = Make(kAxesOnTwoPlots);
    const int lines = NewPlot(); // of intersections, or of axes that points were added to
    RecordOf(lines).KinematicState = static_cast<std::int16_t>(parent);
    gActivePlot = second;
    Make(kAxesOnTwoPlots);
    EXPECT_EQ(Of(both).AxesTitle, "P & T");
    EXPECT_EQ(Lines(both), kBoth);
    EXPECT_EQ(Of(lines).AxesTitle, "");
    EXPECT_EQ(CountOpenPlots(), 5);
}

TEST_F(KinematicPlots, OfAClosedParentAreNotRecomputedFromAnotherPlotInItsSlot) {
    const int parent = NewFaultPlot(kThreeFaults);
    const int child = Make(kAxesOnOnePlot);
    BreakDerivedLinks(parent);
    ClosePlot(parent);
    EXPECT_EQ(NewFaultPlot({{30, 0, 30, 0}}), parent) << "the slot is taken again";
    gActivePlot = child;
    Expect(kLostParent);
    EXPECT_FALSE(MakeKinematicPlots(kAxesOnOnePlot));
    EXPECT_EQ(Lines(child), kBoth);
}

TEST_F(KinematicPlots, GoBeforeTheirRowsWhenTheUserHasLaidSomethingOverThem) {
    NewFaultPlot(kThreeFaults);
    const int child = Make(kAxesOnOnePlot);
    AddOverlay(kOverlayLines, 10, 20, CodeOfStyleRow(2));
    Expect("This will remove the overlayed data in this plot.\nDo you want to continue?",
           Button::Cancel);
    EXPECT_FALSE(MakeKinematicPlots(kAxesOnOnePlot));
    EXPECT_EQ(Of(child).OverlayRows[kOverlayCount], 1);
    Expect("This will remove the overlayed data");
    EXPECT_TRUE(MakeKinematicPlots(kAxesOnOnePlot));
    EXPECT_EQ(Of(child).OverlayRows[kOverlayCount], 0);
    EXPECT_EQ(Of(child).NumLoadedData, 6);
}

TEST_F(KinematicPlots, TellWhenMemoryRunsOutAndCountNothing) {
    NewFaultPlot(kThreeFaults);
    gPlatform.mostRows = 3;
    Expect("An error has been encountered and plot could not be completed");
    EXPECT_FALSE(MakeKinematicPlots(kAxesOnOnePlot));
    gPlatform.mostRows = std::numeric_limits<std::int32_t>::max() / 2;
    EXPECT_EQ(ActiveRecord().NumValidData, 0);
    EXPECT_EQ(ActiveRecord().NumData, 0);
    EXPECT_EQ(TableOf(gActivePlot).size(), 0U);
    EXPECT_EQ(Line(gActivePlot, 1), "75/270") << "the rows so far stay in the columns";
}

TEST_F(KinematicPlots, OpenAllWindowsOrNone) {
    gMaxPlots = 2;
    const int parent = NewFaultPlot(kThreeFaults);
    Expect("You have too many plot windows already open");
    EXPECT_FALSE(MakeKinematicPlots(kAxesOnTwoPlots));
    EXPECT_EQ(CountOpenPlots(), 1);
    EXPECT_EQ(gActivePlot, parent);
    Make(kAxesOnOnePlot);
    Expect("You have too many plot windows already open");
    EXPECT_FALSE(MakeKinematicPlots(kAxesOnTwoPlots));
    EXPECT_EQ(Lines(gActivePlot), kBoth) << "the axes are as before";
}

TEST_F(KinematicPlots, AreStereoPlotsWhateverTheNextFileHolds) {
    NewFaultPlot(kThreeFaults);
    gPrimaryDataType = kDirections;
    EXPECT_EQ(Of(Make(kAxesOnOnePlot)).PlotKind, kEqualArea);
}

struct QuestionCase {
    const char* name;
    std::int16_t primary;
    std::int16_t secondary;
    std::vector<const char*> boxes;
    bool stops;
};

class CheckKinematicDataTest : public FaultTest,
                               public ::testing::WithParamInterface<QuestionCase> {};

TEST_P(CheckKinematicDataTest, AsksAndTells) {
    const QuestionCase& c = GetParam();
    const int slot = NewFaultPlot({{60, 90, 60, 90}}, c.secondary);
    ActiveRecord().PrimaryFormat = c.primary;
    for (const char* box : c.boxes) {
        Expect(box);
    }
    EXPECT_EQ(CheckKinematicData(), !c.stops);
    if (c.stops) {
        Expect(c.boxes.back());
        EXPECT_FALSE(MakeKinematicPlots(kAxesOnOnePlot));
        EXPECT_EQ(CountOpenPlots(), 1);
    }
    for (std::size_t cancelled = 0; !c.stops && cancelled < c.boxes.size(); ++cancelled) {
        for (std::size_t box = 0; box <= cancelled; ++box) {
            Expect(c.boxes[box], box == cancelled ? Button::Cancel : Button::Ok);
        }
        EXPECT_FALSE(MakeKinematicPlots(kAxesOnOnePlot));
        EXPECT_EQ(gActivePlot, slot);
        EXPECT_EQ(CountOpenPlots(), 1);
    }
}

constexpr const char* kAreLines =
    "You have indicated that your Primary data are lines not the planes required for the "
    "kinematic calculations\nWould you like to continue and treat this Primary data as planes "
    "anyway?";
constexpr const char* kArePlanes =
    "You have indicated during loading this data that your Secondary data consists of planes, not "
    "the lines required to be used as slip vectors.\nWould you like to continue and treat this "
    "Secondary data as lines?";
constexpr const char* kDirectional =
    "Your primary data is directional only and unsuitable for kinematic calculations";
constexpr const char* kNoSlip =
    "You don't have any Secondary line data in this plot to use as slip vectors.\n(Check that you "
    "are focussed on the correct plot)";

INSTANTIATE_TEST_SUITE_P(
    Formats, CheckKinematicDataTest,
    ::testing::Values(
        QuestionCase{"PlanesWithLines", kPrimaryPlane, kSecondaryLine, {}, false},
        QuestionCase{"PlanesWithPitches", kPrimaryPlane, kPitchInPlane, {}, false},
        QuestionCase{"LinesWithLines", kPrimaryLine, kSecondaryLine, {kAreLines}, false},
        QuestionCase{"PlanesWithPlanes", kPrimaryPlane, kSecondaryPlane, {kArePlanes}, false},
        QuestionCase{
            "LinesWithPlanes", kPrimaryLine, kSecondaryPlane, {kAreLines, kArePlanes}, false},
        QuestionCase{"Directions", kDirections, kSecondaryLine, {kDirectional}, true},
        QuestionCase{"NoFormat", 0, kSecondaryPlane, {kDirectional}, true},
        QuestionCase{"NoLines", kPrimaryPlane, kNoSecondary, {kNoSlip}, true}),
    [](const auto& each) { return std::string(each.param.name); });

} // namespace
} // namespace quandrel
