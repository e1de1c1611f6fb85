// SPDX-License-Identifier: MIT
//
// Girdles and small circles in words.

#pragma once

#include "batch/script.h"

#include <string>
#include <vector>

namespace quandrel {

/// Lays a girdle over gActivePlot: `1 45/120`, in the conventions in force; `1 off` and `1 on` hide
/// and show it. Rows 9 and 10, those of the statistics, take on and off alone.
///
/// @return empty, or what is wrong; nothing has then changed
[[nodiscard]] std::string ApplyGirdleArguments(const std::vector<Argument>& arguments);

/// Draws a small circle on gActivePlot: number 1 to 4, plunge and azimuth of its axis, its angle;
/// behind the number alone `off` and `on` hide and show it.
///
/// @return empty, or what is wrong; nothing has then changed
[[nodiscard]] std::string ApplySmallCircleArguments(const std::vector<Argument>& arguments);

} // namespace quandrel
