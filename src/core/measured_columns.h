// SPDX-License-Identifier: MIT
//
// Columns of measured angles, beside those of whole degrees.
//
// An angle is its nearest whole degree and the offset from it, at most half a degree. The offset
// as a 32-bit float is exact to 3e-8 degree, so that six decimals are regained. A pair of angles
// takes 12 bytes. A row without decimals has no measured angles; columns are made for the first
// row that has some.

#pragma once

#include "core/row_columns.h"
#include "orientation/attitude.h"

#include <cmath>
#include <cstdint>

namespace quandrel {

/// The nearest whole degree of a measured angle, or none. A cell that was never written has none.
struct NearestDegree {
    std::uint16_t bits = 0; ///< 0: none; else the degree plus kOffset

    static constexpr std::int32_t kOffset = 1000;

    /// @param degree  from -360 to 360
    [[nodiscard]] static NearestDegree Of(std::int32_t degree) {
        return {static_cast<std::uint16_t>(degree + kOffset)};
    }

    [[nodiscard]] bool IsNone() const { return bits == 0; }

    [[nodiscard]] std::int32_t Degree() const { return bits - kOffset; }
};

/// The measured attitudes of rows.
struct MeasuredColumns {
    RowColumn<NearestDegree> dip; ///< none in a row without decimals
    RowColumn<float> dipOffset;   ///< degrees
    RowColumn<NearestDegree> azimuth;
    RowColumn<float> azimuthOffset;

    /// Whether a row has a measured attitude. Rows after the end of the columns have none.
    [[nodiscard]] bool Has(std::int32_t row) const { return !dip(row).IsNone(); }

    /// The measured attitude of a row that has one.
    [[nodiscard]] Attitude At(std::int32_t row) const {
        return {static_cast<double>(dip(row).Degree()) + static_cast<double>(dipOffset(row)),
                static_cast<double>(azimuth(row).Degree())
                    + static_cast<double>(azimuthOffset(row))};
    }

    /// Writes a measured attitude. The columns must have been grown to hold the row.
    void Set(std::int32_t row, const Attitude& measured) {
        const double degree = RoundToEven(measured.dip);
        const double azimuthDegree = RoundToEven(measured.azimuth);
        dip.At(row) = NearestDegree::Of(static_cast<std::int32_t>(degree));
        dipOffset.At(row) = static_cast<float>(measured.dip - degree);
        azimuth.At(row) = NearestDegree::Of(static_cast<std::int32_t>(azimuthDegree));
        azimuthOffset.At(row) = static_cast<float>(measured.azimuth - azimuthDegree);
    }

    /// Removes the measured attitude of a row, if it has one.
    void Clear(std::int32_t row) {
        if (row < dip.RowCount()) {
            dip.At(row) = {};
            dipOffset.At(row) = 0;
            azimuth.At(row) = {};
            azimuthOffset.At(row) = 0;
        }
    }

    /// How many rows the columns have room for, the unused row 0 included; 0 when never needed.
    [[nodiscard]] std::int32_t RowCount() const { return azimuthOffset.RowCount(); }
};

} // namespace quandrel
