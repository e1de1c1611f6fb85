// SPDX-License-Identifier: MIT
//
// The rows of a plot as a grid: its columns, the texts of its cells, and the edits that wait in it.
//
// What is inside this room: grids of the plotted rows (this file, grid_cells.h), their edits on the
// way into the columns (grid_edits.cpp), and grids of the lines of files (raw_data.h).
// What enters: rows, columns and files of a plot, texts that are typed. What leaves: texts of
// cells, rows that are selected, and one edit of rows for all cells that were changed.
//
// Cells of orientations are dip or plunge and azimuth in whole degrees, whatever the convention in
// force. The main rows come in the order in which they were loaded, those of the overlays follow
// and cannot be edited. Grid rows and columns count from 0; texts are made when they are asked for.

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
    /// The grid of an open plot, filled.
    explicit DataGrid(int slot);

    /// Fills the grid from the store anew: edits and marks of deleted rows are gone. O(rows log
    /// rows).
    void Fill();

    /// Fills the grid anew from a plot that has gained or lost rows. Edits go with their rows,
    /// which are known by their order; new rows that hold something stay where the plot still takes
    /// them. O(rows log rows).
    void Refill();

    [[nodiscard]] int Slot() const { return slot_; }

    [[nodiscard]] const std::vector<GridColumn>& Columns() const { return columns_; }

    [[nodiscard]] std::size_t RowCount() const { return lines_.size(); }

    /// What a cell shows: its edit, or what the store holds. Secondary orientations, lines and
    /// numbers that are missing are empty.
    [[nodiscard]] std::string CellText(std::size_t row, std::size_t column) const;

    /// What the editor of a cell begins with: as CellText, but no "non-data".
    [[nodiscard]] std::string EditText(std::size_t row, std::size_t column) const;

    /// The line of a file that stands behind an error row, or nothing.
    [[nodiscard]] std::string LineBehind(std::size_t row) const;

    /// True for the data cells of main rows that are there, and of new ones.
    [[nodiscard]] bool IsEditable(std::size_t row, std::size_t column) const;

    /// Takes a new text for a cell; the store is not touched. False when it cannot be edited, or
    /// holds this text already.
    bool SetCell(std::size_t row, std::size_t column, std::string_view text);

    /// True for an edited cell that holds no number, or whose pair is no orientation. Appended
    /// lines and secondary orientations, but not primary ones, may be left empty.
    [[nodiscard]] bool IsBad(std::size_t row, std::size_t column) const;

    /// True when a cell would be bad if it held this text.
    [[nodiscard]] bool IsBadText(std::size_t row, std::size_t column, std::string_view text) const;

    [[nodiscard]] bool IsEdited(std::size_t row) const;

    [[nodiscard]] bool HasEdits() const { return !edits_.empty(); }

    /// Rows with edits, ascending.
    [[nodiscard]] std::vector<std::size_t> EditedRows() const;

    /// True when a cell of a kind has an edit.
    [[nodiscard]] bool HasEdit(std::size_t row, GridColumnKind kind) const;

    /// The text of the cell of a kind in a row; empty when the plot has no such column.
    [[nodiscard]] std::string TextOfKind(std::size_t row, GridColumnKind kind) const;

    /// Forgets the edits of all rows, and new rows.
    void DiscardEdits();

    /// Adds an empty row for one that is to be typed, behind the last. A rose, a plot with
    /// overlays, and one that shows its secondary data take none.
    /// @return true when there is a new row now
    bool AddRow();

    /// True for a row of AddRow.
    [[nodiscard]] bool IsNew(std::size_t row) const;

    /// The point index of a grid row; 0 for a deleted or a new one.
    [[nodiscard]] std::int32_t PointOfRow(std::size_t row) const;

    /// The grid row of a point index, or nothing.
    [[nodiscard]] std::optional<std::size_t> RowOfPoint(std::int32_t point) const;

    /// Tells that rows were taken out of the plot: they show "deleted" until the grid is filled,
    /// and the others follow.
    /// @param points  their point indices before that, ascending
    void RowsRemoved(std::span<const std::int32_t> points);

    /// The point indices, ascending, of the rows that the plot has lost since the grid learnt of
    /// them, known by the order of those that are left; nothing when it has lost none, or when
    /// something else has happened to it. O(rows).
    [[nodiscard]] std::optional<std::vector<std::int32_t>> LostRows() const;

    /// True when the plot has other rows or columns than the grid knows of, or is closed.
    [[nodiscard]] bool IsStale() const;

private:
    struct GridLine {
        std::int32_t point = 0; ///< 0 for no row of the plot
        bool isDeleted = false;
        std::int32_t order = 0; ///< in which it was loaded
    };

    using CellEdits = std::map<GridColumnKind, std::string>;

    [[nodiscard]] std::string StoredText(const GridLine& line, GridColumnKind kind) const;
    [[nodiscard]] std::string NumberText(std::size_t row) const;
    [[nodiscard]] bool IsMainRow(const GridLine& line) const;
    [[nodiscard]] std::size_t FirstOfOrder(std::size_t row) const;
    void FindPoints();

    int slot_;
    std::string format_;
    std::vector<GridColumn> columns_;
    std::vector<GridLine> lines_;
    std::vector<std::size_t> rowOfPoint_; ///< by point index; RowCount() where there is none
    std::map<std::size_t, CellEdits> edits_;
    std::int32_t rowsKnown_ = 0;
};

/// Makes grid rows the selection, on the plot and in all that follows it. Error rows and rows that
/// are gone have no place on the net and are left out.
void SelectRowsOfGrid(const DataGrid& grid, std::span<const std::size_t> rows);

/// The grid rows of what is selected in the plot of a grid, ascending.
[[nodiscard]] std::vector<std::size_t> SelectedRowsOfGrid(const DataGrid& grid);

/// What an application of edits did.
struct GridEditReport {
    std::int32_t changed = 0; ///< rows that stand otherwise now
    std::int32_t added = 0;
    std::int32_t spoilt = 0; ///< those of `changed` that became error rows
};

/// A sentence on rows that became error rows; empty when there are none.
[[nodiscard]] std::string NoteOnGridEdits(const GridEditReport& report);

/// Writes the edits of a grid into its plot, draws it and fills the grid anew.
///
/// Only pairs with an edit are parsed. A row with a bad pair, of the primary or of the secondary
/// orientation, becomes an error row; its cells stand behind it as its line. An appended line or
/// number that cannot be read is stored as invalid. A new row is added as by
/// hand, which may ask (edit/rows/add_point.h). One undo takes all of it back. Does nothing without
/// edits or while a long loop runs (gBusy).
GridEditReport ApplyGridEdits(DataGrid& grid);

} // namespace quandrel
