// SPDX-License-Identifier: MIT
//
// The secondary orientations of the main rows of gActivePlot as the rows of an overlay.

#pragma once

#include <cstdint>

namespace quandrel {

/// Adds an overlay with a row for each main row, in the same order. Its primary orientation is the
/// secondary one of the main row; its appended values are the same. SelectedOverlay becomes its
/// number.
///
/// @param kind  OverlayKindCode
/// @return false when memory ran out: the rows stored so far stay
[[nodiscard]] bool AppendSecondaryOverlay(std::int16_t kind);

/// Writes the secondary orientations into an overlay that has as many rows as the main data.
void RewriteSecondaryOverlay(int overlay);

} // namespace quandrel
