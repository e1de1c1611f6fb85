// SPDX-License-Identifier: MIT
//
// The description of a petal of a rose.

#pragma once

#include "core/plot.h"
#include "platform/surface.h"

#include <string>

namespace quandrel {

/// Lines for the petal of the rose of a plot at a position in plot units: its class, the sector's
/// bounds, its count and share of all data, and its value where the kind has one. Empty where there
/// is no petal, and for plots that are not roses.
[[nodiscard]] std::string PetalTip(const Plot& plot, Point at);

/// Azimuth bounds of a sector as text, "020-030"; for axial data both ends, "020-030, 200-210".
[[nodiscard]] std::string SectorBoundsText(const Plot& plot, int sector);

} // namespace quandrel
