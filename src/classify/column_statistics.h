// SPDX-License-Identifier: MIT
//
// What the appended columns of the active plot hold. Only main rows count that are no error rows.

#pragma once

#include "classify/class_rule.h"
#include "core/class_stats.h"
#include "core/number_statistics.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// Appended number of a row of gActivePlot, nothing when it is invalid or the plot has none.
[[nodiscard]] std::optional<double> AppendedNumberOfRow(std::int32_t row);

/// Appended text of a row of gActivePlot read as a number, nothing when it is none by the regional
/// delimiter.
[[nodiscard]] std::optional<double> AppendedTextNumberOfRow(std::int32_t row);

/// What a column holds.
struct ColumnStatistics {
    std::optional<NumberStatistics> numbers; ///< of the valid ones; none of names
    std::size_t valid = 0;                   ///< rows with a valid value; of names, with a text
    std::size_t distinct = 0;                ///< different values; names without case
};

/// O(rows log rows).
[[nodiscard]] ColumnStatistics StatisticsOfColumn(ClassColumn column);

/// The valid numbers of a column of numbers, in row order.
[[nodiscard]] std::vector<double> ValidNumbersOfColumn(ClassColumn column);

/// The different appended texts in row order, at most `most`.
[[nodiscard]] std::vector<std::string> DistinctTexts(bool caseSensitive,
                                                     std::size_t most = kMostNames);

/// Least and greatest value.
struct ValueRange {
    double least = 0;
    double greatest = 0;
};

/// Range of the nodes with a value in a grid of gActivePlot; nothing without such a grid.
[[nodiscard]] std::optional<ValueRange> RangeOfGridValues(ClassGridValue which);

/// Writes ClassStats of gActivePlot but for the choice of the grid: figures of the appended
/// numbers, of numbers in the texts when there are no others, and ranges of the grids as they
/// stand. What is not known is 0.
void UpdateClassStats();

} // namespace quandrel
