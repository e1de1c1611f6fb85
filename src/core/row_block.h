// SPDX-License-Identifier: MIT
//
// Rows on their way into a plot: the values of one, and a block of many that has no plot yet.

#pragma once

#include "core/appended_range.h"
#include "core/plot.h"
#include "core/row_room.h"
#include "orientation/angles.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace quandrel {

/// A row as the columns keep it. What is not set is missing.
struct RowValues {
    bool isData = false; ///< false: an error row, of which only errorLine counts
    std::int32_t dip = kErrorRow;
    std::int32_t azimuth = 0;
    SymbolCode code = 0;
    bool hasSecondary = false; ///< the secondary columns take the row, too
    std::int32_t dip2 = kErrorRow;
    std::int32_t azimuth2 = kErrorRow;
    std::int32_t lineDip = kInvalidAppendedLine;
    std::int32_t lineAzimuth = 0;
    float number = kInvalidNumber;
    std::string_view text;
    bool isInRange = false; ///< number and text count in the range of the appended values
    PlottedRow place{0, 0, 0, static_cast<double>(kErrorRow), 0}; ///< its index plays no part
    std::string_view errorLine; ///< what an error row was in its file, to be kept with it
};

/// Makes the cells of a row those of an error row: defaults in all columns, for former rows may
/// have left others there. The order of its loading stays, and so does a text unless there is
/// another.
void StoreErrorCells(PlotRows& rows, std::int32_t row, std::string_view line);

/// Writes a row to its cells, which must be there.
void StoreCells(PlotRows& rows, std::int32_t row, const RowValues& values,
                const ColumnSet& columns);

/// Rows in the order of their coming, as columns. It touches nothing outside itself, so that a
/// thread of its own can fill it.
class RowBlock {
public:
    /// @param columns  those of the plot that the rows are for
    explicit RowBlock(const ColumnSet& columns)
        : columns_(columns) {}

    /// Empties the block for rows to come, of which there may be more than expected. Its memory
    /// stays with it. Throws std::bad_alloc when there is none for so many rows.
    void Begin(const ColumnSet& columns, std::int32_t expectedRows);

    /// Appends a row. Throws std::bad_alloc when memory ran out, and then has not changed.
    void Add(const RowValues& values);

    /// Row 1 to Count(), with the block's own texts.
    [[nodiscard]] RowValues Row(std::int32_t row) const;

    [[nodiscard]] std::int32_t Count() const { return count_; }

    /// Rows that are no error rows.
    [[nodiscard]] std::int32_t CountOfValid() const { return valid_; }

    [[nodiscard]] const ColumnSet& Columns() const { return columns_; }

    [[nodiscard]] const PlotRows& Cells() const { return cells_; }

    /// The lines of the rows for the table, without their indices.
    [[nodiscard]] std::span<const PlottedRow> Places() const {
        return std::span(places_).first(static_cast<std::size_t>(count_));
    }

    [[nodiscard]] const AppendedRange& Range() const { return range_; }

private:
    /// What else there is to know of a row.
    struct Flags {
        bool isData = false;
        bool isInRange = false;
    };

    /// Lets all columns hold a number of rows. Throws std::bad_alloc.
    void MakeRoomFor(std::int32_t rows);

    ColumnSet columns_;
    std::int32_t count_ = 0;
    std::int32_t valid_ = 0;
    PlotRows cells_;
    std::vector<PlottedRow> places_; ///< by row - 1, like the flags; both as long as there is room
    std::vector<Flags> flags_;
    AppendedRange range_;
};

} // namespace quandrel
