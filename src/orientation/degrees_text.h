// SPDX-License-Identifier: MIT
//
// Measured angles as texts.

#pragma once

#include <string>

namespace quandrel {

/// Degrees as data files have them: at most six decimals, without trailing zeros: "47.3", "218",
/// "-0.5". Inverse of ReadNumber for angles to 1e-6 degree.
///
/// @param degrees  finite, at most 1e15 in size
[[nodiscard]] std::string DegreesText(double degrees);

} // namespace quandrel
