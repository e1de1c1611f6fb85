// SPDX-License-Identifier: MIT
//
// The orientations of rows, in whole degrees and as they were measured.

#pragma once

#include "core/plot.h"

#include <array>
#include <cstdint>
#include <optional>

namespace quandrel {

/// The orientations that a row can have.
enum class RowAngles : std::uint8_t { Primary, Secondary, Line };

inline constexpr std::array kRowAngles{RowAngles::Primary, RowAngles::Secondary, RowAngles::Line};

[[nodiscard]] const MeasuredColumns& MeasuredOf(const PlotRows& rows, RowAngles which);
[[nodiscard]] MeasuredColumns& MeasuredOf(PlotRows& rows, RowAngles which);

/// How many cells the columns of an orientation have, the unused one of row 0 included.
[[nodiscard]] std::int32_t RowCountOf(const PlotRows& rows, RowAngles which);

/// An orientation of a row in whole degrees.
[[nodiscard]] Attitude WholeAttitude(const PlotRows& rows, RowAngles which, std::int32_t row);

/// Writes an orientation in whole degrees and removes its decimals. The columns must hold the row.
/// Primary orientations are set by plot_rows.h, which counts the rows.
void SetWholeAttitude(PlotRows& rows, RowAngles which, std::int32_t row, const Attitude& whole);

/// An orientation of a row as it was measured: with its decimals where it has some, else in whole
/// degrees.
[[nodiscard]] Attitude MeasuredAttitude(const PlotRows& rows, RowAngles which, std::int32_t row);

/// The measured attitude of a row, if it has decimals.
[[nodiscard]] std::optional<Attitude> DecimalsOf(const PlotRows& rows, RowAngles which,
                                                 std::int32_t row);

/// Whether any orientation of a row has decimals.
[[nodiscard]] bool HasDecimals(const PlotRows& rows, std::int32_t row);

/// How many rows from `first` to `last` have decimals. O(rows), O(1) where none has.
[[nodiscard]] std::int32_t CountRowsWithDecimals(const PlotRows& rows, std::int32_t first,
                                                 std::int32_t last);

/// Gives an orientation of a row its measured angles. The columns of whole degrees are the
/// caller's. An attitude of whole degrees that are those of the columns is not stored: the row then
/// has no decimals.
///
/// @param measured  dip -90 to 90, azimuth -360 to 360 degrees
/// @return false when memory ran out: the row then has no decimals
[[nodiscard]] bool SetDecimals(PlotRows& rows, RowAngles which, std::int32_t row,
                               const Attitude& measured);

/// Removes the measured angles of an orientation of a row: its whole degrees count.
void ClearDecimals(PlotRows& rows, RowAngles which, std::int32_t row);

} // namespace quandrel
