// SPDX-License-Identifier: MIT
//
// Recorded drawings as a picture for eyes.

#pragma once

#include "golden/drawing_text.h"

#include <string>
#include <vector>

namespace quandrel {

/// Draws the operations of a drawing again, on another surface of any size.
void DrawAgain(const Drawing& drawing, Surface& surface);

/// Writes drawings beside each other into an SVG file. Empty, or why there is none.
[[nodiscard]] std::string WritePicture(const std::string& path,
                                       const std::vector<Drawing>& drawings);

} // namespace quandrel
