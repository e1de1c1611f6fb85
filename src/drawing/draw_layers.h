// SPDX-License-Identifier: MIT
//
// The layers of a net, drawn from the lowest up, each in a group of its own.

#pragma once

#include "core/plot.h"
#include "stereo/drawing.h"

#include <string>

namespace quandrel {

/// Draws the visible layers of a net. The lowest one is not drawn if it is the net, which is drawn
/// with the base of the plot.
void DrawLayers(const Plot& plot, const Drawing& drawing);

/// Draws a layer, unless it is hidden or the plot cannot show it.
void DrawOneLayer(const Plot& plot, const Drawing& whole, const FigureLayer& layer);

/// A layer with the properties that it is drawn with: in a style of figures, the selection has the
/// accent unless it has a colour of its own.
[[nodiscard]] FigureLayer LayerAsDrawn(const FigureLayer& layer, const Drawing& drawing);

/// The id and the title of what a layer draws.
struct LayerGroup {
    std::string id; ///< the same for data that are shown twice in a way
    std::string title;
};

/// Both are empty for a layer that names its groups itself.
[[nodiscard]] LayerGroup GroupOfLayer(const Plot& plot, const FigureLayer& layer);

} // namespace quandrel
