// SPDX-License-Identifier: MIT
//
// Density contours of a plot: from the counts of its grid to lines on the net.
//
// Inside the folder: counting in the cone, at rows and on a grid, levels, tracing, the legend.
// Enters: orientations with their weights, a cone's half-angle, a grid's size; a plot, and what it
// is drawn on. Leaves: counts, levels and lines as values of the kernels, kept in the plot by what
// works out; symbols and contours on a surface by what draws. The kernels know neither.

#pragma once

#include "core/plot.h"
#include "density/contour_trace.h"
#include "stereo/drawing.h"

#include <array>
#include <cstdint>
#include <vector>

namespace quandrel {

/// The style of level number k, from 0.
[[nodiscard]] AxisStyle ContourStyleOf(const Styles& styles, int level);

/// Draws a contour of a plot as lines. The surface keeps the style.
///
/// @param style  colour index, draw style, draw width
void DrawContourLine(const Drawing& drawing, const std::vector<ContourSegment>& segments,
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

/// The contours of a plot's DensityGrid at its ContourLevels, without closed parts that enclose
/// less than four cells of the grid. They run half-way between whole counts. The same data give the
/// same segments each time. None without rows or without a grid.
///
/// @param watcher  the status line, or nothing
[[nodiscard]] std::vector<LevelContour> ContoursOf(const Plot& plot, StatusLine* watcher = nullptr);

/// Finds the levels of a plot, ContourLevels and NumContours, by the maximum of its grid.
void FindContourLevels(Plot& plot);

/// Draws the contours of a plot, each in the style of its level. With Styles::showIsolatedPts, rows
/// that have no other row within the counting cone are drawn too.
void DrawContours(const Plot& plot, const Drawing& drawing);

/// Finds the levels of gActivePlot and draws its contours into its window.
void TraceContours();

} // namespace quandrel
