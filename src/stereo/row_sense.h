// SPDX-License-Identifier: MIT
//
// The sense of a row, by which it has the style of its kind or that of upward rows.

#pragma once

#include "core/plot.h"

#include <cstdint>

namespace quandrel {

/// Whether a row has the style of rows that point upward: by the sign of the orientation shown in
/// whole degrees, whether the plot uses decimals or not. False for a row that cannot be plotted.
[[nodiscard]] bool IsStyledUpward(const Plot& plot, std::int32_t row);

} // namespace quandrel
