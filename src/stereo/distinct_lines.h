// SPDX-License-Identifier: MIT
//
// The lines of the plotted rows, from which counts and sums over rows are made. In whole degrees
// there are few distinct lines, whatever the number of rows. In a plot that shows decimals each row
// has a line of its own.

#pragma once

#include "core/plot.h"
#include "stereo/axis_rows.h"
#include "stereo/measured_line.h"

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

/// The lines of some rows: in whole degrees or measured.
struct RowLines {
    std::vector<DistinctLine> whole;    ///< empty where the lines are measured
    std::vector<MeasuredLine> measured; ///< one for each row
    std::vector<std::int32_t> rows;     ///< the point index of each measured line

    [[nodiscard]] bool AreMeasured() const { return !measured.empty(); }

    [[nodiscard]] bool empty() const { return whole.empty() && measured.empty(); }
};

/// Which lines of rows are meant: as the plot shows them, or measured whether it uses decimals or
/// not.
enum class LinePrecision { Shown, Measured };

/// Whether a main row has decimals in the set of orientations that is shown. Results of a plot
/// without any are those of whole degrees. O(rows) where none has.
[[nodiscard]] bool HasMeasuredLines(const Plot& plot);

/// Whether the lines of a plot are measured ones: it uses decimals and has some. All results that
/// work on measured values ask here.
[[nodiscard]] bool ShowsDecimals(const Plot& plot);

/// The lines of the main rows of a plot. They are cached with the plot; the result is valid until a
/// row changes.
[[nodiscard]] const RowLines& LinesOf(Plot& plot);

/// The number of rows of these lines: the plotted main rows. O(lines) if cached, else O(rows).
[[nodiscard]] std::int32_t CountOfMainRows(const Plot& plot);

/// The lines for the statistics of a plot: its main rows; in a plot of P and T axes only those of
/// P. P and T axes are taken by their lower ends, because the sign of their plunge marks their kind
/// and not a direction. Cached like those of all rows.
///
/// @param styles  from which the symbols of the axes were taken
[[nodiscard]] const RowLines& StatisticsLinesOf(Plot& plot, const Styles& styles);

/// The same lines as measured, whether the plot uses decimals or not. O(rows).
[[nodiscard]] RowLines MeasuredStatisticsLinesOf(const Plot& plot, const Styles& styles);

/// The axes of one kind in a plot of P and T axes, by their lower ends. O(rows).
///
/// @param styles  the source of the symbols of the axes
[[nodiscard]] RowLines LinesOfAxes(const Plot& plot, const Styles& styles, AxisKind kind,
                                   LinePrecision precision = LinePrecision::Shown);

/// The number of rows of some lines.
[[nodiscard]] std::int32_t CountOfLines(const RowLines& lines);

} // namespace quandrel
