// SPDX-License-Identifier: MIT
//
// Densities on a grid over the net, for gridded symbols and contours.
//
// The value of a node is the number of rows within kGridCountCone of the line at its position. A
// node outside the primitive represents a line that has left the net on this side and entered on
// the other, mirrored at the rim; contours are clipped before that matters. Nodes are indexed
// [column][row].

#pragma once

#include "core/plot.h"
#include "density/axis_cells.h"
#include "density/cone_counts.h"
#include "stereo/drawing.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace quandrel {

/// Counts the rows at the nodes of a column of the grid.
///
/// @param plotKind     projection, as for UnprojectPoint
/// @param gridSize     kSmallestGridSize to kLargestGridSize
/// @param column       0 to GridNodes - 1
/// @param[out] counts  GridNodes values, from south to north
void CountGridColumn(const LineHistogram& rows, int plotKind, int gridSize, int column,
                     std::span<std::int32_t> counts);

/// Counts measured rows at all nodes of the grid, by several threads.
///
/// @param threads  1 or more
/// @param onDone   called from time to time with the number of nodes that are done
/// @return GridNodes counts from south to north for each column, from west to east
[[nodiscard]] std::vector<std::int32_t>
CountMeasuredGrid(const AxisCells& rows, int plotKind, int gridSize, unsigned threads,
                  const std::function<void(std::int64_t)>& onDone);

/// The lower bound of band 2: the density of one row in per cent, rounded up, and at least 1.
///
/// @param rows  rows of the plot, above 0
[[nodiscard]] int GridBandBase(std::int32_t rows);

/// Band of a node: 1 below the base, 2 from the base on, and one more with each doubling.
///
/// @param count  rows counted at the node, above 0
/// @param rows   rows of the plot, above 0
[[nodiscard]] int GridBand(std::int32_t count, std::int32_t rows);

/// Whether the grid of a plot was counted.
[[nodiscard]] bool HasDensityGrid(const PlotRecord& record);

/// Counts the grid of a plot: GridSize, DensityGrid, GridDensityMax and DensityCount; also the
/// class grid of a plot that is classified by its appended numbers.
///
/// @param gridSize  clamped to kSmallestGridSize to kLargestGridSize
/// @param watcher   the status line, or null
void ComputeGridDensity(Plot& plot, int gridSize, StatusLine* watcher);

/// Counts the grid of gActivePlot at the size that the user has chosen.
void ComputeGridDensity();

/// Draws the symbol of its band at each node on the net that has rows within its cone. A plot
/// without a grid draws nothing.
void DrawGridSymbols(const Plot& plot, const Drawing& drawing);

/// The same of gActivePlot, in its window.
void DrawGridSymbols();

/// The rows around a line.
struct ConeDensity {
    std::int32_t count = 0;
    double perCent = 0; ///< of all rows
};

/// Density of a plot about any line: the value of a grid node at that line.
///
/// @param plunge, trend  radians; the sign of the plunge is ignored
[[nodiscard]] ConeDensity DensityAt(Plot& plot, double plunge, double trend);

} // namespace quandrel
