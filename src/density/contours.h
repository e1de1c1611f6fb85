// SPDX-License-Identifier: MIT
//
// Density contours of the active plot: from the counts of its grid to lines on the net.
//
// Inside the folder: counting in the cone, at rows and on a grid, levels, tracing, the legend.
// Enters: orientations with their weights, a cone's half-angle, a grid's size.
// Leaves: counts, levels and lines as values of the kernels; on the plot, symbols and contours
// drawn on its surface. The kernels know neither plots nor surfaces.

#pragma once

#include "core/style_tables.h"
#include "density/contour_trace.h"

#include <array>
#include <cstdint>
#include <vector>

namespace quandrel {

/// The style of level number k, from 0.
[[nodiscard]] AxisStyle ContourStyleOf(int level);

/// Draws a contour as lines. The surface keeps the style.
///
/// @param style  colour index, draw style, draw width
void DrawContourLine(Surface& surface, const std::vector<ContourSegment>& segments,
                     const AxisStyle& style);

/// The contour of a level within the primitive, half-way between whole counts (CountOfLevel),
/// without closed parts that enclose less than four cells of the grid.
///
/// @param counts  at the nodes of a grid
/// @param level   per cent of the rows
/// @param rows    that were counted
[[nodiscard]] std::vector<ContourSegment> ContourOfCounts(const NodeValues& counts, double level,
                                                          std::int32_t rows);

/// One level with its contour within the primitive.
struct LevelContour {
    std::int16_t level = 0; ///< per cent
    std::vector<ContourSegment> segments;
};

/// The contours of the active plot's DensityGrid at its ContourLevels, without closed parts that
/// enclose less than four cells of the grid. They run half-way between whole counts. The same data
/// give the same segments each time.
[[nodiscard]] std::vector<LevelContour> ContoursOfActivePlot();

/// Finds the levels of the active plot (ContourLevels, NumContours) and draws its contours, each in
/// the style of its level. With gShowIsolatedPts, rows that have no other row within the counting
/// cone are drawn too. A plot without rows or without a grid draws nothing.
void TraceContours();

} // namespace quandrel
