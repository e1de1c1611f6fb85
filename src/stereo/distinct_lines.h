// SPDX-License-Identifier: MIT
//
// The different lines among the plotted rows. Orientations are whole degrees, so there are few of
// them however many rows there are: what counts or sums over rows does so over these.

#pragma once

#include "core/plot.h"
#include "stereo/axis_rows.h"

#include <cstdint>
#include <vector>

namespace quandrel {

/// A line with the rows that share it.
struct DistinctLine {
    std::int16_t plunge = 0; ///< degrees, -90 to 90, negative upward
    std::int16_t trend = 0;  ///< degrees, 0 to 360
    std::int32_t rows = 0;   ///< 1 or more

    friend bool operator==(const DistinctLine&, const DistinctLine&) = default;
};

/// A number for each line of whole degrees, from 0.
inline constexpr int kLineKeys = 181 * 361;

/// The number of a line; plunge and trend in radians, whole degrees but for rounding.
[[nodiscard]] int LineKey(double plunge, double trend);

/// The same from degrees.
[[nodiscard]] constexpr int LineKeyOfDegrees(int plunge, int trend) {
    return (plunge + 90) * 361 + trend;
}

/// The different lines of the rows up to a point index, without error rows, in the order of their
/// numbers. O(rows).
[[nodiscard]] std::vector<DistinctLine> DistinctLinesOf(const RowTable& table,
                                                        std::int32_t lastIndex);

/// Those of the main rows of a plot, kept with it until a row changes. Good until then.
[[nodiscard]] const std::vector<DistinctLine>& DistinctLinesOf(Plot& plot);

/// How many rows these are: the main rows that are plotted. O(lines) where they are kept, else
/// O(rows).
[[nodiscard]] std::int32_t CountOfMainRows(const Plot& plot);

/// The lines that the statistics of a plot are about: its main rows; in a plot of P and T axes
/// those of P. P and T axes are taken by their lower ends, for the sign of their plunge marks their
/// kind and not a direction. Kept as those of all rows are.
[[nodiscard]] const std::vector<DistinctLine>& StatisticsLinesOf(Plot& plot);

/// The axes of one kind in a plot of P and T axes, by their lower ends. O(rows).
///
/// @param styles  that the symbols of the axes were taken from
[[nodiscard]] std::vector<DistinctLine> DistinctLinesOfAxes(const Plot& plot, const Styles& styles,
                                                            AxisKind kind);

/// The number of rows of some lines.
[[nodiscard]] std::int32_t CountOfLines(const std::vector<DistinctLine>& lines);

} // namespace quandrel
