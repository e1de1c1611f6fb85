// SPDX-License-Identifier: MIT
//
// The layout of ClassStats: statistics of the classified number, and how its grids are shown.

#pragma once

#include "core/plot_record.h"

#include <cstddef>
#include <optional>

namespace quandrel {

/// Rows of ClassStats.
enum ClassStatsRow : std::size_t {
    kRawRange = 0,        ///< minimum and maximum of the rows
    kRawMean = 1,         ///< their mean and standard deviation
    kMeansRange = 2,      ///< minimum and maximum node of the grid of means
    kCumulativeRange = 3, ///< the same of the grid of sums
    kGridChoice = 4,      ///< the grid that is shown, a ClassGridValue; and its background
};

/// Columns of the row kGridChoice.
enum GridChoiceColumn : std::size_t { kShownGrid = 0, kBackground = 1 };

/// The grid that is shown for a plot that is classified by its appended numbers.
enum class ClassGridValue { Mean = 0, Cumulative = 1 };

[[nodiscard]] inline ClassGridValue GridValueShown(const PlotRecord& record) {
    return record.ClassStats[kGridChoice][kShownGrid]
                   == static_cast<double>(ClassGridValue::Cumulative)
               ? ClassGridValue::Cumulative
               : ClassGridValue::Mean;
}

/// The value of nodes without rows when the grid is contoured. Empty when such nodes have no value,
/// so that contours end at them. 0 for a plot that was never classified.
[[nodiscard]] inline std::optional<double> GridBackground(const PlotRecord& record) {
    const double value = record.ClassStats[kGridChoice][kBackground];
    return value == kUnsetValue ? std::nullopt : std::optional(value);
}

} // namespace quandrel
