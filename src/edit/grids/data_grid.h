// SPDX-License-Identifier: MIT
//
// The rows of a plot as a grid: its columns, the texts of its cells, and its pending edits.
//
// This folder holds grids of the plotted rows (this file, grid_cells.h), the transfer of their
// edits into the columns (grid_edits.cpp), and grids of the lines of files (raw_data.h).
// Input: rows, columns and files of a plot, typed texts.
// Output: texts of cells, selected rows, and one edit of rows for all changed cells.
//
// Cells of orientations are dip or plunge and azimuth, whatever the convention in force: in whole
// degrees, or with one decimal in plots that use decimals. Either way an edit keeps the decimals of
// the angles that it does not change. The main rows are in the order of loading; those of the
// overlays follow and cannot be edited. Grid rows and columns count from 0; texts are made when
// requested.

#pragma once

#include "edit/grids/grid_cells.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

class DataGrid {
public:
    /// The filled grid of an open plot.
    explicit DataGrid(int slot);

    /// Refills the grid from the store: edits and marks of deleted rows are dropped. O(rows log
    /// rows).
    void Fill();

    /// Refills the grid from a plot that has gained or lost rows. Edits stay with their rows, which
    /// are identified by their order; new rows that are not empty stay if the plot still accepts
    /// them. O(rows log rows).
    void Refill();

    [[nodiscard]] int Slot() const { return slot_; }

    [[nodiscard]] const std::vector<GridColumn>& Columns() const { return columns_; }

    [[nodiscard]] std::size_t RowCount() const { return lines_.size(); }

    /// The text of a cell: its edit, or the value in the store. Missing secondary orientations,
    /// lines and numbers are empty.
    [[nodiscard]] std::string CellText(std::size_t row, std::size_t column) const;

    /// The initial text of a cell's editor: as CellText, but without "non-data".
    [[nodiscard]] std::string EditText(std::size_t row, std::size_t column) const;

    /// The line of the file that an error row came from, or nothing.
    [[nodiscard]] std::string LineBehind(std::size_t row) const;

    /// True for the data cells of existing main rows and of new rows.
    [[nodiscard]] bool IsEditable(std::size_t row, std::size_t column) const;

    /// Sets the text of a cell; the store is unchanged. False when the cell cannot be edited, or
    /// has this text already.
    bool SetCell(std::size_t row, std::size_t column, std::string_view text);

    /// True for an edited cell that is not a number, or whose pair is not an orientation. Appended
    /// lines and secondary orientations, but not primary ones, may be empty.
    [[nodiscard]] bool IsBad(std::size_t row, std::size_t column) const;

    /// True when a cell would be bad with this text.
    [[nodiscard]] bool IsBadText(std::size_t row, std::size_t column, std::string_view text) const;

    [[nodiscard]] bool IsEdited(std::size_t row) const;

    [[nodiscard]] bool HasEdits() const { return !edits_.empty(); }

    /// Rows with edits, ascending.
    [[nodiscard]] std::vector<std::size_t> EditedRows() const;

    /// True when a row has an edit in its cell of a kind.
    [[nodiscard]] bool HasEdit(std::size_t row, GridColumnKind kind) const;

    /// The text of a row's cell of a kind; empty when the plot has no such column.
    [[nodiscard]] std::string TextOfKind(std::size_t row, GridColumnKind kind) const;

    /// The text by which an edit of a row's pair is read: as TextOfKind in a cell whose text was
    /// changed; in the others of the pair all digits of what they show.
    [[nodiscard]] std::string ExactTextOfKind(std::size_t row, GridColumnKind kind) const;

    /// True when a row has an edit in its cell of a kind that differs from the store's text.
    [[nodiscard]] bool IsChanged(std::size_t row, GridColumnKind kind) const;

    /// Drops the edits of all rows, and new rows.
    void DiscardEdits();

    /// Adds an empty row at the end, to be filled in. A rose, a plot with overlays, and one that
    /// shows its secondary data accept none.
    /// @return true when a row was added
    bool AddRow();

    /// True for a row added by AddRow.
    [[nodiscard]] bool IsNew(std::size_t row) const;

    /// The point index of a grid row; 0 for a deleted or a new one.
    [[nodiscard]] std::int32_t PointOfRow(std::size_t row) const;

    /// The grid row with a point index, or nothing.
    [[nodiscard]] std::optional<std::size_t> RowOfPoint(std::int32_t point) const;

    /// Reports that rows were removed from the plot: they show "deleted" until the grid is
    /// refilled, and the others follow.
    /// @param points  their point indices before the removal, ascending
    void RowsRemoved(std::span<const std::int32_t> points);

    /// The point indices, ascending, of the rows that the plot has lost since the grid was last
    /// updated, identified by the order of the others; nothing when it has lost none, or has
    /// changed in another way. O(rows).
    [[nodiscard]] std::optional<std::vector<std::int32_t>> LostRows() const;

    /// True when the rows or columns of the plot differ from the grid's, or it is closed.
    [[nodiscard]] bool IsStale() const;

private:
    struct GridLine {
        std::int32_t point = 0; ///< 0 for a row that is not in the plot
        bool isDeleted = false;
        std::int32_t order = 0; ///< of loading
    };

    using CellEdits = std::map<GridColumnKind, std::string>;

    [[nodiscard]] std::string StoredText(const GridLine& line, GridColumnKind kind) const;
    [[nodiscard]] std::string AngleText(std::int32_t point, GridColumnKind kind,
                                        AngleDigits digits) const;
    [[nodiscard]] std::string NumberText(std::size_t row) const;
    /// Whether the plot has other columns than the grid. It must be open.
    [[nodiscard]] bool HasOtherColumns() const;
    [[nodiscard]] bool IsMainRow(const GridLine& line) const;
    [[nodiscard]] std::size_t FirstOfOrder(std::size_t row) const;
    void FindPoints();

    int slot_;
    std::string format_;
    std::vector<GridColumn> columns_;
    std::vector<GridLine> lines_;
    std::vector<std::size_t> rowOfPoint_; ///< by point index; RowCount() for none
    std::map<std::size_t, CellEdits> edits_;
    std::int32_t rowsKnown_ = 0;
};

/// Selects grid rows in the plot and in everything that follows its selection. Error rows and
/// deleted rows have no position on the net and are left out.
void SelectRowsOfGrid(const DataGrid& grid, std::span<const std::size_t> rows);

/// The grid rows of the selection in the grid's plot, ascending.
[[nodiscard]] std::vector<std::size_t> SelectedRowsOfGrid(const DataGrid& grid);

/// The result of applying edits.
struct GridEditReport {
    std::int32_t changed = 0; ///< rows that have changed
    std::int32_t added = 0;
    std::int32_t spoilt = 0; ///< those of `changed` that became error rows
};

/// A sentence on rows that became error rows; empty when there are none.
[[nodiscard]] std::string NoteOnGridEdits(const GridEditReport& report);

/// Writes the edits of a grid into its plot, redraws it and refills the grid.
///
/// Only pairs with an edit are parsed. A row with a bad primary or secondary pair becomes an error
/// row that keeps its cells as its line. An appended line or number that cannot be read is stored
/// as invalid. A new row is added as by hand, which may ask (edit/rows/add_point.h). One undo
/// reverts everything. Does nothing without edits or while a long loop runs (gBusy).
GridEditReport ApplyGridEdits(DataGrid& grid);

} // namespace quandrel
