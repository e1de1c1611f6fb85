// SPDX-License-Identifier: MIT
//
// Commands for girdles and small circles.

#pragma once

#include "batch/script.h"

#include <string>
#include <vector>

namespace quandrel {

/// Sets a girdle of gActivePlot: `1 45/120`, in the current conventions; `1 off` and `1 on` hide
/// and show it. Rows 9 and 10, those of the statistics, accept on and off only.
///
/// @return empty, or an error message; nothing has then changed
[[nodiscard]] std::string ApplyGirdleArguments(const std::vector<Argument>& arguments);

/// Sets a small circle of gActivePlot: number 1 to 4, plunge and azimuth of its axis, its angle.
/// `off` and `on` after the number hide and show it.
///
/// @return empty, or an error message; nothing has then changed
[[nodiscard]] std::string ApplySmallCircleArguments(const std::vector<Argument>& arguments);

} // namespace quandrel
