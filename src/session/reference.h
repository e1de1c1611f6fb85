// SPDX-License-Identifier: MIT
//
// The statistics of the active plot in full precision, whatever kind of plot it is.

#pragma once

#include "core/reference_lines.h"

#include <vector>

namespace quandrel {

/// The numbers in their order, with what the statistics boxes print where it differs. None for a
/// plot without statistics. The statistics must have been worked out.
[[nodiscard]] std::vector<ReferenceLine> ReferenceOfActivePlot();

} // namespace quandrel
