// SPDX-License-Identifier: MIT

#include "derive/derived_plots.h"
#include "derive/fault_plot.h"

namespace quandrel {
namespace {

class DerivedPlots : public FaultTest {};

TEST(RestOfTitle, CutsAPlotAndItsNumberAndNothingElse) {
    const std::pair<const char*, const char*> cases[] = {
        {"Plot 1: Untitled", ": Untitled"},
        {"Plot 12: Untitled + a.txt", ": Untitled + a.txt"},
        {"Plot 3", ""},
        {"lofoten.txt: 1", ": lofoten.txt: 1"},
        {"Plot of faults.txt: 1", ": Plot of faults.txt: 1"},
        {"Plot 1 north.txt: 1", ": Plot 1 north.txt: 1"},
        {"Plots 1: x", ": Plots 1: x"},
        {"", ": "},
        {"Plot ", ": Plot "},
    };
    for (const auto& [title, rest] : cases) {
        EXPECT_EQ(RestOfTitle(title), rest) << title;
    }
}

TEST(LeftBeside, KeepsThreeQuartersOfTheWindowOnTheScreen) {
    EXPECT_EQ(LeftBeside(100, 400, 400, 1920), 500);
    EXPECT_EQ(LeftBeside(1220, 400, 400, 1920), 1620) << "1620 + 300 is just on it";
    EXPECT_EQ(LeftBeside(1221, 400, 400, 1920), 1521) << "a step of a quarter";
    EXPECT_EQ(LeftBeside(1900, 400, 400, 1920), 1600);
    EXPECT_EQ(LeftBeside(0, 10, 2, 5), 2) << "windows of zero width end, too";
}

TEST_F(DerivedPlots, DescribeTheirOriginInALineOfItsOwn) {
    PlotRecord record;
    DescribeDerivation(record, "a.txt: 1", "axes of 1 of 2 faults");
    EXPECT_EQ(record.DescriptionText, "Derived from a.txt: 1: axes of 1 of 2 faults");
    record.DescriptionText += "\nMy own words";
    DescribeDerivation(record, "a.txt: 1", "axes of 2 of 2 faults");
    EXPECT_EQ(record.DescriptionText, "Derived from a.txt: 1: axes of 2 of 2 faults\nMy own words");
    record.DescriptionText = "North quarry";
    DescribeDerivation(record, "a.txt: 1", "x");
    EXPECT_EQ(record.DescriptionText, "Derived from a.txt: 1: x\nNorth quarry");
    record.DescriptionText = "North quarry\nDerived from b: y\nend";
    DescribeDerivation(record, "a", "x");
    EXPECT_EQ(record.DescriptionText, "North quarry\nDerived from a: x\nend");
}

TEST_F(DerivedPlots, LoseTheirParentWhenItCloses) {
    const int parent = NewPlot();
    const int axes = NewPlot();
    const int other = NewPlot();
    RecordOf(axes).KinematicState = static_cast<std::int16_t>(parent);
    RecordOf(axes).AxesTitle = kBothAxes;
    RecordOf(other).KinematicState = static_cast<std::int16_t>(axes);
    BreakDerivedLinks(parent);
    EXPECT_EQ(RecordOf(axes).KinematicState, 0);
    EXPECT_EQ(RecordOf(axes).AxesTitle, kBothAxes);
    EXPECT_EQ(RecordOf(other).KinematicState, axes);
}

TEST_F(DerivedPlots, ClosingOneOfAxesLeavesTheParentItsIntersections) {
    const int parent = NewPlot();
    const int axes = NewPlot();
    const int lines = NewPlot();
    RecordOf(parent).IntersectionState = static_cast<std::int16_t>(lines);
    RecordOf(axes).KinematicState = static_cast<std::int16_t>(parent);
    RecordOf(lines).KinematicState = static_cast<std::int16_t>(parent);
    BreakDerivedLinks(axes);
    EXPECT_EQ(RecordOf(parent).IntersectionState, lines);
    BreakDerivedLinks(lines);
    EXPECT_EQ(RecordOf(parent).IntersectionState, 0);
}

TEST_F(DerivedPlots, ClosingAPlotThatIsNotOpenChangesNothing) {
    const int parent = NewPlot();
    RecordOf(parent).IntersectionState = 7;
    BreakDerivedLinks(7);
    BreakDerivedLinks(0);
    EXPECT_EQ(RecordOf(parent).IntersectionState, 7);
}

TEST_F(DerivedPlots, AxesThatBecomeMeasuredLinesCountEachForItself) {
    PlotRecord record;
    record.AxesTitle = kBothAxes;
    record.NumValidData = 3;
    record.NumData = 6;
    record.KinematicState = 1;
    TakeAxesAsLines(record);
    EXPECT_EQ(record.AxesTitle, "");
    EXPECT_EQ(record.NumValidData, 6);
    EXPECT_EQ(record.KinematicState, 1);
    record.AxesTitle = kExtensionAxes;
    record.NumValidData = 2;
    TakeAxesAsLines(record);
    EXPECT_EQ(record.NumValidData, 2);
}

} // namespace
} // namespace quandrel
