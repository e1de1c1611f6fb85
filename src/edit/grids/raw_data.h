// SPDX-License-Identifier: MIT
//
// The files of a plot as a grid of their lines. It is read only. Grid rows and columns count from
// 0; column 0 is the number of the line in its file.

#pragma once

#include "core/result.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

class RawData {
public:
    /// Reads the files of an open plot anew: those of the main rows, then those of the overlays.
    /// Fails, with a text for the user, without a file and when one of them cannot be read. O(size
    /// of the files).
    [[nodiscard]] static Result<RawData> Read(int slot);

    [[nodiscard]] int Slot() const { return slot_; }

    /// The caption of the grid: the names of the files that were read, also when the plot has been
    /// saved under another one since.
    [[nodiscard]] std::string Caption() const;

    [[nodiscard]] std::size_t RowCount() const { return lines_.size(); }

    [[nodiscard]] std::size_t ColumnCount() const { return columns_; }

    /// The head of a column: that of the file's heading line where the plot has one, else "Column"
    /// with its number; of the line numbers "Line".
    [[nodiscard]] std::string Header(std::size_t column) const;

    /// What a cell shows. Comments and parameter lines are not taken apart: they stand in column 1.
    /// The line number has the name of its file in front when there are several.
    [[nodiscard]] std::string CellText(std::size_t row, std::size_t column) const;

    /// A whole line, valid as long as this is.
    [[nodiscard]] std::string_view Line(std::size_t row) const;

    /// The point index of the row that was loaded from a line, or 0 when it is a heading or the row
    /// is gone. Which row came from which line is known by the order of loading; lines that the
    /// load did not reach have no rows of their own.
    [[nodiscard]] std::int32_t PointOfRow(std::size_t row) const;

    /// The point indices of all rows that were loaded from some lines, ascending. O(rows of the
    /// plot), however many lines there are.
    [[nodiscard]] std::vector<std::int32_t> PointsOfRows(std::span<const std::size_t> rows) const;

    /// The line that a point was loaded from, or nothing.
    [[nodiscard]] std::optional<std::size_t> RowOfPoint(std::int32_t point) const;

private:
    struct RawFile {
        std::string name;
        std::string text;
        char delimiter = '\t';
    };

    struct RawLine {
        std::size_t offset = 0;
        std::uint32_t length = 0;
        std::uint16_t file = 0;
        std::int32_t number = 0; ///< in its file, from 1
        std::int32_t order = 0;  ///< of the row loaded from it, 0 for a heading
    };

    explicit RawData(int slot)
        : slot_(slot) {}

    void AddFile(RawFile file);

    int slot_;
    std::size_t columns_ = 1;
    std::string heading_;
    char headingDelimiter_ = '\t';
    std::vector<RawFile> files_;
    std::vector<RawLine> lines_;
    std::int32_t lastOrder_ = 0;
};

/// Makes the rows loaded from lines the selection. Error rows have no place on the net and are left
/// out.
void SelectRowsOfRawData(const RawData& raw, std::span<const std::size_t> rows);

/// The lines that the selected rows of the plot were loaded from, ascending.
[[nodiscard]] std::vector<std::size_t> SelectedRowsOfRawData(const RawData& raw);

} // namespace quandrel
