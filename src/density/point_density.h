// SPDX-License-Identifier: MIT
//
// The density of the rows of a plot around each row.

#pragma once

#include "core/plot.h"
#include "platform/status_line.h"

#include <cstdint>

namespace quandrel {

/// Band of a row without another within its cone.
inline constexpr int kIsolatedBand = 1;

/// Density of a count, in per cent of all rows.
///
/// @param rows  rows of the plot, above 0
[[nodiscard]] float PointDensity(std::int32_t count, std::int32_t rows);

/// Band of a row from its count.
///
/// @param count  rows within its cone, including itself
/// @param rows   rows of the plot, above 0
/// @return kIsolatedBand for an isolated row; 2 below the base, which is the density of one row
///         rounded down (1% where that is less than 1); 3 from the base on, and one more with each
///         doubling
[[nodiscard]] int PointDensityBand(std::int32_t count, std::int32_t rows);

/// Counts the rows within kCountCone of each main row of a plot: PointDensityMax, and the band of
/// each row in its column pointDensity, 0 for an error row. Rows of overlays are not changed. The
/// densities are shares of the rows that were counted. O(rows), plus once for each whole-degree
/// line; in a plot that shows decimals, rows whose band is not clear are counted one by one.
///
/// @param watcher  the status line, or null
void ComputePointDensities(Plot& plot, StatusLine* watcher);

/// The same of gActivePlot.
void ComputePointDensities();

} // namespace quandrel
