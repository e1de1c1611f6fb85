// SPDX-License-Identifier: MIT
//
// The values in the appended columns of the active plot. Only valid main rows count.

#pragma once

#include "classify/class_rule.h"
#include "core/class_stats.h"
#include "core/number_statistics.h"
#include "core/plot.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// Appended number of a row; nothing when it is invalid or the plot has none.
[[nodiscard]] std::optional<double> AppendedNumberOfRow(const Plot& plot, std::int32_t row);

/// Appended text of a row as a number; nothing when it is not a number by the regional delimiter.
[[nodiscard]] std::optional<double> AppendedTextNumberOfRow(const Plot& plot, std::int32_t row);

/// The one of the two that belongs to a column of numbers.
[[nodiscard]] std::optional<double> NumberOfRow(const Plot& plot, ClassColumn column,
                                                std::int32_t row);

/// What a column holds.
struct ColumnStatistics {
    std::optional<NumberStatistics> numbers; ///< for the valid ones; nothing for names
    std::size_t valid = 0;                   ///< rows with a valid value; for names, with a text
    std::size_t distinct = 0;                ///< different values; names without regard to case
};

/// That of a column of gActivePlot. O(rows log rows).
[[nodiscard]] ColumnStatistics StatisticsOfColumn(ClassColumn column);

/// The valid numbers of a column of numbers, in row order.
[[nodiscard]] std::vector<double> ValidNumbersOfColumn(const Plot& plot, ClassColumn column);

/// The different appended texts of gActivePlot in row order, at most `most`.
[[nodiscard]] std::vector<std::string> DistinctTexts(bool caseSensitive,
                                                     std::size_t most = kMostNames);

/// Least and greatest value.
struct ValueRange {
    double least = 0;
    double greatest = 0;
};

/// Range of the node values in a grid of gActivePlot; nothing without such a grid.
[[nodiscard]] std::optional<ValueRange> RangeOfGridValues(ClassGridValue which);

/// Writes ClassStats of gActivePlot except the choice of the grid: statistics of the appended
/// numbers, or of numbers in the texts when there are none, and ranges of the present grids.
/// Unknown values are 0.
void UpdateClassStats();

} // namespace quandrel
