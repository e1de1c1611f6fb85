// SPDX-License-Identifier: MIT
//
// The classification dialog in words.

#pragma once

#include "batch/script.h"

#include <string>
#include <vector>

namespace quandrel {

/// Changes the classification of gActivePlot by arguments such as `mode=1`, `procedure=equal`,
/// `classes=5`, and applies it as the dialog's OK does; for a rose it changes its class table and
/// draws it anew. Nothing changes when one of them is wrong or refused.
///
/// @return empty, or what is wrong
[[nodiscard]] std::string ApplyClassArguments(const std::vector<Argument>& arguments);

} // namespace quandrel
