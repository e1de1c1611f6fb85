// SPDX-License-Identifier: MIT
//
// The places of rows on a map, as columns beside those of the orientations. Columns are made for
// the first row that has a place; it takes 16 bytes.

#pragma once

#include "core/row_columns.h"

#include <bit>
#include <cstdint>

namespace quandrel {

/// A place on a map, in the coordinates and units of the table that it came from: easting and
/// northing, or longitude and latitude. Both are finite.
struct MapPlace {
    double x = 0;
    double y = 0;

    friend bool operator==(const MapPlace&, const MapPlace&) = default;
};

/// The places of rows. Coordinates are divided into halves of 32 bits, so that edits keep all
/// columns of rows alike; the halves of a row without a place are 0.
struct MapColumns {
    RowColumn<std::uint32_t> xHigh; ///< 0 in a row without a place
    RowColumn<std::uint32_t> xLow;
    RowColumn<std::uint32_t> yHigh;
    RowColumn<std::uint32_t> yLow;

    /// Whether a row has a place. Rows after the end of the columns have none.
    [[nodiscard]] bool Has(std::int32_t row) const { return xHigh(row) != 0; }

    /// The place of a row that has one.
    [[nodiscard]] MapPlace At(std::int32_t row) const {
        return {Joined(xHigh(row), xLow(row)), Joined(yHigh(row), yLow(row))};
    }

    /// Writes a place. The columns must have been grown to hold the row.
    void Set(std::int32_t row, const MapPlace& place) {
        xHigh.At(row) = HighOf(place.x);
        xLow.At(row) = LowOf(place.x);
        yHigh.At(row) = HighOf(place.y);
        yLow.At(row) = LowOf(place.y);
    }

    /// Removes the place of a row, if it has one.
    void Clear(std::int32_t row) {
        if (row < xHigh.RowCount()) {
            xHigh.At(row) = xLow.At(row) = yHigh.At(row) = yLow.At(row) = 0;
        }
    }

    /// Grows to hold rows up to `capacity`. Throws std::bad_alloc or std::length_error.
    void Grow(std::int32_t capacity) {
        xHigh.Grow(capacity);
        xLow.Grow(capacity);
        yHigh.Grow(capacity);
        yLow.Grow(capacity);
    }

    /// How many rows the columns have room for, the unused row 0 included; 0 when never needed.
    [[nodiscard]] std::int32_t RowCount() const { return yLow.RowCount(); }

private:
    /// The high half of a number that is not finite, so that no coordinate has a high half of 0.
    static constexpr std::uint32_t kNone = 0x7FF80000;

    static constexpr int kHalf = 32;

    static std::uint32_t HighOf(double value) {
        return static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(value) >> kHalf) ^ kNone;
    }

    static std::uint32_t LowOf(double value) {
        return static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(value));
    }

    static double Joined(std::uint32_t high, std::uint32_t low) {
        return std::bit_cast<double>((std::uint64_t{high ^ kNone} << kHalf) | low);
    }
};

} // namespace quandrel
