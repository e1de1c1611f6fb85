// SPDX-License-Identifier: MIT
//
// Commands for annotations and points. Both work on gActivePlot, which must be an open plot.

#pragma once

#include "batch/script.h"

#include <string>
#include <vector>

namespace quandrel {

/// Adds an annotation: its position on the net in plot units, then optionally `left` or `right` for
/// the mouse button whose style it takes. The default is `left`.
///
/// @return empty, or an error message; nothing has then changed
[[nodiscard]] std::string ApplyAnnotateArguments(const std::vector<Argument>& arguments);

/// Adds a row: dip and dip direction, or plunge and trend, in degrees. They are rounded.
///
/// @return empty, or an error message; nothing has then changed
[[nodiscard]] std::string ApplyAddPointArguments(const std::vector<Argument>& arguments);

} // namespace quandrel
