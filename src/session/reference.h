// SPDX-License-Identifier: MIT
//
// The statistics of the active plot in full precision, for any kind of plot.

#pragma once

#include "core/reference_lines.h"

#include <vector>

namespace quandrel {

/// The numbers in order, with the statistics boxes' text where it differs. Empty for a plot without
/// statistics. The statistics must have been computed.
[[nodiscard]] std::vector<ReferenceLine> ReferenceOfActivePlot();

} // namespace quandrel
