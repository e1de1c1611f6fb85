// SPDX-License-Identifier: MIT
//
// What drawings are given by the settings in force.

#pragma once

#include "stereo/drawing.h"

namespace quandrel {

/// The surfaces of the window of a slot, with the styles, the formulas and the status line in
/// force. The window is made at this moment if there is none.
[[nodiscard]] Drawing WindowDrawing(int slot);

/// What a page, a file or a copy is given: other surfaces, with the same styles and formulas.
[[nodiscard]] Drawing PaperDrawing(Surface& plot, Surface& legend);

/// Who hears how far long steps have come; nothing in programs without a status line.
[[nodiscard]] StatusLine* WatcherInForce();

} // namespace quandrel
