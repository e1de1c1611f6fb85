// SPDX-License-Identifier: MIT
//
// Drawing the density of a plot with a choice of its own (plot_density.h), and its legend.

#pragma once

#include "core/plot.h"
#include "density/density_look.h"
#include "density/plot_density.h"
#include "stereo/drawing.h"
#include "stereo/legend_line.h"

#include <vector>

namespace quandrel {

/// The symbol of rows and nodes that reach a number of levels.
[[nodiscard]] SymbolCode CodeOfLevels(const Styles& styles, int reached);

/// Fills the bands between the levels within the primitive.
void FillBands(const PlotRecord& record, const Drawing& drawing, const PlotDensity& density);

/// Draws the contours, each as LookOfContour says.
void DrawFieldContours(const PlotRecord& record, const Drawing& drawing,
                       const PlotDensity& density);

/// Draws the outline of significant density as a broad dashed line.
void DrawEnvelope(const PlotRecord& record, const Drawing& drawing,
                  const DensityEnvelope& envelope);

/// Draws the symbol of its band at each node of a grid on the net that reaches the first level.
///
/// @param gridSize  one beyond kSmallestGridSize to kLargestGridSize draws nothing
void DrawFieldSymbols(const PlotRecord& record, const Drawing& drawing, const PlotDensity& density,
                      int gridSize);

/// Marks the local maxima with a cross and their number.
void DrawMaxima(const PlotRecord& record, const Drawing& drawing, const PlotDensity& density);

/// The envelope and the maxima, where the plot wants them.
void DrawDensityMarks(const Plot& plot, const Drawing& drawing, const PlotDensity& density);

/// The lines of the density in the legend, top to bottom: method, unit, one for each level, the
/// envelope, the greatest density.
[[nodiscard]] std::vector<LegendLine> FieldLegendLines(const Plot& plot, const Styles& styles,
                                                       const PlotDensity& density);

} // namespace quandrel
