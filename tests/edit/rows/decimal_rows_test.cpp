// SPDX-License-Identifier: MIT
//
// Measured angles of rows that are copied, pasted and added by hand.

#include "edit/commands/edit_menu.h"
#include "edit/edit_plot.h"
#include "edit/marks/annotations.h"
#include "edit/rows/add_point.h"
#include "edit/rows/edit_rows.h"
#include "edit/selection/readout.h"
#include "input/file_loading.h"
#include "support/decimal_lines.h"

namespace quandrel {

namespace {

using Lines = std::vector<std::string>;

class RowsWithDecimals : public EditTest {
protected:
    /// A new plot with the rows of a text.
    int Load(const std::string& text) {
        AcceptFormat({}, 1000);
        NewPlot();
        EXPECT_EQ(ReadTextFile(kNewCommand, WriteFile("in.txt", text)), kNewCommand);
        return gActivePlot;
    }

    static void SelectAll(int slot) {
        std::vector<std::int32_t> rows;
        for (std::int32_t row = 1; row <= RecordOf(slot).NumLoadedData; ++row) {
            rows.push_back(row);
        }
        SelectRows(slot, std::move(rows));
    }

    static Attitude Measured(std::int32_t row, RowAngles which = RowAngles::Primary) {
        return MeasuredAttitude(ActivePlot().rows, which, row);
    }

    static Attitude Whole(std::int32_t row) {
        return WholeAttitude(ActivePlot().rows, RowAngles::Primary, row);
    }

    /// Expects the orientations of two plots to be equal, and computed lines to be as close as six
    /// decimals are.
    static void ExpectSame(int slot, int other, const RowNotation& notation) {
        const PlotRows& rows = PlotOf(slot).rows;
        const PlotRows& others = PlotOf(other).rows;
        ASSERT_EQ(RecordOf(other).NumLoadedData, RecordOf(slot).NumLoadedData);
        for (std::int32_t row = 1; row <= RecordOf(slot).NumLoadedData; ++row) {
            EXPECT_EQ(MeasuredAttitude(others, RowAngles::Primary, row),
                      MeasuredAttitude(rows, RowAngles::Primary, row));
            if (notation.line) {
                EXPECT_EQ(MeasuredAttitude(others, RowAngles::Line, row),
                          MeasuredAttitude(rows, RowAngles::Line, row));
            }
            if (notation.secondary != kNoSecondary) {
                const Attitude was = MeasuredAttitude(rows, RowAngles::Secondary, row);
                const Attitude is = MeasuredAttitude(others, RowAngles::Secondary, row);
                const double tolerance = IsComputed(notation) ? 5.1e-7 : 0;
                EXPECT_NEAR(is.dip, was.dip, tolerance);
                EXPECT_NEAR(std::remainder(is.azimuth - was.azimuth, 360), 0, tolerance);
            }
            if (HasFailure()) {
                return;
            }
        }
    }
};

TEST_F(RowsWithDecimals, OfEveryNotationKeepThemOverTheClipboardTrial) {
    for (const RowNotation& notation : RowNotations()) {
        SCOPED_TRACE(notation.Name());
        DecimalRows::Use(notation);
        const int source = Load(TextOf(RandomDecimalRows(notation)));
        ASSERT_GT(CountRowsWithDecimals(PlotOf(source).rows, 1, notation.rows),
                  notation.rows * 3 / 4);
        SelectAll(source);
        EditSelection(kCopyAllItem);
        const int target = NewPlanes({});
        PasteData();
        ExpectSame(source, target, notation);
        if (HasFailure()) {
            return;
        }
        MakeStoreTables();
        ClearSelection();
        ForgetUndo();
    }
}

TEST_F(RowsWithDecimals, AreCopiedAsPointsWhetherTheyAreInUseOrNot) {
    const int slot = Load("47.30\t218.6\n45\t7\n5.5\t359.7\n");
    for (const std::int16_t used : {std::int16_t{0}, kTrue}) {
        ActiveRecord().UseDecimals = used;
        SelectAll(slot);
        EditSelection(kCopyItem);
        EXPECT_EQ(CopiedRows(), (Lines{"47.3\t218.6", "45\t7", "5.5\t359.7"}));
        EditSelection(kCopyAllItem);
    }
}

TEST_F(RowsWithDecimals, AreCopiedInColumnsOfAtLeastTwoDigits) {
    const int slot = Load("5.25\t7.5\n45\t7\n");
    const std::vector<std::int32_t> rows = {1, 2};
    clipboard.SetText(TextOfRows(slot, rows, CopiedFields::All));
    EXPECT_EQ(CopiedRows(), (Lines{"05.25\t07.5", "45\t07"}));
}

TEST_F(RowsWithDecimals, OfPlanesCopiedAsLinesAreTheirPoles) {
    const int slot = Load("30.3\t120.1\n");
    ActiveRecord().DataKind = kLines;
    const std::vector<std::int32_t> rows = {1};
    clipboard.SetText(TextOfRows(slot, rows, CopiedFields::Points));
    EXPECT_EQ(CopiedRows(), Lines{"59.7\t300.1"});
}

TEST_F(RowsWithDecimals, ComeFromForeignTextToo) {
    NewPlanes({{1, 2}});
    AcceptFormat();
    clipboard.SetText("47.3\t218.6\n45\t7\n");
    PasteData();
    ASSERT_EQ(ActiveRecord().NumData, 3);
    EXPECT_EQ(Whole(2), Attitude(47, 219));
    EXPECT_NEAR(Measured(2).dip, 47.3, 3e-8);
    EXPECT_NEAR(Measured(2).azimuth, 218.6, 3e-8);
    EXPECT_FALSE(HasDecimals(ActivePlot().rows, 3));
}

TEST_F(RowsWithDecimals, AreTurnedWithTheRowsOfAPasteIntoAnotherKind) {
    NewLines({{1, 2}});
    clipboard.SetText(";Quandrel, ver 9.5.1\r\n/T1\t/P0\t/N1\t/I2\t/C1\t/15\r\n30.3\t120.1\r\n");
    Expect("You are trying to paste planes into a plot containing lines", Button::Yes);
    PasteData();
    EXPECT_NEAR(Measured(2).dip, 59.7, 3e-8);
    EXPECT_NEAR(Measured(2).azimuth, 300.1, 3e-8);
}

TEST_F(RowsWithDecimals, OfIntersectionsAreCopiedFromPlotsThatUseThem) {
    // The line in which the planes 40/090 and 90/000 meet is level in north, 40 down in east.
    const int slot = NewPlanes({{40, 90}, {90, 10}});
    ActiveRecord().PlotSymbolMode = kBetaIntersections;
    const std::vector<std::int32_t> rows = {1, 2};
    clipboard.SetText(TextOfRows(slot, rows, CopiedFields::Points));
    const Lines whole = CopiedRows();
    ActiveRecord().UseDecimals = kTrue;
    clipboard.SetText(TextOfRows(slot, rows, CopiedFields::Points));
    const Lines exact = CopiedRows();
    ASSERT_EQ(whole.size(), 1U);
    ASSERT_EQ(exact.size(), 1U);
    // tan(plunge) = tan(40) cos(10), along the strike of the vertical plane, 100.
    const double plunge =
        std::atan(std::tan(40 * kPi / 180) * std::cos(10 * kPi / 180)) * 180 / kPi;
    EXPECT_EQ(whole.front(), "40\t100");
    EXPECT_NEAR(std::stod(exact.front()), plunge, 5.1e-7);
    EXPECT_EQ(exact.front().substr(exact.front().find('\t') + 1), "100");
}

TEST_F(RowsWithDecimals, OfAClickAreThoseOfItsPlace) {
    NewLines({}, kPolarLines);
    AddStereoPoint(kLeftMouseButton, 300, 400);
    const std::optional<NetLine> line = LineUnder(kEqualArea, 300, 400);
    ASSERT_TRUE(line);
    EXPECT_NEAR(Measured(1).dip, line->plunge * 180 / kPi, 6e-7);
    EXPECT_NEAR(Measured(1).azimuth, line->trend * 180 / kPi, 6e-7);
    EXPECT_EQ(Whole(1),
              Attitude(std::nearbyint(Measured(1).dip), std::nearbyint(Measured(1).azimuth)));
    EXPECT_NE(Measured(1), Whole(1));
}

TEST_F(RowsWithDecimals, OfAnUpwardClickAtThePrimitiveLeaveTheRowOnItsSide) {
    NewLines({}, kPolarLines);
    AddStereoPoint(kRightMouseButton, 997, 0); // plunges 0.2 degrees
    EXPECT_EQ(Whole(1), Attitude(0, 90));
    EXPECT_LT(Measured(1).dip, -0.1);
    EXPECT_GT(Measured(1).dip, -0.5);
    EXPECT_EQ(Measured(1).azimuth, 90);
}

TEST_F(RowsWithDecimals, OfAPointFromTextsStay) {
    NewPlanes({});
    ASSERT_TRUE(AddPointToPlot("47.3", "218.6"));
    EXPECT_EQ(Whole(1), Attitude(47, 219));
    EXPECT_NEAR(Measured(1).dip, 47.3, 3e-8);
    EXPECT_NEAR(Measured(1).azimuth, 218.6, 3e-8);
    ASSERT_TRUE(AddPointToPlot("47", "218"));
    EXPECT_FALSE(HasDecimals(ActivePlot().rows, 2));
}

} // namespace

} // namespace quandrel
