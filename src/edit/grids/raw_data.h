// SPDX-License-Identifier: MIT
//
// The files of a plot as a read-only grid of their lines. Grid rows and columns count from 0;
// column 0 is the number of the line in its file.

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
    /// Reads the files of an open plot again: those of the main rows, then those of the overlays.
    /// Fails, with a message for the user, when there is no file or one cannot be read. O(size of
    /// the files).
    [[nodiscard]] static Result<RawData> Read(int slot);

    [[nodiscard]] int Slot() const { return slot_; }

    /// The caption of the grid: the names of the files that were read, even if the plot has been
    /// saved under another name since.
    [[nodiscard]] std::string Caption() const;

    [[nodiscard]] std::size_t RowCount() const { return lines_.size(); }

    [[nodiscard]] std::size_t ColumnCount() const { return columns_; }

    /// The head of a column: from the file's heading line if the plot has one, else "Column" with
    /// its number; "Line" for the line numbers.
    [[nodiscard]] std::string Header(std::size_t column) const;

    /// The text of a cell. Comments and parameter lines are not split: they are in column 1. The
    /// line number is preceded by the name of its file when there are several.
    [[nodiscard]] std::string CellText(std::size_t row, std::size_t column) const;

    /// A whole line, valid as long as this object.
    [[nodiscard]] std::string_view Line(std::size_t row) const;

    /// The point index of the row that was loaded from a line, or 0 for a heading or a removed row.
    /// Rows and lines are matched by the order of loading; lines that the load did not reach have
    /// no rows.
    [[nodiscard]] std::int32_t PointOfRow(std::size_t row) const;

    /// The point indices of all rows that were loaded from some lines, ascending. O(rows of the
    /// plot) for any number of lines.
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

/// Selects the rows loaded from lines. Error rows have no position on the net and are left out.
void SelectRowsOfRawData(const RawData& raw, std::span<const std::size_t> rows);

/// The lines that the selected rows of the plot were loaded from, ascending.
[[nodiscard]] std::vector<std::size_t> SelectedRowsOfRawData(const RawData& raw);

} // namespace quandrel
