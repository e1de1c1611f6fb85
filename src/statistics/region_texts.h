// SPDX-License-Identifier: MIT
//
// Confidence regions in words: what was computed, how and why.

#pragma once

#include "statistics/confidence_region.h"

#include <array>
#include <string>

namespace quandrel {

/// Whether a refused region is shown all the same.
enum class RefusedRegions { Hidden, Shown };

/// "cone of Watson", "ellipse of Prentice", "bootstrap".
[[nodiscard]] std::string NameOfMethod(RegionMethod method, RegionTarget target);

/// "95% region of the principal axis".
[[nodiscard]] std::string NameOfRegion(const ConfidenceRegion& region);

/// Why a region is refused or undefined: "mean not told apart from a girdle (p = 0.21)"; empty for
/// one that is given.
[[nodiscard]] std::string ReasonText(const ConfidenceRegion& region);

/// "Semi-axes 4.1 and 9.8 degrees.", or "Semi-angle 4.1 degrees." of a cone; empty without bounds.
[[nodiscard]] std::string SizeText(const ConfidenceRegion& region);

/// Two lines. The first is what was done and why: "Axes, n = 38. Not symmetric about the axis (p =
/// 0.003): ellipse of Prentice." The second is SizeText, or the reason that there is no region; of
/// a refused one that is shown, both.
[[nodiscard]] std::array<std::string, 2> RegionTexts(const ConfidenceRegion& region,
                                                     RefusedRegions refused);

} // namespace quandrel
