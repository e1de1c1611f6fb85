// SPDX-License-Identifier: MIT
//
// Marks and points set by hand, in words. Both work on gActivePlot, which must be an open plot.

#pragma once

#include "batch/script.h"

#include <string>
#include <vector>

namespace quandrel {

/// Adds an annotation: its place on the net in plot units, then `left` or `right` for the button
/// whose style it takes. Without one it is `left`.
///
/// @return empty, or what is wrong; nothing has then changed
[[nodiscard]] std::string ApplyAnnotateArguments(const std::vector<Argument>& arguments);

/// Adds a row: dip and dip direction, or plunge and trend, in degrees; they are rounded.
///
/// @return empty, or what is wrong; nothing has then changed
[[nodiscard]] std::string ApplyAddPointArguments(const std::vector<Argument>& arguments);

} // namespace quandrel
