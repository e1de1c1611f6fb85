// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/replot.h"
#include "derive/secondary_data.h"
#include "edit/commands/edit_menu.h"
#include "edit/grids/data_grid.h"
#include "edit/history/edit_step.h"
#include "edit/history/undo.h"
#include "edit/rows/edit_rows.h"
#include "edit/selection/marquee.h"
#include "stereo/symbols.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

using Texts = std::vector<std::string>;

class Grid : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kEqualArea;
        gPrimaryDataType = kPrimaryPlane;
        gActiveLayer = kDataLayer;
        ForgetUndo();
        ClearSelection();
        NewPlot();
        Record().PrimaryFormat = kPrimaryPlane;
        Record().PlotTitle = "beds.txt: 1";
    }

    void TearDown() override {
        ForgetUndo();
        ClearSelection();
        EngineTest::TearDown();
    }

    static PlotRecord& Record() { return ActiveRecord(); }

    /// Adds a row as it is loaded.
    static void Load(std::int32_t dip, std::int32_t azimuth) {
        AddRow(dip, azimuth);
        gDataOrder.At(gActivePlot, Record().NumLoadedData) = Record().NumLoadedData;
        if (dip == kErrorRow) {
            gDataSymbol.At(gActivePlot, Record().NumLoadedData) = 0;
            gDataSymbolBase.At(gActivePlot, Record().NumLoadedData) = 0;
        }
    }

    /// Gives the rows all possible columns.
    static void AddAllColumns() {
        Record().SecondaryFormat = kPitchInPlane;
        Record().HasAppendedLine = kTrue;
        Record().HasAppendedNumeric = kTrue;
        Record().HasAppendedText = kTrue;
        int secondary = 1;
        GrowDataColumns(secondary, Record().NumLoadedData);
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Line));
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Text));
    }

    static void Fill(std::int32_t row, Attitude secondary, Attitude line, float number,
                     const char* text) {
        SetWholeAttitude(ActivePlot().rows, RowAngles::Secondary, row, secondary);
        SetWholeAttitude(ActivePlot().rows, RowAngles::Line, row, line);
        gAppNumeric.At(gActivePlot, row) = number;
        gAppText.Set(gActivePlot, row, text);
    }

    static Texts RowTexts(const DataGrid& grid, std::size_t row) {
        Texts texts;
        for (std::size_t column = 0; column < grid.Columns().size(); ++column) {
            texts.push_back(grid.CellText(row, column));
        }
        return texts;
    }

    static Texts Headers(const DataGrid& grid) {
        Texts headers;
        for (const GridColumn& column : grid.Columns()) {
            headers.push_back(column.header);
        }
        return headers;
    }

    /// Primary orientation of a row as the columns hold it.
    static std::pair<int, int> Stored(std::int32_t row) {
        return {gDataDip(gActivePlot, row), gDataAz(gActivePlot, row)};
    }

    using Pair = std::pair<int, int>;
};

TEST_F(Grid, HasTheColumnsThatThePlotHas) {
    Load(30, 120);
    EXPECT_EQ(GridFormatOf(Record()), "        |>Dip/Plunge  |>Azimuth  |^Edited");
    EXPECT_EQ(Headers(DataGrid(gActivePlot)), (Texts{"", "Dip/Plunge", "Azimuth", "Edited"}));
    AddAllColumns();
    EXPECT_EQ(GridFormatOf(Record()),
              "        |>Dip/Plunge  |>Azimuth  |>Sec. Dip/Pl |>Sec Azim |>App.Line Plunge |>Line "
              "Azim |>Numeric |>AlphaNum. |^Edited");
    const DataGrid grid(gActivePlot);
    EXPECT_EQ(Headers(grid),
              (Texts{"", "Dip/Plunge", "Azimuth", "Sec. Dip/Pl", "Sec Azim", "App.Line Plunge",
                     "Line Azim", "Numeric", "AlphaNum.", "Edited"}));
    EXPECT_EQ(grid.Columns()[1].align, GridAlign::Right);
    EXPECT_EQ(grid.Columns().back().align, GridAlign::Centre);
    EXPECT_EQ(grid.Columns().back().kind, GridColumnKind::Edited);
    EXPECT_EQ(DataGridCaption(Record()), "Processed data in: beds.txt: 1");
    Record().SecondaryFormat = kNoSecondary;
    Record().HasAppendedLine = 0;
    Record().HasAppendedText = 0;
    EXPECT_EQ(Headers(DataGrid(gActivePlot)),
              (Texts{"", "Dip/Plunge", "Azimuth", "Numeric", "Edited"}));
}

TEST_F(Grid, ShowsDegreesWhateverTheConvention) {
    gConventions = -4;
    Load(30, 7);
    Load(-5, 360);
    AddAllColumns();
    Fill(1, {12, 99}, {8, 3}, 2.5F, "bed A");
    Fill(2, {kErrorRow, kErrorRow}, {kInvalidAppendedLine, 0}, kInvalidNumber, "");
    const DataGrid grid(gActivePlot);
    EXPECT_EQ(RowTexts(grid, 0),
              (Texts{"1", "30", "007", "12", "099", "8", "003", "2.5", "bed A", ""}));
    EXPECT_EQ(RowTexts(grid, 1), (Texts{"2", "-5", "360", "", "", "", "", "", "", ""}));
    gDecimalIsComma = true;
    EXPECT_EQ(grid.CellText(0, 7), "2,5");
    EXPECT_EQ(grid.CellText(0, 99), "");
    EXPECT_EQ(grid.CellText(99, 1), "");
}

TEST_F(Grid, ShowsPlacesOnTheMapWhereRowsHaveSome) {
    Load(30, 120);
    Load(40, 130);
    DataGrid grid(gActivePlot);
    EXPECT_FALSE(grid.IsStale());
    SetMapPlace(ActivePlot(), 2, MapPlace{651234.125, -7.5});
    EXPECT_TRUE(grid.IsStale()) << "it has no columns for places";
    grid.Fill();
    EXPECT_EQ(Headers(grid), (Texts{"", "Dip/Plunge", "Azimuth", "Map X", "Map Y", "Edited"}));
    EXPECT_EQ(RowTexts(grid, 0), (Texts{"1", "30", "120", "", "", ""}));
    EXPECT_EQ(RowTexts(grid, 1), (Texts{"2", "40", "130", "651234.125", "-7.5", ""}));
    gDecimalIsComma = true;
    EXPECT_EQ(grid.CellText(1, 3), "651234,125");
    gDecimalIsComma = false;
    SpoilRow(ActivePlot(), 2);
    EXPECT_EQ(grid.CellText(1, 3), "") << "an error row is nowhere";
}

TEST_F(Grid, PlacesOnTheMapAreEditedInPairs) {
    Load(30, 120);
    Load(40, 130);
    SetMapPlace(ActivePlot(), 1, MapPlace{1, 2});
    DataGrid grid(gActivePlot);
    ASSERT_TRUE(grid.SetCell(1, 3, "7.25"));
    EXPECT_TRUE(grid.IsBad(1, 3)) << "half a place";
    EXPECT_TRUE(grid.IsBadText(1, 4, "north"));
    ASSERT_TRUE(grid.SetCell(1, 4, "46,5"));
    EXPECT_FALSE(grid.IsBad(1, 3));
    ASSERT_TRUE(grid.SetCell(0, 3, ""));
    ASSERT_TRUE(grid.SetCell(0, 4, ""));
    EXPECT_FALSE(grid.IsBad(0, 4)) << "no place";
    EXPECT_EQ(ApplyGridEdits(grid).changed, 2);
    EXPECT_EQ(MapPlaceOf(ActivePlot().rows, 1), std::nullopt);
    EXPECT_EQ(MapPlaceOf(ActivePlot().rows, 2), (MapPlace{7.25, 46.5}));
    EXPECT_EQ(Stored(2), (Pair{40, 130})) << "an edit of the place leaves the angles";
    UndoLastEdit();
    EXPECT_EQ(MapPlaceOf(ActivePlot().rows, 1), (MapPlace{1, 2}));
    EXPECT_EQ(MapPlaceOf(ActivePlot().rows, 2), std::nullopt);
    RedoLastEdit();
    EXPECT_EQ(MapPlaceOf(ActivePlot().rows, 2), (MapPlace{7.25, 46.5}));
}

TEST_F(Grid, NumbersRowsWithTheDigitsOfTheirCount) {
    for (int i = 0; i < 12; ++i) {
        Load(10 + i, i);
    }
    const DataGrid grid(gActivePlot);
    ASSERT_EQ(grid.RowCount(), 12U);
    EXPECT_EQ(grid.CellText(0, 0), "01");
    EXPECT_EQ(grid.CellText(11, 0), "12");
}

TEST_F(Grid, ComesInTheOrderOfTheLoad) {
    Load(10, 0);
    Load(20, 0);
    Load(30, 0);
    gDataOrder.At(gActivePlot, 1) = 3;
    gDataOrder.At(gActivePlot, 2) = 1;
    gDataOrder.At(gActivePlot, 3) = 2;
    const DataGrid grid(gActivePlot);
    EXPECT_EQ(grid.CellText(0, 1), "20");
    EXPECT_EQ(grid.CellText(1, 1), "30");
    EXPECT_EQ(grid.CellText(2, 1), "10");
    EXPECT_EQ(grid.PointOfRow(2), 1);
    EXPECT_EQ(grid.RowOfPoint(2), 0U);
    EXPECT_EQ(grid.RowOfPoint(4), std::nullopt);
    EXPECT_EQ(grid.RowOfPoint(0), std::nullopt);
}

TEST_F(Grid, ASortedTableLeavesItAsItIs) {
    Load(10, 270);
    Load(80, 90);
    Load(40, 270);
    ReplotActivePlot(true);
    ASSERT_NE(TableOf(gActivePlot)[0].index, 1) << "the table is sorted by x";
    const DataGrid grid(gActivePlot);
    EXPECT_EQ(grid.CellText(0, 1), "10");
    EXPECT_EQ(grid.CellText(2, 1), "40");
}

TEST_F(Grid, ErrorRowsShowNonData) {
    Load(30, 120);
    Load(kErrorRow, 0);
    ActivePlot().rows.errorLines[2] = "; a remark";
    const DataGrid grid(gActivePlot);
    EXPECT_EQ(RowTexts(grid, 1), (Texts{"2", "non-data", "", ""}));
    EXPECT_EQ(grid.EditText(1, 1), "");
    EXPECT_EQ(grid.LineBehind(1), "; a remark");
    EXPECT_EQ(grid.LineBehind(0), "");
}

TEST_F(Grid, OverlayRowsFollowAndAreReadOnly) {
    Load(30, 120);
    AddOverlay(kOverlayLines, 50, 60, CodeOfStyleRow(2));
    DataGrid grid(gActivePlot);
    ASSERT_EQ(grid.RowCount(), 2U);
    EXPECT_EQ(RowTexts(grid, 1), (Texts{"2", "50", "060", ""}));
    EXPECT_TRUE(grid.IsEditable(0, 1));
    EXPECT_FALSE(grid.IsEditable(1, 1));
    EXPECT_FALSE(grid.SetCell(1, 1, "12"));
    EXPECT_FALSE(grid.AddRow()) << "a point would go over the rows";
    EXPECT_FALSE(grid.HasEdits());
}

TEST_F(Grid, TheNumberAndTheMarkCannotBeEdited) {
    Load(30, 120);
    DataGrid grid(gActivePlot);
    EXPECT_FALSE(grid.SetCell(0, 0, "7"));
    EXPECT_FALSE(grid.SetCell(0, 3, "*"));
    EXPECT_FALSE(grid.SetCell(0, 1, "30")) << "no edit, for nothing changes";
    EXPECT_FALSE(grid.IsEdited(0));
    EXPECT_TRUE(grid.SetCell(0, 1, "31"));
    EXPECT_EQ(RowTexts(grid, 0), (Texts{"1", "31", "120", "*"}));
    EXPECT_EQ(Stored(1), Pair(30, 120)) << "the store waits";
    grid.DiscardEdits();
    EXPECT_EQ(RowTexts(grid, 0), (Texts{"1", "30", "120", ""}));
}

TEST_F(Grid, TypedLinesHaveTheTrendsOfTheirLowerEndsWhateverFilesSay) {
    gSettings.format.negativePlunge = NegativePlunge::Vector;
    EXPECT_EQ(ReadGridPair("-30", "120", false)->whole.azimuth, 120);
    EXPECT_EQ(ReadGridPair("-0.3", "120", false)->whole.azimuth, 300) << "level, as it points";
    EXPECT_EQ(ReadGridPair("-0.3", "120", false)->measured, Attitude(-0.3, 120));
    EXPECT_EQ(ReadGridPair("-0.3", "120", true)->whole.azimuth, 120) << "a plane";
}

TEST(GridPair, IsReadAsTheFilesAre) {
    struct Case {
        const char* dip;
        const char* azimuth;
        bool isPlane;
        std::optional<std::pair<int, int>> expected;
    };

    for (const Case& c : {
             Case{"45", "120", true, {{45, 120}}},
             Case{" 45 ", "120\t", false, {{45, 120}}},
             Case{"44.5", "45.5", false, {{44, 46}}},
             Case{"44,5", "0", false, {{44, 0}}},
             Case{"-30", "-10", false, {{-30, 350}}},
             Case{"90", "360", true, {{90, 360}}},
             Case{"91", "0", true, {}},
             Case{"-91", "0", false, {}},
             Case{"45", "361", true, {}},
             Case{"", "120", true, {}},
             Case{"45", "", true, {}},
             Case{"", "", true, {}},
             Case{"x", "120", false, {}},
             Case{"45", "north", false, {}},
         }) {
        const auto read = ReadGridPair(c.dip, c.azimuth, c.isPlane);
        ASSERT_EQ(read.has_value(), c.expected.has_value()) << c.dip << '/' << c.azimuth;
        if (read) {
            EXPECT_EQ(read->whole, Attitude(c.expected->first, c.expected->second)) << c.dip;
        }
    }
}

TEST_F(Grid, ReadsNumbersByTheRegion) {
    EXPECT_EQ(ReadGridNumber("2.5"), 2.5F);
    EXPECT_EQ(ReadGridNumber(" -3 "), -3.0F);
    EXPECT_EQ(ReadGridNumber("2,5"), std::nullopt);
    gConvertDecimals = true;
    EXPECT_EQ(ReadGridNumber("2,5"), 2.5F);
    gDecimalIsComma = true;
    gConvertDecimals = false;
    EXPECT_EQ(ReadGridNumber("2,5"), 2.5F);
    for (const char* text : {"", "x", "1e60", "-9999"}) {
        EXPECT_EQ(ReadGridNumber(text), std::nullopt) << text;
    }
}

TEST_F(Grid, MarksBadPairsAsTheyAreTyped) {
    Load(30, 120);
    AddAllColumns();
    Fill(1, {12, 99}, {8, 3}, 2.5F, "bed A");
    DataGrid grid(gActivePlot);
    EXPECT_FALSE(grid.IsBad(0, 1));
    grid.SetCell(0, 1, "95");
    EXPECT_TRUE(grid.IsBad(0, 1));
    EXPECT_TRUE(grid.IsBad(0, 2)) << "the pair is bad";
    EXPECT_FALSE(grid.IsBad(0, 3));
    grid.SetCell(0, 1, "85");
    EXPECT_FALSE(grid.IsBad(0, 2));
    grid.SetCell(0, 4, "");
    EXPECT_TRUE(grid.IsBad(0, 3)) << "half a pair";
    grid.SetCell(0, 3, "");
    EXPECT_FALSE(grid.IsBad(0, 3)) << "a row may lack its secondary orientation";
    grid.SetCell(0, 5, "line");
    EXPECT_TRUE(grid.IsBad(0, 6));
    grid.SetCell(0, 7, "two");
    EXPECT_TRUE(grid.IsBad(0, 7));
    grid.SetCell(0, 8, "anything");
    EXPECT_FALSE(grid.IsBad(0, 8));
}

TEST_F(Grid, WritesAGoodPairIntoColumnsAndTable) {
    Load(30, 120);
    Load(40, 200);
    Record().Modified = 0;
    DataGrid grid(gActivePlot);
    grid.SetCell(0, 1, "60.4");
    grid.SetCell(0, 2, "-45");
    const GridEditReport report = ApplyGridEdits(grid);
    EXPECT_EQ(report.changed, 1);
    EXPECT_EQ(report.spoilt, 0);
    EXPECT_EQ(Stored(1), Pair(60, 315));
    EXPECT_EQ(Stored(2), Pair(40, 200));
    EXPECT_NE(Record().Modified, 0);
    EXPECT_FALSE(grid.HasEdits());
    EXPECT_EQ(RowTexts(grid, 0), (Texts{"1", "60", "315", ""}));
    // The pole of 60/315 plunges 30 toward 135.
    for (std::size_t place = 0; place < 2; ++place) {
        const PlottedRow row = TableOf(gActivePlot)[place];
        EXPECT_NEAR(RadToDeg(row.plunge), row.index == 1 ? 30 : 50, 1e-9);
        EXPECT_NEAR(RadToDeg(row.trend), row.index == 1 ? 135 : 20, 1e-9);
    }
}

TEST_F(Grid, ABadPairMakesAnErrorRowThatUndoBringsBack) {
    Load(30, 120);
    Load(40, 200);
    gDataSymbol.At(gActivePlot, 1) = MakeSymbolCode(6, 5, 4);
    DataGrid grid(gActivePlot);
    grid.SetCell(0, 2, "nowhere");
    const GridEditReport report = ApplyGridEdits(grid);
    EXPECT_EQ(report.spoilt, 1);
    EXPECT_EQ(Stored(1), Pair(kErrorRow, 0));
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), 0U);
    EXPECT_EQ(Record().NumValidData, 1);
    EXPECT_EQ(Record().NumData, 2);
    EXPECT_EQ(RowTexts(grid, 0), (Texts{"1", "non-data", "", ""}));
    EXPECT_EQ(grid.LineBehind(0), "30\tnowhere");
    EXPECT_EQ(gLastEditKind, kGridEdit);
    ASSERT_TRUE(CanUndo());
    UndoLastEdit();
    EXPECT_EQ(Stored(1), Pair(30, 120));
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), MakeSymbolCode(6, 5, 4));
    EXPECT_EQ(Record().NumValidData, 2);
    RedoLastEdit();
    EXPECT_EQ(Stored(1), Pair(kErrorRow, 0));
}

TEST_F(Grid, AnErrorRowBecomesDataByAGoodPair) {
    Load(30, 120);
    Load(kErrorRow, 0);
    AddAllColumns();
    Fill(1, {12, 99}, {8, 3}, 2.5F, "bed A");
    ActivePlot().rows.errorLines[2] = "45 ?";
    DataGrid grid(gActivePlot);
    grid.SetCell(1, 1, "-45");
    grid.SetCell(1, 2, "10");
    grid.SetCell(1, 7, "4");
    EXPECT_EQ(ApplyGridEdits(grid).changed, 1);
    EXPECT_EQ(RowTexts(grid, 1), (Texts{"2", "-45", "010", "", "", "", "", "4", "", ""}));
    EXPECT_EQ(Record().NumValidData, 2);
    EXPECT_EQ(gDataSymbol(gActivePlot, 2), CodeOfStyleRow(kUpRowSymbol));
    EXPECT_EQ(grid.LineBehind(1), "");
    EXPECT_EQ(Record().AppendedMax[kOfNumbers], 4);
}

TEST_F(Grid, HalfAPairLeavesAnErrorRowOne) {
    Load(30, 120);
    Load(kErrorRow, 0);
    DataGrid grid(gActivePlot);
    grid.SetCell(1, 1, "45");
    EXPECT_TRUE(grid.IsBad(1, 1));
    ApplyGridEdits(grid);
    EXPECT_EQ(Stored(2), Pair(kErrorRow, 0));
    EXPECT_EQ(Record().NumValidData, 1) << "it was not counted before";
}

TEST_F(Grid, OnlyEditedPairsAreParsed) {
    Load(30, 120);
    AddAllColumns();
    Fill(1, {12, 99}, {8, 3}, 0.1F, "bed A");
    gDataAz.At(gActivePlot, 1) = 360;
    DataGrid grid(gActivePlot);
    grid.SetCell(0, 8, "bed B");
    ApplyGridEdits(grid);
    EXPECT_EQ(Stored(1), Pair(30, 360));
    EXPECT_EQ(gAppNumeric(gActivePlot, 1), 0.1F) << "to the last bit";
    EXPECT_EQ(gAppText(gActivePlot, 1), "bed B");
}

TEST_F(Grid, WritesSecondaryAndAppendedCells) {
    Load(30, 120);
    AddAllColumns();
    Fill(1, {12, 99}, {8, 3}, 2.5F, "bed A");
    DataGrid grid(gActivePlot);
    grid.SetCell(0, 3, "-20");
    grid.SetCell(0, 5, "70");
    grid.SetCell(0, 6, "250");
    grid.SetCell(0, 7, "-1.5");
    ApplyGridEdits(grid);
    EXPECT_EQ(RowTexts(grid, 0),
              (Texts{"1", "30", "120", "-20", "099", "70", "250", "-1.5", "bed A", ""}));
    EXPECT_EQ(Record().AppendedMin[kOfNumbers], -1.5);
    EXPECT_EQ(Record().AppendedMax[kOfNumbers], -1.5) << "the former number is forgotten";
    grid.SetCell(0, 3, "");
    grid.SetCell(0, 4, " ");
    grid.SetCell(0, 5, "steep");
    grid.SetCell(0, 7, "many");
    const GridEditReport report = ApplyGridEdits(grid);
    EXPECT_EQ(report.spoilt, 0) << "these may be missing";
    EXPECT_EQ(RowTexts(grid, 0), (Texts{"1", "30", "120", "", "", "", "", "", "bed A", ""}));
    EXPECT_EQ(gData2Dip(gActivePlot, 1), kErrorRow);
    EXPECT_EQ(gAppLineDip(gActivePlot, 1), kInvalidAppendedLine);
    EXPECT_EQ(gAppNumeric(gActivePlot, 1), kInvalidNumber);
}

TEST_F(Grid, TheOverlayOfSecondaryDataFollows) {
    Load(30, 120);
    AddAllColumns();
    Fill(1, {12, 99}, {8, 3}, 2.5F, "bed A");
    MakeSecondaryOverlay();
    ASSERT_EQ(Record().OverlayRows[kOverlayCount], 1);
    DataGrid grid(gActivePlot);
    ASSERT_EQ(grid.RowCount(), 2U);
    EXPECT_EQ(grid.CellText(1, 1), "12");
    grid.SetCell(0, 3, "33");
    ApplyGridEdits(grid);
    EXPECT_EQ(grid.CellText(1, 1), "33");
    for (std::size_t place = 0; place < 2; ++place) {
        const PlottedRow row = TableOf(gActivePlot)[place];
        EXPECT_NEAR(RadToDeg(row.plunge), row.index == 1 ? 60 : 33, 1e-9);
    }
    UndoLastEdit();
    grid.Fill();
    EXPECT_EQ(grid.CellText(1, 1), "12");
}

TEST_F(Grid, ThePlottedSecondarySetIsEditedInItsOwnColumns) {
    Load(30, 120);
    AddAllColumns();
    Fill(1, {12, 99}, {8, 3}, 2.5F, "bed A");
    ToggleSecondaryData();
    ASSERT_NE(Record().ShowSecondary, 0);
    DataGrid grid(gActivePlot);
    EXPECT_EQ(grid.CellText(0, 1), "30");
    EXPECT_FALSE(grid.AddRow());
    grid.SetCell(0, 3, "40");
    ApplyGridEdits(grid);
    EXPECT_NEAR(RadToDeg(TableOf(gActivePlot)[0].plunge), 40, 1e-9);
    EXPECT_NEAR(RadToDeg(TableOf(gActivePlot)[0].trend), 99, 1e-9);
}

TEST_F(Grid, ABadSecondaryPairMakesAnErrorRow) {
    Load(30, 120);
    AddAllColumns();
    Fill(1, {12, 99}, {8, 3}, 2.5F, "bed A");
    DataGrid grid(gActivePlot);
    grid.SetCell(0, 3, "100");
    EXPECT_EQ(ApplyGridEdits(grid).spoilt, 1);
    EXPECT_EQ(Stored(1), Pair(kErrorRow, 0));
    UndoLastEdit();
    grid.Fill();
    EXPECT_EQ(RowTexts(grid, 0),
              (Texts{"1", "30", "120", "12", "099", "8", "003", "2.5", "bed A", ""}));
}

TEST_F(Grid, ThePlainSymbolFollowsTheSense) {
    Record().PrimaryFormat = kPrimaryLine;
    Record().DataKind = kPolarLines;
    Load(30, 120);
    Load(30, 120);
    gDataSymbol.At(gActivePlot, 2) = gDataSymbolBase.At(gActivePlot, 2) = MakeSymbolCode(6, 5, 4);
    DataGrid grid(gActivePlot);
    grid.SetCell(0, 1, "-30");
    grid.SetCell(1, 1, "-30");
    ApplyGridEdits(grid);
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), CodeOfStyleRow(kUpRowSymbol));
    EXPECT_EQ(gDataSymbol(gActivePlot, 2), MakeSymbolCode(6, 5, 4)) << "a symbol of the user's";
}

TEST_F(Grid, UndoTakesAllThatWasAppliedBackAtOnce) {
    Load(30, 120);
    DataGrid grid(gActivePlot);
    grid.SetCell(0, 1, "35");
    for (std::size_t row = 1; row <= 2; ++row) {
        ASSERT_TRUE(grid.AddRow());
        grid.SetCell(row, 1, "45");
        grid.SetCell(row, 2, "300");
    }
    EXPECT_EQ(ApplyGridEdits(grid).added, 2);
    ASSERT_EQ(Record().NumData, 3);
    EXPECT_EQ(UndoCaption(), "&Undo Edit");
    UndoLastEdit();
    EXPECT_EQ(Record().NumData, 1);
    EXPECT_EQ(Stored(1), Pair(30, 120));
    RedoLastEdit();
    EXPECT_EQ(Record().NumData, 3);
    EXPECT_EQ(Stored(1), Pair(35, 120));
}

TEST_F(Grid, UndoOfNewRowsAloneTakesThemAll) {
    Load(30, 120);
    DataGrid grid(gActivePlot);
    for (std::size_t row = 1; row <= 2; ++row) {
        ASSERT_TRUE(grid.AddRow());
        grid.SetCell(row, 1, "45");
        grid.SetCell(row, 2, "300");
    }
    ApplyGridEdits(grid);
    EXPECT_EQ(UndoCaption(), "&Undo Add");
    UndoLastEdit();
    EXPECT_EQ(Record().NumData, 1);
}

TEST_F(Grid, ANewRowIsAddedWithItsValues) {
    Load(30, 120);
    AddAllColumns();
    Fill(1, {12, 99}, {8, 3}, 2.5F, "bed A");
    DataGrid grid(gActivePlot);
    ASSERT_TRUE(grid.AddRow());
    EXPECT_TRUE(grid.IsNew(1));
    EXPECT_EQ(RowTexts(grid, 1), (Texts{"2", "", "", "", "", "", "", "", "", ""}));
    const Texts typed = {"", "45", "300", "10", "20", "30", "40", "5", "new"};
    for (std::size_t column = 1; column < typed.size(); ++column) {
        EXPECT_TRUE(grid.SetCell(1, column, typed[column]));
    }
    const GridEditReport report = ApplyGridEdits(grid);
    EXPECT_EQ(report.added, 1);
    EXPECT_EQ(report.changed, 0);
    EXPECT_EQ(RowTexts(grid, 1),
              (Texts{"2", "45", "300", "10", "020", "30", "040", "5", "new", ""}));
    EXPECT_EQ(Record().NumValidData, 2);
    ASSERT_TRUE(CanUndo());
    UndoLastEdit();
    EXPECT_EQ(Record().NumData, 1);
}

TEST_F(Grid, ANewRowWithoutAnOrientationComesToNothing) {
    Load(30, 120);
    DataGrid grid(gActivePlot);
    grid.AddRow();
    grid.SetCell(1, 1, "45");
    EXPECT_TRUE(grid.IsBad(1, 1));
    EXPECT_EQ(ApplyGridEdits(grid).added, 0);
    EXPECT_EQ(Record().NumData, 1);
    EXPECT_EQ(grid.RowCount(), 1U);
}

TEST_F(Grid, ANewRowAsksOnALinkedPlot) {
    Load(30, 120);
    Record().MapInfoLinked = kTrue;
    DataGrid grid(gActivePlot);
    grid.AddRow();
    grid.SetCell(1, 1, "45");
    grid.SetCell(1, 2, "90");
    Expect("you will break its link to the MapInfo Table", Button::No);
    EXPECT_EQ(ApplyGridEdits(grid).added, 0);
    EXPECT_NE(Record().MapInfoLinked, 0);
}

TEST_F(Grid, AppliesToItsOwnPlotWhicheverIsActive) {
    Load(30, 120);
    DataGrid grid(gActivePlot);
    grid.SetCell(0, 1, "77");
    const int slot = gActivePlot;
    const int other = NewPlot();
    Load(10, 10);
    EXPECT_EQ(ApplyGridEdits(grid).changed, 1);
    EXPECT_EQ(gActivePlot, other);
    EXPECT_EQ(gDataDip(slot, 1), 77);
    EXPECT_EQ(gDataDip(other, 1), 10);
}

TEST_F(Grid, DoesNothingWithoutEditsOrWhileALongLoopRuns) {
    Load(30, 120);
    Record().Modified = 0;
    DataGrid grid(gActivePlot);
    EXPECT_EQ(ApplyGridEdits(grid).changed, 0);
    EXPECT_EQ(Record().Modified, 0);
    grid.SetCell(0, 1, "77");
    gBusy = true;
    EXPECT_EQ(ApplyGridEdits(grid).changed, 0);
    gBusy = false;
    EXPECT_TRUE(grid.HasEdits()) << "they are not lost";
}

TEST_F(Grid, RemovedRowsShowDeletedUntilItIsFilled) {
    for (int i = 1; i <= 5; ++i) {
        Load(10 * i, 0);
    }
    DataGrid grid(gActivePlot);
    grid.SetCell(1, 1, "21");
    grid.SetCell(4, 1, "51");
    const std::vector<std::int32_t> gone = {2, 4};
    SelectRows(gActivePlot, gone);
    EditSelection(kDeleteItem);
    ASSERT_EQ(Record().NumData, 3);
    EXPECT_TRUE(grid.IsStale());
    grid.RowsRemoved(gone);
    EXPECT_FALSE(grid.IsStale());
    EXPECT_EQ(RowTexts(grid, 1), (Texts{"2", "deleted", "", ""}));
    EXPECT_EQ(RowTexts(grid, 2), (Texts{"3", "30", "000", ""}));
    EXPECT_EQ(RowTexts(grid, 3), (Texts{"4", "deleted", "", ""}));
    EXPECT_EQ(RowTexts(grid, 4), (Texts{"5", "51", "000", "*"})) << "its edit waits";
    EXPECT_FALSE(grid.IsEditable(1, 1));
    EXPECT_EQ(grid.PointOfRow(4), 3);
    EXPECT_EQ(grid.RowOfPoint(2), 2U);
    ApplyGridEdits(grid);
    EXPECT_EQ(gDataDip(gActivePlot, 3), 51);
    EXPECT_EQ(grid.RowCount(), 3U);
}

TEST_F(Grid, KeepsItsEditsWhenItIsFilledWithOtherRows) {
    for (int i = 1; i <= 4; ++i) {
        Load(10 * i, 0);
    }
    DataGrid grid(gActivePlot);
    grid.SetCell(1, 1, "21");
    grid.SetCell(3, 2, "99");
    ASSERT_TRUE(grid.AddRow());
    grid.SetCell(4, 1, "77");
    SelectRows(gActivePlot, {1, 2});
    EditSelection(kDeleteItem);
    Load(50, 0);
    gDataOrder.At(gActivePlot, 3) = 5;
    ASSERT_TRUE(grid.IsStale());
    grid.Refill();
    EXPECT_FALSE(grid.IsStale());
    ASSERT_EQ(grid.RowCount(), 4U);
    EXPECT_EQ(RowTexts(grid, 0), (Texts{"1", "30", "000", ""}));
    EXPECT_EQ(RowTexts(grid, 1), (Texts{"2", "40", "99", "*"})) << "the edit goes with its row";
    EXPECT_EQ(RowTexts(grid, 2), (Texts{"3", "50", "000", ""}));
    EXPECT_EQ(RowTexts(grid, 3), (Texts{"4", "77", "", "*"})) << "the new row stays the last";
    EXPECT_TRUE(grid.IsNew(3));
}

TEST_F(Grid, FindsOutWhichRowsThePlotHasLost) {
    for (int i = 1; i <= 6; ++i) {
        Load(10 * i, 0);
    }
    DataGrid grid(gActivePlot);
    EXPECT_FALSE(grid.LostRows());
    const std::vector<std::int32_t> gone = {2, 3, 6};
    SelectRows(gActivePlot, gone);
    EditSelection(kDeleteItem);
    EXPECT_EQ(grid.LostRows(), gone);
    grid.RowsRemoved(gone);
    EXPECT_FALSE(grid.LostRows());
    UndoEdits();
    EXPECT_TRUE(grid.IsStale());
    EXPECT_FALSE(grid.LostRows()) << "it has gained rows";
    grid.Refill();
    SelectRows(gActivePlot, gone);
    EditSelection(kDeleteItem);
    Load(70, 0);
    gDataOrder.At(gActivePlot, 4) = 9;
    EXPECT_FALSE(grid.LostRows()) << "it has lost some and gained another";
    Record().HasAppendedText = kTrue;
    EXPECT_FALSE(grid.LostRows());
    Record().HasAppendedText = 0;
    ReleasePlotSlot(gActivePlot);
    EXPECT_FALSE(grid.LostRows());
}

TEST_F(Grid, RowsOfOneOrderAreKnownByTheirPlaceAmongThem) {
    for (int i = 1; i <= 3; ++i) {
        Load(10 * i, 0);
        gDataOrder.At(gActivePlot, i) = i == 1 ? 1 : 2;
    }
    DataGrid grid(gActivePlot);
    grid.SetCell(2, 1, "31");
    Load(40, 0);
    grid.Refill();
    EXPECT_EQ(RowTexts(grid, 1), (Texts{"2", "20", "000", ""}));
    EXPECT_EQ(RowTexts(grid, 2), (Texts{"3", "31", "000", "*"}));
}

TEST_F(Grid, AClosedPlotLeavesNothingToRefill) {
    Load(30, 120);
    DataGrid grid(gActivePlot);
    grid.SetCell(0, 1, "31");
    ReleasePlotSlot(gActivePlot);
    grid.Refill();
    EXPECT_EQ(grid.RowCount(), 0U);
    EXPECT_FALSE(grid.HasEdits());
}

TEST_F(Grid, TellsOfATextBeforeItIsTaken) {
    Load(30, 120);
    AddAllColumns();
    Fill(1, {10, 20}, {30, 40}, 1.5F, "red");
    DataGrid grid(gActivePlot);

    struct Case {
        std::size_t column;
        const char* text;
        bool isBad;
    };

    const Case cases[] = {
        {1, "89", false}, {1, "91", true},  {1, "", true},   {2, "200", false}, {2, "x", true},
        {3, "x", true},   {5, "45", false}, {7, "x", true},  {7, "", false},    {7, "2.5", false},
        {8, "x", false},  {0, "x", false},  {9, "x", false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(grid.IsBadText(0, c.column, c.text), c.isBad) << c.column << " " << c.text;
        EXPECT_FALSE(grid.IsBad(0, c.column)) << "nothing was taken";
    }
    EXPECT_FALSE(grid.HasEdits());
    grid.SetCell(0, 5, "");
    EXPECT_FALSE(grid.IsBadText(0, 6, "")) << "an appended line may be left empty";
    EXPECT_TRUE(grid.IsBadText(0, 6, "30"));
}

TEST_F(Grid, IsStaleOnceThePlotHasOtherColumns) {
    Load(30, 120);
    const DataGrid grid(gActivePlot);
    EXPECT_FALSE(grid.IsStale());
    Record().HasAppendedText = kTrue;
    EXPECT_TRUE(grid.IsStale());
    Record().HasAppendedText = 0;
    ReleasePlotSlot(gActivePlot);
    EXPECT_TRUE(grid.IsStale());
    EXPECT_EQ(grid.CellText(0, 1), "");
}

TEST_F(Grid, SelectsOnThePlotAndIsSelectedFromIt) {
    Load(10, 90);
    Load(kErrorRow, 0);
    Load(30, 270);
    gDataOrder.At(gActivePlot, 1) = 3;
    gDataOrder.At(gActivePlot, 3) = 1;
    const DataGrid grid(gActivePlot);
    SelectRowsOfGrid(grid, std::vector<std::size_t>{2, 0, 1, 0, 99});
    const auto rows = SelectedRowsOf(gActivePlot);
    EXPECT_EQ(std::vector<std::int32_t>(rows.begin(), rows.end()),
              (std::vector<std::int32_t>{1, 3}))
        << "an error row has no place on the net";
    EXPECT_FALSE(MarqueeStands());
    SelectRows(gActivePlot, {3});
    EXPECT_EQ(SelectedRowsOfGrid(grid), (std::vector<std::size_t>{0}));
    NewPlot();
    SelectRows(gActivePlot, {});
    EXPECT_TRUE(SelectedRowsOfGrid(grid).empty());
}

TEST(GridEdits, RowsThatCouldNotBeReadAreTold) {
    EXPECT_EQ(NoteOnGridEdits({}), "");
    EXPECT_EQ(NoteOnGridEdits({3, 0, 1}),
              "1 edited row could not be read and now holds no data. Undo reverts the edits.");
    EXPECT_EQ(NoteOnGridEdits({3, 0, 2}),
              "2 edited rows could not be read and now hold no data. Undo reverts the edits.");
}

} // namespace
} // namespace quandrel
