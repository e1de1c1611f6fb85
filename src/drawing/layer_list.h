// SPDX-License-Identifier: MIT
//
// The layers of a plot: those of its own list, or those that its mode makes.

#pragma once

#include "core/plot.h"
#include "core/record_figure.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// The layers that the modes of a plot make, lowest first: the net, values of classes, the main
/// rows in their mode, the overlays, annotations, results. A rose has none.
[[nodiscard]] std::vector<FigureLayer> LayersOfMode(const Plot& plot);

/// The layers that are drawn, lowest first: the plot's own list, or those of its mode.
[[nodiscard]] std::vector<FigureLayer> LayersOf(const Plot& plot);

/// Whether a plot can show a layer; a rose cannot show any.
///
/// - All rows that the plot has can be symbols, great circles, poles, intersections, and densities
///   as grid symbols, bands or contours. Densities never count P and T axes together.
/// - Slip arrows need a secondary set of orientations.
/// - Symbols in the style of their density band and marks of the density are those of the main
///   rows, and so are values, of a plot that is classified by appended numbers.
/// - Results and the net are shown in their own ways.
///
/// The selection is possible while it is empty.
[[nodiscard]] bool IsPossible(const Plot& plot, const FigureLayer& layer);

/// The list of a plot with a layer on top, or without the layers of the same data shown in the
/// same way if it has some.
[[nodiscard]] std::vector<FigureLayer> WithToggledLayer(const Plot& plot, const FigureLayer& layer);

/// The word for a way of showing: "symbols", "greatcircles", "bands".
[[nodiscard]] std::string_view WordOfShow(std::int16_t show);

/// The word for data: "main", "overlay2", "results".
[[nodiscard]] std::string WordOfData(const FigureLayer& layer);

/// The inverse of WordOfShow and WordOfData; empty for other words.
[[nodiscard]] std::optional<std::int16_t> ShowOfWord(std::string_view word);
[[nodiscard]] std::optional<FigureLayer> DataOfWord(std::string_view word);

} // namespace quandrel
