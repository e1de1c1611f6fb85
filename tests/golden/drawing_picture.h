// SPDX-License-Identifier: MIT
//
// Recorded drawings as a picture to look at.

#pragma once

#include "golden/drawing_text.h"

#include <string>
#include <vector>

namespace quandrel {

/// Draws the operations of a drawing again, on another surface of any size.
void DrawAgain(const RecordedDrawing& drawing, Surface& surface);

/// Writes drawings side by side into an SVG file. Returns an empty text, or why there is no file.
[[nodiscard]] std::string WritePicture(const std::string& path,
                                       const std::vector<RecordedDrawing>& drawings);

} // namespace quandrel
