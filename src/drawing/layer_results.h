// SPDX-License-Identifier: MIT
//
// What the layers of a plot show beyond its main rows: their rows, densities and intersections.
// They are worked out once and kept with the plot. Those of the main rows are kept by
// density/plot_density.h and stereo/row_drawing.h.

#pragma once

#include "core/plot.h"
#include "core/styles.h"
#include "density/plot_density.h"
#include "drawing/layer_rows.h"
#include "platform/status_line.h"

#include <memory>

namespace quandrel {

/// Works out what the visible layers of a plot's own list need and what is out of date, and drops
/// the rest. Densities are those of the plot's method and unit.
///
/// @param gridSize  of grids of symbols, for a plot that has none
/// @param watcher   the status line, or null
void WorkOutLayers(Plot& plot, const Styles& styles, int gridSize, StatusLine* watcher);

/// The rows of a layer: those that WorkOutLayers gathered, else gathered now.
[[nodiscard]] LayerRows RowsOfLayer(const Plot& plot, const Styles& styles,
                                    const FigureLayer& layer);

/// The density of the data of a layer; null without one, also for main rows that show the counts of
/// grid_density.h.
[[nodiscard]] const PlotDensity* DensityOfLayer(const Plot& plot, const FigureLayer& layer);

/// The size of the grid of density symbols, 0 without one.
[[nodiscard]] int GridSizeOfLayers(const Plot& plot);

/// The intersections of the rows of a layer of other data than the main rows: those of
/// WorkOutLayers, else computed now.
[[nodiscard]] std::shared_ptr<const BetaIntersections>
IntersectionsOfLayer(const Plot& plot, const Styles& styles, const FigureLayer& layer,
                     StatusLine* watcher);

} // namespace quandrel
