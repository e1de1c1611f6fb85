// SPDX-License-Identifier: MIT
//
// Fabric plots as pictures at their size on paper.

#pragma once

#include "fabric/draw_fabric.h"

#include <QImage>

#include <span>
#include <string>

namespace quandrel {

/// Draws a fabric plot into a file whose ending gives its type: .png, .svg, .pdf.
///
/// @param height  of a PNG in pixels; lines, symbols and texts grow with it
/// @return as SavePicture
[[nodiscard]] std::string SaveFabricPicture(const std::string& path, FabricDiagram diagram,
                                            std::span<const FabricPoint> points, int height);

/// The same as an image.
///
/// @param density  image pixels per logical pixel
[[nodiscard]] QImage FabricImage(FabricDiagram diagram, std::span<const FabricPoint> points,
                                 double density);

} // namespace quandrel
