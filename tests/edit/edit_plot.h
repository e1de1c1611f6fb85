// SPDX-License-Identifier: MIT
//
// Plots for tests of edits, and their contents as text.

#pragma once

#include "edit/history/undo.h"
#include "edit/rows/clipboard_text.h"
#include "edit/rows/paste_rows.h"
#include "edit/selection/marquee.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <cmath>
#include <string>
#include <vector>

namespace quandrel {

class EditTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPrimaryDataType = kPrimaryPlane;
        gSecondaryDataType = kNoSecondary;
        gPlotDataKind = kPlanes;
        gPlotKind = kEqualArea;
        gConventions = 1;
        gSettings.format.hasHeadings = false;
        gActiveLayer = kDataLayer;
        ClearSelection();
        ForgetUndo();
        ForgetPasteFormat();
    }

    void TearDown() override {
        ForgetUndo();
        ForgetPasteFormat();
        ClearSelection();
        gConventions = 1;
        gActiveLayer = kDataLayer;
        EngineTest::TearDown();
    }

    /// A plot of planes as the active one.
    int NewPlanes(const std::vector<Attitude>& rows) {
        const int slot = NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PrimaryFormat = kPrimaryPlane;
        record.DataKind = kPlanes;
        for (const Attitude& row : rows) {
            AddRow(WholeDegree(row.dip), WholeDegree(row.azimuth));
            gDataOrder.At(slot, record.NumData) = record.NumData;
        }
        return slot;
    }

    /// A plot of lines as the active one.
    int NewLines(const std::vector<Attitude>& rows, std::int16_t kind = kLines) {
        const int slot = NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PrimaryFormat = kPrimaryLine;
        record.DataKind = kind;
        for (const Attitude& row : rows) {
            AddRow(WholeDegree(row.dip), WholeDegree(row.azimuth));
            gDataOrder.At(slot, record.NumData) = record.NumData;
        }
        return slot;
    }

    /// Gives the active plot a secondary line, an appended line, a number and a text for each row.
    static void AddFields() {
        PlotRecord& record = ActiveRecord();
        record.SecondaryFormat = kSecondaryLine;
        record.HasAppendedLine = kTrue;
        record.HasAppendedNumeric = kTrue;
        record.HasAppendedText = kTrue;
        record.AppNumName = "Length";
        record.AppNonNumName = "Rock";
        const std::int32_t rows = record.NumLoadedData;
        int secondary = 1;
        GrowDataColumns(secondary, rows);
        for (const AppendedColumn column :
             {AppendedColumn::Line, AppendedColumn::Number, AppendedColumn::Text}) {
            ASSERT_TRUE(GrowAppendedColumn(column));
        }
        for (std::int32_t row = 1; row <= rows; ++row) {
            gData2Dip.At(gActivePlot, row) = 10 + row;
            gData2Az.At(gActivePlot, row) = 100 + row;
            gAppLineDip.At(gActivePlot, row) = 20 + row;
            gAppLineAz.At(gActivePlot, row) = 200 + row;
            gAppNumeric.At(gActivePlot, row) = static_cast<float>(row) + 0.5F;
            gAppText.Set(gActivePlot, row, "rock " + std::to_string(row));
        }
    }

    /// A row with everything that it holds.
    static std::string RowText(int slot, std::int32_t row) {
        std::string text;
        for (const DataColumn<std::int32_t>* column :
             {&gDataDip, &gDataAz, &gData2Dip, &gData2Az, &gAppLineDip, &gAppLineAz, &gDataOrder}) {
            text += std::to_string((*column)(slot, row)) + " ";
        }
        text += SymbolCodeText(gDataSymbol(slot, row)) + " "
                + SymbolCodeText(gDataSymbolBase(slot, row)) + " "
                + std::to_string(gAppNumeric(slot, row)) + " ";
        const auto& errors = PlotOf(slot).rows.errorLines;
        return text + std::string(gAppText(slot, row))
               + (errors.contains(row) ? " !" + errors.at(row) : "");
    }

    /// The rows of a plot with their counts and overlays.
    static std::vector<std::string> Rows(int slot) {
        const PlotRecord& record = RecordOf(slot);
        std::vector<std::string> rows = {"valid " + std::to_string(record.NumValidData) + " of "
                                         + std::to_string(record.NumData)};
        for (int k = 1; k <= record.OverlayRows[kOverlayCount]; ++k) {
            rows.push_back("overlay " + std::to_string(record.OverlayRows[static_cast<size_t>(k)])
                           + " kind " + std::to_string(record.OverlayKind[static_cast<size_t>(k)]));
        }
        for (std::int32_t row = 1; row <= record.NumLoadedData; ++row) {
            rows.push_back(RowText(slot, row));
        }
        return rows;
    }

    /// Where rows are plotted, in the order of their numbers: computed from the table.
    static std::vector<Point> Places(int slot) {
        const RowTable& table = TableOf(slot);
        std::vector<Point> places(table.size());
        for (std::size_t i = 0; i < table.size(); ++i) {
            places[static_cast<std::size_t>(table.index[i]) - 1] = {
                static_cast<double>(table.x[i]), static_cast<double>(table.y[i])};
        }
        return places;
    }

    static void ExpectSamePlace(Point a, Point b) {
        EXPECT_LT(std::hypot(a.x - b.x, a.y - b.y), 1e-9)
            << a.x << "," << a.y << " is not " << b.x << "," << b.y;
    }

    [[nodiscard]] std::string Copied() const { return clipboard.Text().value_or(""); }

    /// The lines of rows on the clipboard.
    [[nodiscard]] std::vector<std::string> CopiedRows() const {
        std::vector<std::string> rows;
        const std::string text = Copied();
        for (std::size_t start = 0; start < text.size();) {
            const std::size_t end = text.find("\r\n", start);
            EXPECT_NE(end, std::string::npos);
            const std::string line = text.substr(start, end - start);
            if (line.front() != ';' && line.front() != '/') {
                rows.push_back(line);
            }
            start = end + 2;
        }
        return rows;
    }
};

} // namespace quandrel
