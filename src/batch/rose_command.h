// SPDX-License-Identifier: MIT
//
// The rose dialog in words.

#pragma once

#include "batch/script.h"

#include <string>
#include <vector>

namespace quandrel {

/// Changes the settings of the rose of gActivePlot by arguments such as `type=0`, `sector=10`,
/// `scale=circ5`, and draws it. Nothing changes when one of them is wrong or refused.
///
/// @return empty, or what is wrong
[[nodiscard]] std::string ApplyRoseArguments(const std::vector<Argument>& arguments);

} // namespace quandrel
