// SPDX-License-Identifier: MIT
//
// Density contours of a plot: from the counts of its grid to lines on the net.
//
// This folder holds densities: counting in the cone, at rows and on a grid, levels, tracing, and
// the legend. The kernels take values only; they know neither plots nor surfaces.
// Input: orientations with their weights, a cone's half-angle, a grid's size; a plot, and the
// surface for the drawing.
// Output: counts, levels and lines as values of the kernels, stored in the plot; symbols and
// contours on a surface.

#pragma once

#include "core/plot.h"
#include "density/contour_trace.h"
#include "stereo/drawing.h"
#include "stereo/figure_lines.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace quandrel {

/// The style of level number k, from 0.
[[nodiscard]] AxisStyle ContourStyleOf(const Styles& styles, int level);

/// Draws a contour of a plot as lines. The surface keeps the style.
///
/// @param style  colour index, draw style, draw width
void DrawContourLine(const Drawing& drawing, const std::vector<ContourSegment>& segments,
                     const AxisStyle& style);

/// Draws one line of a contour, with its level in a gap if the layer wants labels. The surface
/// keeps the look.
///
/// @param line  closed with its first point repeated
void DrawContourAs(const Drawing& drawing, const LineLook& look, std::span<const Point> line,
                   double level);

/// The contour of a level within the primitive, half-way between whole counts (CountOfLevel),
/// without closed parts that enclose less than four cells of the grid.
///
/// @param counts  at the nodes of a grid
/// @param level   per cent of the rows
/// @param rows    number of rows counted
[[nodiscard]] std::vector<ContourSegment> ContourOfCounts(const NodeValues& counts, double level,
                                                          std::int32_t rows);

/// One level with its contour within the primitive.
struct LevelContour {
    std::int16_t level = 0; ///< per cent
    std::vector<ContourSegment> segments;
};

/// The contours of a plot's DensityGrid at its ContourLevels, without closed parts that enclose
/// less than four cells of the grid. They run half-way between whole counts. The same data always
/// give the same segments. Empty without rows or without a grid.
///
/// @param watcher  the status line, or null
[[nodiscard]] std::vector<LevelContour> ContoursOf(const Plot& plot, StatusLine* watcher = nullptr);

/// Computes the levels of a plot, ContourLevels and NumContours, from the maximum of its grid.
void FindContourLevels(Plot& plot);

/// Draws the contours of a plot, each in the style of its level. With Styles::showIsolatedPts, rows
/// without another row within the counting cone are drawn too.
void DrawContours(const Plot& plot, const Drawing& drawing);

/// Computes the levels of gActivePlot and draws its contours into its window.
void TraceContours();

} // namespace quandrel
