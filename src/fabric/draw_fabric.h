// SPDX-License-Identifier: MIT
//
// The picture of a fabric plot: the diagram of log ratios, the triangle of shares, or both side by
// side, with a legend below.
//
// Sizes are points (1/72 inch). Texts and lines keep their sizes; the diagrams take the rest of the
// surface. Points are drawn in the symbols and colours of their rows, all in one size. Two or more
// are numbered; the legend has the numbers.

#pragma once

#include "fabric/fabric_points.h"
#include "platform/surface.h"

#include <span>

namespace quandrel {

enum class FabricDiagram { LogRatios, Triangle, Both };

/// A size in points.
struct FabricPictureSize {
    double width = 0;
    double height = 0;
};

/// The size of the picture on paper: one diagram is a column wide (84 mm), both are a page wide
/// (174 mm). The height holds the whole legend.
[[nodiscard]] FabricPictureSize PaperSizeOf(FabricDiagram diagram,
                                            std::span<const FabricPoint> points);

/// Draws on white. Fabrics that have no place in the diagram of log ratios are noted below the
/// legend. If the surface is too small for the whole legend, the legend ends in "...".
void DrawFabric(Surface& surface, FabricDiagram diagram, std::span<const FabricPoint> points);

} // namespace quandrel
