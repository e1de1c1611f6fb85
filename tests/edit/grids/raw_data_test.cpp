// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "edit/commands/edit_menu.h"
#include "edit/grids/raw_data.h"
#include "edit/history/undo.h"
#include "edit/rows/edit_rows.h"
#include "edit/selection/marquee.h"
#include "input/file_loading.h"
#include "input/table_files.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class RawGrid : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kEqualArea;
        gActiveLayer = kDataLayer;
        ForgetUndo();
        ClearSelection();
        AcceptFormat({}, 100);
    }

    void TearDown() override {
        ForgetUndo();
        ClearSelection();
        gSettings.format.hasHeadings = false;
        EngineTest::TearDown();
    }

    /// Loads a text as a new plot, as the program does.
    void Load(const std::string& name, const std::string& text) {
        NewPlot();
        Merge(name, text, kNewCommand);
    }

    void Merge(const std::string& name, const std::string& text,
               const char* command = kMergeCommand) {
        prompts.ExpectAny("");
        ASSERT_EQ(ReadTextFile(command, WriteFile(name, text)), command);
    }

    static std::vector<std::int32_t> Points(const RawData& raw) {
        std::vector<std::int32_t> points;
        for (std::size_t row = 0; row < raw.RowCount(); ++row) {
            points.push_back(raw.PointOfRow(row));
        }
        return points;
    }
};

TEST_F(RawGrid, ShowsTheLinesOfTheFileAsTheyAre) {
    Load("beds.txt", "; a remark, long\n30\t120\tred\n\n45\t270\n");
    const Result<RawData> raw = RawData::Read(gActivePlot);
    ASSERT_TRUE(raw);
    EXPECT_EQ(raw->Caption(), "Raw File data used in: beds.txt");
    ASSERT_EQ(raw->RowCount(), 4U);
    ASSERT_EQ(raw->ColumnCount(), 4U);
    EXPECT_EQ(raw->Header(0), "Line");
    EXPECT_EQ(raw->Header(2), "Column 2");
    EXPECT_EQ(raw->CellText(0, 1), "; a remark, long");
    EXPECT_EQ(raw->CellText(0, 2), "");
    EXPECT_EQ(raw->CellText(1, 0), "2");
    EXPECT_EQ(raw->CellText(1, 2), "120");
    EXPECT_EQ(raw->CellText(1, 3), "red");
    EXPECT_EQ(raw->CellText(2, 1), "");
    EXPECT_EQ(raw->CellText(3, 3), "");
    EXPECT_EQ(raw->CellText(9, 1), "");
    EXPECT_EQ(raw->CellText(1, 9), "");
    EXPECT_EQ(raw->Line(1), "30\t120\tred");
}

TEST_F(RawGrid, AFileWithoutTabsIsPartedWhereverItsColumnsEnd) {
    gFileDelimiter = "";
    Load("beds.csv", "30,120\n45 ; 270\n");
    const Result<RawData> raw = RawData::Read(gActivePlot);
    ASSERT_TRUE(raw);
    EXPECT_EQ(raw->CellText(0, 2), "120");
    EXPECT_EQ(raw->CellText(1, 2), "270");
}

TEST_F(RawGrid, HeadingsGoOverTheColumns) {
    AcceptFormat([](FormatAnswer& answer) { answer.columnHeadings = true; }, 100);
    Load("beds.txt", "; remark\nDip\tDirection\n30\t120\n45\t270\n");
    const Result<RawData> raw = RawData::Read(gActivePlot);
    ASSERT_TRUE(raw);
    EXPECT_EQ(raw->Header(1), "Dip");
    EXPECT_EQ(raw->Header(2), "Direction");
    EXPECT_EQ(Points(*raw), (std::vector<std::int32_t>{1, 0, 2, 3}));
    EXPECT_EQ(raw->RowOfPoint(3), 3U);
    EXPECT_EQ(gDataDip(gActivePlot, 3), 45) << "the row of that line";
}

TEST_F(RawGrid, IsNamedAfterTheFilesItWasReadFromAlsoAfterASave) {
    Load("beds.txt", "30\t120\n");
    const Result<RawData> raw = RawData::Read(gActivePlot);
    ASSERT_TRUE(raw);
    ActiveRecord().MainFiles = {"/elsewhere/other.txt"}; // as Save As leaves it
    EXPECT_EQ(raw->Caption(), "Raw File data used in: beds.txt");
}

TEST_F(RawGrid, LinesOfAllFilesKnowTheirRows) {
    Load("a.txt", "30\t120\nrubbish\n45\t270\n");
    Merge("b.txt", "60\t10\n70\t20\n");
    Merge("c.txt", "5\t5\n", kOverlayCommand);
    const Result<RawData> raw = RawData::Read(gActivePlot);
    ASSERT_TRUE(raw);
    EXPECT_EQ(raw->Caption(), "Raw File data used in: a.txt, b.txt, c.txt");
    EXPECT_EQ(Points(*raw), (std::vector<std::int32_t>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(raw->CellText(4, 0), "b.txt:2");
    EXPECT_EQ(gDataDip(gActivePlot, raw->PointOfRow(4)), 70);
}

TEST_F(RawGrid, RowsThatWereCutHaveNoLineAnyMore) {
    Load("a.txt", "30\t120\n40\t200\n45\t270\n");
    SelectRows(gActivePlot, {2});
    EditSelection(kDeleteItem);
    const Result<RawData> raw = RawData::Read(gActivePlot);
    ASSERT_TRUE(raw);
    EXPECT_EQ(Points(*raw), (std::vector<std::int32_t>{1, 0, 2}));
    EXPECT_EQ(raw->RowOfPoint(2), 2U);
    EXPECT_EQ(raw->RowOfPoint(3), std::nullopt);
    EXPECT_EQ(raw->RowOfPoint(0), std::nullopt);
}

TEST_F(RawGrid, SelectsOnThePlotAndIsSelectedFromIt) {
    Load("a.txt", "30\t120\nrubbish\n45\t270\n");
    const Result<RawData> raw = RawData::Read(gActivePlot);
    ASSERT_TRUE(raw);
    SelectRowsOfRawData(*raw, std::vector<std::size_t>{2, 1, 0, 2, 77});
    const auto rows = SelectedRowsOf(gActivePlot);
    EXPECT_EQ(std::vector<std::int32_t>(rows.begin(), rows.end()),
              (std::vector<std::int32_t>{1, 3}));
    SelectRows(gActivePlot, {3});
    EXPECT_EQ(SelectedRowsOfRawData(*raw), (std::vector<std::size_t>{2}));
}

TEST_F(RawGrid, OfASpreadsheetIsTheSheetWithTheHeadingsOfThePlot) {
    TableFiles::now.read = [](const std::string&) -> Result<std::vector<NamedTable>> {
        return std::vector<NamedTable>{{"notes", "remark\nnone\n"},
                                       {"beds", "dip\tdip direction\n52\t142\n43\t35\n"}};
    };
    NewPlot();
    ActiveRecord().MainFiles = {"beds.xlsx"};
    ActiveRecord().FileHeadLine = "dip\tdip direction";
    const Result<RawData> raw = RawData::Read(gActivePlot);
    ActiveRecord().FileHeadLine.clear();
    const Result<RawData> first = RawData::Read(gActivePlot);
    TableFiles::now = {};
    ASSERT_TRUE(raw) << raw.Error();
    EXPECT_EQ(raw->RowCount(), 3U);
    EXPECT_EQ(raw->Header(2), "dip direction");
    EXPECT_EQ(raw->CellText(1, 1), "52");
    ASSERT_TRUE(first);
    EXPECT_EQ(first->CellText(0, 1), "remark") << "without headings the first one";
    const Result<RawData> without = RawData::Read(gActivePlot);
    ASSERT_FALSE(without);
    EXPECT_NE(without.Error().find("need the plug-in for tables"), std::string::npos);
}

TEST_F(RawGrid, APlotWithoutAFileHasNoRawData) {
    NewPlot();
    const Result<RawData> raw = RawData::Read(gActivePlot);
    ASSERT_FALSE(raw);
    EXPECT_EQ(raw.Error(), "There is no filename associated with this data\nCouldn't display this "
                           "data properly");
}

TEST_F(RawGrid, AFileThatIsGoneIsNamed) {
    Load("a.txt", "30\t120\n");
    std::filesystem::remove(folder / "a.txt");
    const Result<RawData> raw = RawData::Read(gActivePlot);
    ASSERT_FALSE(raw);
    EXPECT_TRUE(raw.Error().starts_with("Couldn't display this data properly\na.txt: "))
        << raw.Error();
}

} // namespace
} // namespace quandrel
