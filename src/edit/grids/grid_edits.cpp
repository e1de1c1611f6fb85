// SPDX-License-Identifier: MIT
//
// Applying the edits of a grid to the columns.

#include "core/data_format.h"
#include "core/plot_store.h"
#include "derive/secondary_data.h"
#include "edit/grids/data_grid.h"
#include "edit/history/edit_step.h"
#include "edit/rows/add_point.h"
#include "edit/rows/remove_rows.h"
#include "edit/rows/row_change.h"
#include "input/data_rows.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <utility>

namespace quandrel {

namespace {

using Kind = GridColumnKind;

/// The result of parsing a pair.
enum class PairEdit { None, Empty, Bad, Good };

struct EditedPair {
    PairEdit edit = PairEdit::None;
    KeptAttitude value;
};

EditedPair ReadPair(const DataGrid& grid, std::size_t row, Kind dip, Kind azimuth, bool isPlane) {
    if (!grid.IsChanged(row, dip) && !grid.IsChanged(row, azimuth)) {
        return {};
    }
    const std::string dipText = grid.ExactTextOfKind(row, dip);
    const std::string azimuthText = grid.ExactTextOfKind(row, azimuth);
    if (WithoutBlanks(dipText).empty() && WithoutBlanks(azimuthText).empty()) {
        return {PairEdit::Empty, {}};
    }
    const std::optional<KeptAttitude> value = ReadGridPair(dipText, azimuthText, isPlane);
    return value ? EditedPair{PairEdit::Good, *value} : EditedPair{PairEdit::Bad, {}};
}

/// The parsed edits of a row.
struct RowEdit {
    EditedPair primary;
    EditedPair secondary;
    EditedPair line;
    bool hasNumber = false;
    std::optional<float> number;
    std::optional<std::string> text;
    bool hasPlace = false;
    std::optional<MapPlace> place;

    [[nodiscard]] bool IsSpoilt() const {
        return primary.edit == PairEdit::Bad || primary.edit == PairEdit::Empty
               || secondary.edit == PairEdit::Bad;
    }
};

RowEdit ReadEdit(const DataGrid& grid, std::size_t row, const PlotRecord& record) {
    RowEdit edit;
    edit.primary =
        ReadPair(grid, row, Kind::Dip, Kind::Azimuth, record.PrimaryFormat == kPrimaryPlane);
    edit.secondary = ReadPair(grid, row, Kind::SecondaryDip, Kind::SecondaryAzimuth,
                              record.SecondaryFormat == kSecondaryPlane);
    edit.line = ReadPair(grid, row, Kind::LinePlunge, Kind::LineTrend, false);
    edit.hasNumber = grid.HasEdit(row, Kind::Number);
    if (edit.hasNumber) {
        edit.number = ReadGridNumber(grid.TextOfKind(row, Kind::Number));
    }
    if (grid.HasEdit(row, Kind::Text)) {
        edit.text = grid.TextOfKind(row, Kind::Text);
    }
    edit.hasPlace = grid.IsChanged(row, Kind::MapX) || grid.IsChanged(row, Kind::MapY);
    if (edit.hasPlace) {
        edit.place =
            ReadGridPlace(grid.TextOfKind(row, Kind::MapX), grid.TextOfKind(row, Kind::MapY));
    }
    return edit;
}

/// The data cells of a row as a line of text.
std::string LineOfCells(const DataGrid& grid, std::size_t row) {
    std::string line;
    for (std::size_t column = 1; column + 1 < grid.Columns().size(); ++column) {
        line += (column == 1 ? "" : "\t") + grid.ExactTextOfKind(row, grid.Columns()[column].kind);
    }
    return line;
}

/// By the whole degrees, as when rows are loaded.
bool IsUp(std::int32_t point) {
    const std::int32_t dip = WholeDegree(OrientationShown(gActivePlot, point).dip);
    return dip < 0 && dip != kErrorRow;
}

/// Allocates columns that rows loaded without them may lack.
[[nodiscard]] bool GrowColumns(Plot& plot) {
    const bool hasSecondary = plot.record.SecondaryFormat != kNoSecondary;
    return MakeRoom(plot.rows, plot.record.NumLoadedData, ColumnsOf(plot.record, hasSecondary));
}

/// Stores an edited pair, or `missing` where it is empty or bad.
void StorePair(Plot& plot, const EditedPair& pair, RowAngles which, std::int32_t point,
               Attitude missing) {
    if (pair.edit == PairEdit::None) {
        return;
    }
    const bool isGood = pair.edit == PairEdit::Good;
    SetWholeAttitude(plot.rows, which, point, isGood ? pair.value.whole : missing);
    if (isGood && pair.value.measured
        && !SetDecimals(plot.rows, which, point, *pair.value.measured)) {
        plot.record.DataFull = kTrue;
    }
}

void StoreAppended(const RowEdit& edit, std::int32_t point) {
    Plot& plot = ActivePlot();
    StorePair(plot, edit.line, RowAngles::Line, point, {kInvalidAppendedLine, 0});
    if (edit.hasNumber) {
        gAppNumeric.At(gActivePlot, point) = edit.number.value_or(kInvalidNumber);
    }
    if (edit.text) {
        gAppText.Set(gActivePlot, point, *edit.text);
    }
    if (edit.hasPlace) {
        SetMapPlace(plot, point, edit.place);
    }
}

/// A row in the style of its sense gets that of its new sense; a former error row gets a style.
void FollowSense(std::int32_t point, bool wasError, bool wasUp) {
    SymbolCode& base = gDataSymbolBase.At(gActivePlot, point);
    SymbolCode& drawn = gDataSymbol.At(gActivePlot, point);
    const SymbolCode code = CodeOfNewRow(ActiveRecord(), 0, IsUp(point));
    if (wasError) {
        base = code;
        drawn = code;
        return;
    }
    if (base == CodeOfNewRow(ActiveRecord(), 0, wasUp)) {
        drawn = drawn == base ? code : drawn;
        base = code;
    }
}

void StoreOrientations(const RowEdit& edit, std::int32_t point) {
    const bool wasError = gDataDip(gActivePlot, point) == kErrorRow;
    const bool wasUp = IsUp(point);
    if (edit.primary.edit == PairEdit::Good) {
        SetMeasuredOrientation(ActivePlot(), point, edit.primary.value.whole,
                               edit.primary.value.Measured());
    }
    StorePair(ActivePlot(), edit.secondary, RowAngles::Secondary, point, {kErrorRow, kErrorRow});
    if (gDataDip(gActivePlot, point) == kErrorRow) {
        return;
    }
    FollowSense(point, wasError, wasUp);
}

/// Sets missing values where a former error row has none.
void MakeMissing(const PlotRecord& record, std::int32_t point) {
    if (record.SecondaryFormat != kNoSecondary) {
        SetWholeAttitude(ActivePlot().rows, RowAngles::Secondary, point, {kErrorRow, kErrorRow});
    }
    if (record.HasAppendedLine != 0) {
        SetWholeAttitude(ActivePlot().rows, RowAngles::Line, point, {kInvalidAppendedLine, 0});
    }
    if (record.HasAppendedNumeric != 0) {
        gAppNumeric.At(gActivePlot, point) = kInvalidNumber;
    }
    if (record.HasAppendedText != 0) {
        gAppText.Set(gActivePlot, point, "");
    }
}

void ApplyRow(const DataGrid& grid, std::size_t row, std::int32_t point, GridEditReport& report) {
    PlotRecord& record = ActiveRecord();
    const RowEdit edit = ReadEdit(grid, row, record);
    ++report.changed;
    if (edit.IsSpoilt()) {
        ++report.spoilt;
        SpoilRow(ActivePlot(), point, LineOfCells(grid, row));
        return;
    }
    if (gDataDip(gActivePlot, point) == kErrorRow) {
        MakeMissing(record, point);
    }
    StoreOrientations(edit, point);
    StoreAppended(edit, point);
}

DegreesByHand RowByHand(const KeptAttitude& row, const PlotRecord& record) {
    const Attitude measured = row.Measured();
    return {measured.dip, measured.azimuth, record.PrimaryFormat == kPrimaryPlane};
}

/// Adds the new rows of a grid, with their appended values. Rows without an orientation, and rows
/// that the user declines, are dropped.
void AddNewRows(const DataGrid& grid, GridEditReport& report) {
    Plot& plot = ActivePlot();
    for (const std::size_t row : grid.EditedRows()) {
        if (!grid.IsNew(row)) {
            continue;
        }
        const RowEdit edit = ReadEdit(grid, row, plot.record);
        if (edit.primary.edit != PairEdit::Good || edit.secondary.edit == PairEdit::Bad
            || !MayAddRow() || !StoreRowByHand(RowByHand(edit.primary.value, plot.record))) {
            continue;
        }
        ++report.added;
        const std::int32_t point = plot.record.NumLoadedData;
        if (point == plot.record.NumData && GrowColumns(plot)) {
            RowEdit rest = edit;
            rest.primary = {};
            StoreOrientations(rest, point);
            StoreAppended(edit, point);
        }
    }
}

} // namespace

std::string NoteOnGridEdits(const GridEditReport& report) {
    if (report.spoilt == 0) {
        return {};
    }
    const std::string rows = report.spoilt == 1
                                 ? "1 edited row could not be read and now holds no data."
                                 : std::to_string(report.spoilt)
                                       + " edited rows could not be read and now hold no data.";
    return rows + " Undo reverts the edits.";
}

GridEditReport ApplyGridEdits(DataGrid& grid) {
    GridEditReport report;
    if (gBusy || !IsOpenSlot(grid.Slot()) || !grid.HasEdits()) {
        return report;
    }
    const PlotInWork work(grid.Slot());
    std::vector<std::size_t> rows = grid.EditedRows();
    std::erase_if(rows, [&grid](std::size_t row) { return grid.PointOfRow(row) == 0; });
    std::vector<std::int32_t> points;
    for (const std::size_t row : rows) {
        points.push_back(grid.PointOfRow(row));
    }
    EditStep step(kAddEdit, Before<RowChange>);
    AddNewRows(grid, report);
    if (!points.empty() && GrowColumns(ActivePlot())) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            ApplyRow(grid, rows[i], points[i], report);
        }
    }
    if (report.changed + report.added > 0) {
        RecountAppendedRange();
        RebuildRowTable(gActivePlot);
        RefreshSecondaryOverlay();
        step.CallIt(report.changed > 0 ? kGridEdit : kAddEdit);
        step.Finish(Redraw::Rows);
    }
    grid.Fill();
    return report;
}

} // namespace quandrel
