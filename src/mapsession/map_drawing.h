// SPDX-License-Identifier: MIT
//
// The picture of a map window of the map session.

#pragma once

#include "mapsession/session_state.h"
#include "platform/surface.h"

#include <span>

namespace quandrel {

struct MapColours {
    Colour background{255, 255, 255};
    Colour selected{208, 32, 32};

    /// for the layers, the topmost first; repeated after the last one
    std::span<const Colour> layers;
};

/// Colours of layers that can be distinguished on a light background, also with red-green colour
/// blindness. After M. Okabe and K. Ito, Color Universal Design (2008).
[[nodiscard]] MapColours DefaultMapColours();

/// Draws the contents of a map window: the background, the layers from the lowest to the topmost,
/// and on top the selected objects, larger and in their own colour.
///
/// Sets the surface's user scale to the window's logical pixels: (0, 0) is the top left corner,
/// (width, -height) the bottom right one. The surface's state is restored. Objects outside the
/// window are left out; lines and areas are clipped at its edges. Selected objects of a layer that
/// is not visible are not drawn.
void DrawMapWindow(const SessionState& state, const SessionWindow& window,
                   const MapColours& colours, Surface& surface);

/// The rectangle, or for the radius tool the circle, shown while the mouse is dragged from one
/// point of the map to another. Drawn above a map that DrawMapWindow has drawn.
void DrawDraggedShape(const SessionWindow& window, int tool, MapPoint from, MapPoint to,
                      Surface& surface);

} // namespace quandrel
