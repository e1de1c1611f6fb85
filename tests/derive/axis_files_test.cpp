// SPDX-License-Identifier: MIT

#include "core/replot.h"
#include "core/settings_value.h"
#include "derive/fault_plot.h"
#include "derive/intersection_lines.h"
#include "derive/kinematic_plots.h"
#include "drawing/plot_state.h"
#include "input/file_loading.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/open_plot.h"
#include "stereo/axis_rows.h"

#include <set>

namespace quandrel {
namespace {

/// The third fault has a horizontal T axis, which no sign distinguishes from a P axis.
const std::vector<FaultRow> kFaults = {
    {60, 90, 60, 90}, {60, 90, -60, 90}, {90, 90, 0, 0}, {kErrorRow, 0, 0, 0}, {30, 10, 30, 10}};

class AxisFiles : public FaultTest {
protected:
    int MakeAxes(int index, std::optional<SlipSense> assumed = std::nullopt) {
        NewFaultPlot(kFaults);
        EXPECT_TRUE(MakeKinematicPlots(index, assumed));
        return gActivePlot;
    }

    /// Saves the active plot to a file and opens the file. Returns the slot of the new plot.
    int ThroughFile(const std::string& name) {
        const std::string path = (folder / name).string();
        EXPECT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
        EXPECT_NE(OpenPlotFile(kNewCommand, path, FormatDialog::ForeignFiles), kLoadError);
        return gActivePlot;
    }

    /// The places on the net of a plot's valid rows, whatever their order.
    static std::multiset<std::string> PlacesOf(int slot) {
        std::multiset<std::string> places;
        for (std::size_t place = 0; place < TableOf(slot).size(); ++place) {
            const std::string x = RowTableText(TableOf(slot), place, 1);
            if (!x.empty()) {
                places.insert(x + " " + RowTableText(TableOf(slot), place, 2));
            }
        }
        return places;
    }

    /// What is known of each valid row: axis, text, orientation, symbol.
    static std::vector<std::string> RowsOf(int slot) {
        std::vector<std::string> rows;
        for (std::int32_t row = 1; row <= RecordOf(slot).NumData; ++row) {
            if (gDataDip(slot, row) != kErrorRow) {
                rows.push_back(std::string(AxisOfRow(PlotOf(slot), gSettings.styles, row)
                                                   == AxisKind::Extension
                                               ? "T"
                                               : "P")
                               + " " + std::string(gAppText(slot, row)) + " " + Line(slot, row)
                               + " " + SymbolCodeText(gDataSymbol(slot, row)));
            }
        }
        return rows;
    }
};

TEST_F(AxisFiles, TextBringsBackAxesAndParentRows) {
    const int child = MakeAxes(kAxesOnOnePlot);
    const std::vector<std::string> rows = RowsOf(child);
    ASSERT_EQ(rows.size(), 8U);
    const std::string up = SymbolCodeText(CodeOfStyleRow(kDerivedUpSymbol));
    EXPECT_EQ(rows[5], "T T 3 0/225 " + up) << "horizontal";
    EXPECT_EQ(rows[7].substr(0, 5), "T T 5");
    const int read = ThroughFile("axes.txt");
    ASSERT_NE(read, child);
    EXPECT_EQ(RowsOf(read), rows);
    EXPECT_EQ(RecordOf(read).AxesTitle, "P & T");
    EXPECT_EQ(RecordOf(read).AppNonNumName, kAxisColumn);
    EXPECT_EQ(RecordOf(read).NumValidData, 4) << "faults";
    EXPECT_EQ(RecordOf(read).DataKind, kPolarLines);
    EXPECT_NE(Form(read).Caption().find("[P & T axes]"), std::string::npos) << Form(read).Caption();
}

TEST_F(AxisFiles, TextOfOnePlotOfTwoBringsBackItsAxis) {
    const int child = MakeAxes(kAxesOnTwoPlots);
    const std::vector<std::string> rows = RowsOf(child);
    const int read = ThroughFile("t.txt");
    EXPECT_EQ(RowsOf(read), rows);
    EXPECT_EQ(RecordOf(read).AxesTitle, "T");
    EXPECT_EQ(RecordOf(read).NumValidData, 4);
}

TEST_F(AxisFiles, BinaryFilesBringBackAllOfIt) {
    const int child = MakeAxes(kAxesOnOnePlot);
    const std::vector<std::string> rows = RowsOf(child);
    const int read = ThroughFile("axes.qpx");
    ASSERT_NE(read, child);
    EXPECT_EQ(RowsOf(read), rows);
    EXPECT_EQ(RecordOf(read).AxesTitle, "P & T");
}

TEST_F(AxisFiles, KeepThatASenseWasAssumed) {
    for (const char* name : {"assumed.txt", "assumed.qpx"}) {
        gPrimaryDataType = kPrimaryPlane;
        NewFaultPlot({{60, 90, 60, 90}});
        ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot, SlipSense::Reverse));
        const int read = ThroughFile(name);
        EXPECT_EQ(AssumedSense(RecordOf(read)), SlipSense::Reverse) << name;
        EXPECT_EQ(Line(read, 1 + RecordOf(read).NumData - 2), "15/090") << name;
    }
}

TEST_F(AxisFiles, TextOfIntersectionsKeepsTheRowsOfTheirPlanes) {
    NewFaultPlot({{45, 0, 45, 90}, {kErrorRow, 0, 0, 0}, {45, 0, 45, 270}}, kSecondaryPlane);
    ASSERT_TRUE(MakeIntersectionPlot());
    const int read = ThroughFile("lines.txt");
    const std::int32_t last = RecordOf(read).NumData;
    EXPECT_EQ(gAppText(read, last - 1), "1");
    EXPECT_EQ(gAppText(read, last), "3");
    EXPECT_EQ(RecordOf(read).AppNonNumName, kRowColumn);
    EXPECT_EQ(RecordOf(read).AxesTitle, "");
}

TEST_F(AxisFiles, ATextThatIsNoAxisLeavesThePlotAsLines) {
    const int child = MakeAxes(kAxesOnOnePlot);
    gAppText.Set(child, 3, "granite");
    const int read = ThroughFile("mixed.txt");
    EXPECT_EQ(RecordOf(read).AxesTitle, "");
    EXPECT_EQ(RecordOf(read).NumValidData, 8);
}

TEST_F(AxisFiles, OfContoursOverBothOpenAsPointsWithAWord) {
    const int child = MakeAxes(kAxesOnOnePlot);
    RecordOf(child).PlotSymbolMode = kContoursAndGrid; // as earlier versions could save it
    Expect(std::string(kOpensAsPoints) + kMixedAxesRefusal);
    const int read = ThroughFile("contours.qpx");
    ASSERT_NE(read, child);
    EXPECT_EQ(RecordOf(read).PlotSymbolMode, kPointSymbols);
}

TEST_F(AxisFiles, OfARoseOfBothOpenAsANetWithAWord) {
    const int child = MakeAxes(kAxesOnOnePlot);
    RecordOf(child).PlotKind = kRose; // as earlier versions could save it
    Expect(std::string(kOpensAsNet) + kMixedRoseRefusal);
    const int read = ThroughFile("rose.qpx");
    ASSERT_NE(read, child);
    EXPECT_EQ(RecordOf(read).PlotKind, kEqualArea);
}

TEST_F(AxisFiles, TextOfBothReadAsARoseOpensAsANetWithAWord) {
    const int child = MakeAxes(kAxesOnOnePlot);
    const std::vector<std::string> rows = RowsOf(child);
    const std::multiset<std::string> places = PlacesOf(child);
    RecordOf(child).PlotKind = kRose; // as earlier versions could save it
    Expect(std::string(kOpensAsNet) + kMixedRoseRefusal);
    const int read = ThroughFile("rose.txt");
    ASSERT_NE(read, child);
    EXPECT_EQ(RecordOf(read).PlotKind, kEqualArea);
    EXPECT_EQ(RowsOf(read), rows);
    EXPECT_EQ(PlacesOf(read), places) << "the places are those of a net";
}

TEST_F(AxisFiles, ARoseOfBothIsRefusedAndOneOfAKindIsNot) {
    const int child = MakeAxes(kAxesOnOnePlot);
    Expect(kMixedRoseRefusal);
    ChangePlotKind(kRose);
    EXPECT_EQ(RecordOf(child).PlotKind, kEqualArea);
    RecordOf(child).AxesTitle = kExtensionAxes;
    ChangePlotKind(kRose);
    EXPECT_EQ(RecordOf(child).PlotKind, kRose);
}

TEST_F(AxisFiles, AnEditThatBringsBackBothAxesBringsBackNoRose) {
    const int child = MakeAxes(kAxesOnOnePlot);
    const std::multiset<std::string> places = PlacesOf(child);
    RecordOf(child).AxesTitle.clear(); // points were added
    ChangePlotKind(kRose);
    RecordOf(child).AxesTitle = kBothAxes; // and taken back
    ReplotActivePlot(false);
    EXPECT_EQ(RecordOf(child).PlotKind, kEqualArea);
    EXPECT_EQ(PlacesOf(child), places);
}

TEST_F(AxisFiles, DensitiesAndContoursOverBothAreRefused) {
    const int child = MakeAxes(kAxesOnOnePlot);
    for (int button = 3; button <= kLastModeButton; ++button) {
        Expect(kMixedAxesRefusal);
        SetPlotSymbol(button);
        EXPECT_EQ(RecordOf(child).PlotSymbolMode, kPointSymbols);
    }
    RecordOf(child).AxesTitle = kShorteningAxes;
    SetPlotSymbol(5);
    EXPECT_EQ(RecordOf(child).PlotSymbolMode, kContours);
}

TEST_F(AxisFiles, AnEditThatBringsBackBothAxesBringsBackNoContours) {
    const int child = MakeAxes(kAxesOnOnePlot);
    RecordOf(child).AxesTitle.clear(); // points were added
    SetPlotSymbol(5);
    RecordOf(child).AxesTitle = kBothAxes; // and taken back
    ReplotActivePlot(false);
    EXPECT_EQ(RecordOf(child).PlotSymbolMode, kPointSymbols);
}

TEST(AxisText, IsReadAsItIsWrittenAndNothingElseIs) {
    for (const std::int32_t row : {1, 12, 2147483647}) {
        for (const AxisKind kind : {AxisKind::Shortening, AxisKind::Extension}) {
            const auto source = ReadAxisText(AxisText(kind, row));
            ASSERT_TRUE(source);
            EXPECT_EQ(source->kind, kind);
            EXPECT_EQ(source->parentRow, row);
        }
    }
    for (const char* text : {"", "P", "P ", "T x", "P 1x", "P -1", "P 0", "Q 1", "P  1", "p 1"}) {
        EXPECT_FALSE(ReadAxisText(text)) << text;
    }
}

} // namespace
} // namespace quandrel
