// SPDX-License-Identifier: MIT
//
// Quantile plots as a picture: side by side, each with its title, axes, points and the line that
// the hypothesis expects.

#pragma once

#include "hypotheses/row_tests.h"
#include "platform/surface.h"

#include <span>

namespace quandrel {

/// The size of the picture in a file, logical pixels: the width of a page's text.
inline constexpr double kQuantilesWidth = 640;
inline constexpr double kQuantilesHeight = 250;

/// Draws quantile plots side by side on the whole surface, whose background the caller has cleared.
/// The user scale and the state are restored.
void DrawQuantiles(Surface& surface, std::span<const QuantilePlot> plots);

} // namespace quandrel
