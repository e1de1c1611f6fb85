// SPDX-License-Identifier: MIT
//
// The command that does the work of the rose dialog.

#pragma once

#include "batch/script.h"

#include <string>
#include <vector>

namespace quandrel {

/// Changes the rose settings of gActivePlot by arguments such as `type=0`, `sector=10`,
/// `scale=circ5`, and draws the rose. If an argument is invalid or refused, nothing changes.
///
/// @return empty, or an error message
[[nodiscard]] std::string ApplyRoseArguments(const std::vector<Argument>& arguments);

} // namespace quandrel
