// SPDX-License-Identifier: MIT
//
// Grids of the appended numbers: sum and mean over the rows that the density grid counts at a node.

#pragma once

#include "core/plot.h"
#include "density/cone_scan.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace quandrel {

/// Sum of some values.
struct ValueSum {
    double sum = 0;
    std::int32_t values = 0;
};

/// Values grouped by their whole-degree lines. 0.5 MB.
class LineValues {
public:
    LineValues();

    /// @param plunge  degrees; the sign is ignored
    /// @param trend   degrees, 0 to 360
    void Add(int plunge, int trend, double value);

    /// Values of a line, plunge 0 to 90; trend 0 and 360 are separate.
    [[nodiscard]] const ValueSum& At(int plunge, int trend) const {
        return (*sums_)[static_cast<std::size_t>(plunge)][static_cast<std::size_t>(trend)];
    }

private:
    std::unique_ptr<std::array<std::array<ValueSum, kRingTrends>, kRings>> sums_;
};

/// Sum of the values within a cone. The arguments are those of CountWithin.
[[nodiscard]] ValueSum ValuesWithin(const LineValues& values, double plunge, double trend,
                                    double cone);

/// The values at the nodes of a grid over a plot, for one layer, without nodes that have no rows:
/// the result of ComputeGridValues for the plot with such a grid, however it is classified.
/// O(nodes^2).
///
/// @param gridSize  clamped to kSmallestGridSize to kLargestGridSize
[[nodiscard]] std::vector<double> NodeValuesOf(const Plot& plot, GridLayer layer, int gridSize);

/// Fills gridValues of a plot that is classified by its appended numbers, on the nodes of its
/// density grid: kUnsetValue where no row with a number is within the cone. Rows with an invalid
/// number do not count. For any other plot gridCount becomes 0.
void ComputeGridValues(Plot& plot);

} // namespace quandrel
