// SPDX-License-Identifier: MIT
//
// Rows before they are in a plot: the values of one row, and a block of many.

#pragma once

#include "core/appended_range.h"
#include "core/measured_rows.h"
#include "core/plot.h"
#include "core/row_room.h"
#include "orientation/angles.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace quandrel {

/// The measured attitudes of a row, by RowAngles.
using MeasuredValues = std::array<std::optional<Attitude>, kRowAngles.size()>;

/// The values of a row for the columns. A value that is not set is missing.
struct RowValues {
    bool isData = false; ///< false: an error row, of which only errorLine counts
    std::int32_t dip = kErrorRow;
    std::int32_t azimuth = 0;
    SymbolCode code = 0;
    bool hasSecondary = false; ///< the secondary columns take the row too
    std::int32_t dip2 = kErrorRow;
    std::int32_t azimuth2 = kErrorRow;
    std::int32_t lineDip = kInvalidAppendedLine;
    std::int32_t lineAzimuth = 0;
    float number = kInvalidNumber;
    std::string_view text;
    MeasuredValues measured; ///< of the orientations that have decimals
    bool isInRange = false;  ///< whether number and text extend the range of the appended values
    PlottedRow place{0, 0, 0, static_cast<double>(kErrorRow), 0}; ///< its index is ignored
    std::string_view errorLine; ///< the text of an error row in its file, stored with it
    std::optional<MapPlace> mapPlace;
};

/// Resets the cells of a row to an error row: defaults in all columns, because removed rows may
/// have left values there. Its load order stays, and so does a text unless a new one is given.
void StoreErrorCells(PlotRows& rows, std::int32_t row, std::string_view line);

/// Writes a row to its cells. The columns must hold them, those of measured angles and of places
/// where the row has some.
void StoreCells(PlotRows& rows, std::int32_t row, const RowValues& values,
                const ColumnSet& columns);

/// A block of rows in order, as columns. It is self-contained, so each thread can fill its own.
class RowBlock {
public:
    /// @param columns  those of the plot for which the rows are meant
    explicit RowBlock(const ColumnSet& columns)
        : columns_(columns) {}

    /// Clears the block and makes room for the expected rows; more may follow. The block keeps its
    /// memory. Throws std::bad_alloc when there is not enough memory.
    void Begin(const ColumnSet& columns, std::int32_t expectedRows);

    /// Appends a row. On std::bad_alloc the block is unchanged.
    void Add(const RowValues& values);

    /// Row 1 to Count(), with the block's own texts.
    [[nodiscard]] RowValues Row(std::int32_t row) const;

    [[nodiscard]] std::int32_t Count() const { return count_; }

    /// Rows that are not error rows.
    [[nodiscard]] std::int32_t CountOfValid() const { return valid_; }

    /// Whether any row has decimals in an orientation.
    [[nodiscard]] bool HasMeasured(RowAngles which) const {
        return hasMeasured_[static_cast<std::size_t>(which)];
    }

    /// Whether any row has a place on the map.
    [[nodiscard]] bool HasMapPlaces() const { return hasMapPlaces_; }

    [[nodiscard]] const ColumnSet& Columns() const { return columns_; }

    [[nodiscard]] const PlotRows& Cells() const { return cells_; }

    /// The lines for the row table, without their indices.
    [[nodiscard]] std::span<const PlottedRow> Places() const {
        return std::span(places_).first(static_cast<std::size_t>(count_));
    }

    [[nodiscard]] const AppendedRange& Range() const { return range_; }

private:
    /// The other properties of a row.
    struct Flags {
        bool isData = false;
        bool isInRange = false;
    };

    /// Grows all columns to a number of rows. Throws std::bad_alloc.
    void MakeRoomFor(std::int32_t rows);

    /// Makes the columns of measured angles and of places that a row needs. Throws std::bad_alloc.
    void MakeRoomForMoreOf(const RowValues& values, std::int32_t row);

    ColumnSet columns_;
    std::int32_t count_ = 0;
    std::int32_t valid_ = 0;
    PlotRows cells_;
    std::array<bool, kRowAngles.size()> hasMeasured_{};
    bool hasMapPlaces_ = false;
    std::vector<PlottedRow> places_; ///< by row - 1, like the flags; both as long as the capacity
    std::vector<Flags> flags_;
    AppendedRange range_;
};

} // namespace quandrel
