// SPDX-License-Identifier: MIT
//
// What overlays are called in legends and texts.

#pragma once

#include "core/plot_record.h"

#include <string>

namespace quandrel {

/// The name of an overlay 1 to OverlayRows[kOverlayCount]: the titles of its files; without files
/// "Secondary lines" or "Secondary planes" if it is the other set of the rows, else "Overlay 2".
[[nodiscard]] std::string NameOfOverlay(const PlotRecord& record, int overlay);

} // namespace quandrel
