// SPDX-License-Identifier: MIT
//
// The distinct lines among the plotted rows. Orientations are whole degrees, so there are few
// distinct lines, whatever the number of rows. Counts and sums over rows use them.

#pragma once

#include "core/plot.h"
#include "stereo/axis_rows.h"

#include <cstdint>
#include <vector>

namespace quandrel {

/// A line and the number of rows that share it.
struct DistinctLine {
    std::int16_t plunge = 0; ///< degrees, -90 to 90, negative upward
    std::int16_t trend = 0;  ///< degrees, 0 to 360
    std::int32_t rows = 0;   ///< 1 or more

    friend bool operator==(const DistinctLine&, const DistinctLine&) = default;
};

/// The number of whole-degree lines; each has its own number from 0.
inline constexpr int kLineKeys = 181 * 361;

/// The number of a line. Plunge and trend are in radians, whole degrees except for rounding.
[[nodiscard]] int LineKey(double plunge, double trend);

/// The same from degrees.
[[nodiscard]] constexpr int LineKeyOfDegrees(int plunge, int trend) {
    return (plunge + 90) * 361 + trend;
}

/// The distinct lines of the rows up to a point index, without error rows, in the order of their
/// numbers. O(rows).
[[nodiscard]] std::vector<DistinctLine> DistinctLinesOf(const RowTable& table,
                                                        std::int32_t lastIndex);

/// The distinct lines of the main rows of a plot. They are cached with the plot; the result is
/// valid until a row changes.
[[nodiscard]] const std::vector<DistinctLine>& DistinctLinesOf(Plot& plot);

/// The number of rows of these lines: the plotted main rows. O(lines) if cached, else O(rows).
[[nodiscard]] std::int32_t CountOfMainRows(const Plot& plot);

/// The lines for the statistics of a plot: its main rows; in a plot of P and T axes only those of
/// P. P and T axes are taken by their lower ends, because the sign of their plunge marks their kind
/// and not a direction. Cached like those of all rows.
///
/// @param styles  from which the symbols of the axes were taken
[[nodiscard]] const std::vector<DistinctLine>& StatisticsLinesOf(Plot& plot, const Styles& styles);

/// The axes of one kind in a plot of P and T axes, by their lower ends. O(rows).
///
/// @param styles  the source of the symbols of the axes
[[nodiscard]] std::vector<DistinctLine> DistinctLinesOfAxes(const Plot& plot, const Styles& styles,
                                                            AxisKind kind);

/// The number of rows of a list of lines.
[[nodiscard]] std::int32_t CountOfLines(const std::vector<DistinctLine>& lines);

} // namespace quandrel
