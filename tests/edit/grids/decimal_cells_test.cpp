// SPDX-License-Identifier: MIT
//
// Measured angles in the grid of a plot.

#include "edit/edit_plot.h"
#include "edit/grids/data_grid.h"

namespace quandrel {

namespace {

class DecimalCells : public EditTest {
protected:
    void SetUp() override {
        EditTest::SetUp();
        NewPlanes({{47, 219}, {45, 7}});
        AddFields();
        SetDecimalsOf(RowAngles::Primary, 1, {47.312345, 218.654321});
        SetDecimalsOf(RowAngles::Secondary, 1, {11.25, 101.5});
        SetDecimalsOf(RowAngles::Line, 1, {20.75, 200.9});
    }

    static void SetDecimalsOf(RowAngles which, std::int32_t row, const Attitude& measured) {
        ASSERT_TRUE(SetDecimals(ActivePlot().rows, which, row, measured));
    }

    static std::vector<std::string> Angles(const DataGrid& grid, std::size_t row) {
        std::vector<std::string> texts;
        for (std::size_t column = 1; column <= 6; ++column) {
            texts.push_back(grid.CellText(row, column));
        }
        return texts;
    }

    static Attitude Measured(std::int32_t row, RowAngles which = RowAngles::Primary) {
        return MeasuredAttitude(ActivePlot().rows, which, row);
    }

    static void ExpectNear(const Attitude& attitude, double dip, double azimuth) {
        EXPECT_NEAR(attitude.dip, dip, 3e-8);
        EXPECT_NEAR(attitude.azimuth, azimuth, 3e-8);
    }
};

using Texts = std::vector<std::string>;

TEST_F(DecimalCells, ShowOneDecimalInPlotsThatUseThem) {
    const DataGrid grid(gActivePlot);
    EXPECT_EQ(Angles(grid, 0), (Texts{"47", "219", "11", "101", "21", "201"}));
    ActiveRecord().UseDecimals = kTrue;
    EXPECT_EQ(Angles(grid, 0), (Texts{"47.3", "218.7", "11.3", "101.5", "20.8", "200.9"}));
    EXPECT_EQ(Angles(grid, 1), (Texts{"45.0", "007.0", "12.0", "102.0", "22.0", "202.0"}));
    gDecimalIsComma = true;
    EXPECT_EQ(grid.CellText(0, 1), "47,3");
}

TEST_F(DecimalCells, AnEditOfAnotherCellLeavesAllDigits) {
    const Attitude primary = Measured(1);
    const Attitude line = Measured(1, RowAngles::Line);
    for (const std::int16_t used : {std::int16_t{0}, kTrue}) {
        ActiveRecord().UseDecimals = used;
        DataGrid grid(gActivePlot);
        ASSERT_TRUE(grid.SetCell(0, 8, "slate " + std::to_string(used)));
        ASSERT_TRUE(grid.SetCell(0, 7, std::to_string(7 + used)));
        ASSERT_TRUE(grid.SetCell(0, 3, std::to_string(30 - used)));
        EXPECT_EQ(ApplyGridEdits(grid).changed, 1);
        EXPECT_EQ(Measured(1), primary);
        EXPECT_EQ(Measured(1, RowAngles::Line), line);
    }
}

TEST_F(DecimalCells, TheOtherAngleOfAnEditedPairKeepsItsDigits) {
    DataGrid grid(gActivePlot);
    grid.SetCell(0, 1, "52");
    ApplyGridEdits(grid);
    ExpectNear(Measured(1), 52, 218.654321);
    ActiveRecord().UseDecimals = kTrue;
    grid.Fill();
    grid.SetCell(0, 2, "10.5");
    ApplyGridEdits(grid);
    ExpectNear(Measured(1), 52, 10.5);
    EXPECT_EQ(WholeAttitude(ActivePlot().rows, RowAngles::Primary, 1), Attitude(52, 10));
}

TEST_F(DecimalCells, TypedDecimalsAreMeasured) {
    DataGrid grid(gActivePlot);
    grid.SetCell(1, 1, "47.3");
    grid.SetCell(1, 2, "218,6");
    grid.SetCell(1, 5, "-10.25");
    EXPECT_EQ(ApplyGridEdits(grid).spoilt, 0);
    ExpectNear(Measured(2), 47.3, 218.6);
    EXPECT_EQ(gDataDip(gActivePlot, 2), 47);
    EXPECT_EQ(gDataAz(gActivePlot, 2), 219);
    ExpectNear(Measured(2, RowAngles::Line), -10.25, 202);
    UndoLastEdit();
    EXPECT_FALSE(HasDecimals(ActivePlot().rows, 2));
}

TEST_F(DecimalCells, WholeDegreesTypedOverDecimalsAreWhole) {
    DataGrid grid(gActivePlot);
    grid.SetCell(0, 1, "50");
    grid.SetCell(0, 2, "220");
    ApplyGridEdits(grid);
    EXPECT_FALSE(DecimalsOf(ActivePlot().rows, RowAngles::Primary, 1).has_value());
    EXPECT_EQ(Measured(1), Attitude(50, 220));
}

TEST_F(DecimalCells, ACellThatIsTypedAsItWasIsNotEdited) {
    const Attitude before = Measured(1);
    DataGrid grid(gActivePlot);
    grid.SetCell(0, 1, "50");
    grid.SetCell(0, 1, "47");
    ApplyGridEdits(grid);
    EXPECT_EQ(Measured(1), before);
}

TEST_F(DecimalCells, ANearlyLevelLineIsEditedAsItIsShown) {
    NewLines({{0, 210}}, kPolarLines);
    SetDecimalsOf(RowAngles::Primary, 1, {-0.3, 30.2});
    DataGrid grid(gActivePlot);
    EXPECT_EQ(grid.CellText(0, 2), "210");
    grid.SetCell(0, 1, "5");
    ApplyGridEdits(grid);
    EXPECT_EQ(Measured(1), Attitude(5, 210));
}

TEST_F(DecimalCells, ANewRowKeepsItsDecimals) {
    NewPlanes({{47, 219}});
    DataGrid grid(gActivePlot);
    ASSERT_TRUE(grid.AddRow());
    grid.SetCell(1, 1, "-0.3");
    grid.SetCell(1, 2, "218.6");
    EXPECT_EQ(ApplyGridEdits(grid).added, 1);
    ExpectNear(Measured(2), -0.3, 218.6);
    EXPECT_EQ(WholeAttitude(ActivePlot().rows, RowAngles::Primary, 2), Attitude(0, 219))
        << "a plane stays where it is";
}

TEST_F(DecimalCells, ARowThatIsSpoiltKeepsThemInItsLine) {
    DataGrid grid(gActivePlot);
    grid.SetCell(0, 1, "steep");
    EXPECT_EQ(ApplyGridEdits(grid).spoilt, 1);
    EXPECT_EQ(grid.LineBehind(0), "steep\t218.654321\t11.25\t101.5\t20.75\t200.9\t1.5\trock 1");
}

} // namespace

} // namespace quandrel
