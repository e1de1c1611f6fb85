// SPDX-License-Identifier: MIT
//
// What a petal of a rose stands for, in words.

#pragma once

#include "platform/surface.h"

#include <string>

namespace quandrel {

/// Lines for the petal of the rose of gActivePlot at a position in plot units: its class, the
/// sector's bounds, its count and share of all data, and its value where the kind has one. Empty
/// where there is no petal, or when the rose drawn last is another plot's.
[[nodiscard]] std::string PetalTip(Point at);

/// Azimuth bounds of a sector as text, "020-030"; of axial data with those of its opposite,
/// "020-030, 200-210".
[[nodiscard]] std::string SectorBoundsText(int sector);

} // namespace quandrel
