// SPDX-License-Identifier: MIT
//
// Drawings with the current settings.

#pragma once

#include "core/plot_record.h"
#include "stereo/drawing.h"

namespace quandrel {

/// The surfaces of the window of a slot, with the current styles and status line, and the formulas
/// of its plot. The window is made on demand.
[[nodiscard]] Drawing WindowDrawing(int slot);

/// A drawing of a plot for a page, a file or a copy: other surfaces, with the same styles and
/// formulas.
[[nodiscard]] Drawing PaperDrawing(const PlotRecord& record, Surface& plot, Surface& legend);

/// The receiver of the progress of long steps; null in programs without a status line.
[[nodiscard]] StatusLine* WatcherInForce();

} // namespace quandrel
