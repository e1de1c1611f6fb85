// SPDX-License-Identifier: MIT
//
// The table of the plotted rows of a plot. Every drawing and count reads it.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// One line of the table. A row that could not be read, or that cannot be plotted, has the plunge
/// kErrorRow and the position (0, 0).
struct PlottedRow {
    std::int32_t index = 0; ///< point index in the data columns
    std::int16_t x = 0;     ///< plot units
    std::int16_t y = 0;
    double plunge = 0; ///< radians, of the pole if plotted as one; kErrorRow in error rows
    double trend = 0;  ///< radians
};

/// The five columns, as parallel arrays of equal length. The main rows come first, sorted by x once
/// a drawing has asked for statistics; the rows of the overlays follow in order.
struct RowTable {
    std::vector<std::int32_t> index;
    std::vector<std::int16_t> x;
    std::vector<std::int16_t> y;
    std::vector<double> plunge;
    std::vector<double> trend;
    std::uint64_t version = 0; ///< changes with each change of a line, never repeats

    [[nodiscard]] std::size_t size() const { return index.size(); }

    [[nodiscard]] PlottedRow operator[](std::size_t place) const {
        return {index[place], x[place], y[place], plunge[place], trend[place]};
    }
};

/// Whether a row is excluded from drawings and counts.
[[nodiscard]] bool IsErrorRow(double plunge);

void ClearRowTable(RowTable& table);
/// As ClearRowTable, and releases the memory.
void ReleaseRowTable(RowTable& table);
void AppendRow(RowTable& table, const PlottedRow& row);
/// Appends rows with the point indices after `last`. On std::bad_alloc column lengths may differ.
void AppendRows(RowTable& table, std::span<const PlottedRow> rows, std::int32_t last);
void SetRow(RowTable& table, std::size_t place, const PlottedRow& row);
/// Reserves memory for more rows, if it is available.
void ReserveRows(RowTable& table, std::size_t rows);

void ResizeRowTable(RowTable& table, std::size_t rows);

/// Sorts the first `rows` lines by x, stably. Counting sort, O(rows).
void SortRowTable(RowTable& table, std::size_t rows);

/// The text of a cell as files and grids show it: column 0 index, 1 x, 2 y, 3 plunge, 4 trend. The
/// position of an error row is empty and its plunge "-9999".
[[nodiscard]] std::string RowTableText(const RowTable& table, std::size_t place, int column);

} // namespace quandrel
