// SPDX-License-Identifier: MIT
//
// Drawings with the current settings.

#pragma once

#include "stereo/drawing.h"

namespace quandrel {

/// The surfaces of the window of a slot, with the current styles, formulas and status line. The
/// window is made on demand.
[[nodiscard]] Drawing WindowDrawing(int slot);

/// A drawing for a page, a file or a copy: other surfaces, with the same styles and formulas.
[[nodiscard]] Drawing PaperDrawing(Surface& plot, Surface& legend);

/// The receiver of the progress of long steps; null in programs without a status line.
[[nodiscard]] StatusLine* WatcherInForce();

} // namespace quandrel
