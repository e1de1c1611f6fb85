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

    /// Of the layers, the topmost first; beyond the last one they begin again.
    std::span<const Colour> layers;
};

/// Colours of layers that can be told apart on a light ground, for those who see red and green
/// alike too. After M. Okabe and K. Ito, Color Universal Design (2008).
[[nodiscard]] MapColours DefaultMapColours();

/// Draws what a map window shows: the background, the layers from the lowest to the topmost, and
/// the selected objects above all, larger and in their own colour.
///
/// Sets the surface's user scale to the window's logical pixels, (0, 0) at the top left corner with
/// y downwards as (0, 0) to (width, -height); the state is put back. Objects outside of the window
/// are left out, lines and areas are cut at its edges. The selected ones of a layer that is not
/// visible are not drawn.
void DrawMapWindow(const SessionState& state, const SessionWindow& window,
                   const MapColours& colours, Surface& surface);

/// The rectangle, or for the radius tool the circle, that is shown while the mouse is dragged from
/// one point of the map to another one. Drawn above a map that DrawMapWindow has drawn.
void DrawDraggedShape(const SessionWindow& window, int tool, MapPoint from, MapPoint to,
                      Surface& surface);

} // namespace quandrel
