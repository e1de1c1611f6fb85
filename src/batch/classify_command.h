// SPDX-License-Identifier: MIT
//
// The command that does the work of the classification dialog.

#pragma once

#include "batch/script.h"

#include <string>
#include <vector>

namespace quandrel {

/// Changes the classification of gActivePlot by arguments such as `mode=1`, `procedure=equal`,
/// `classes=5`, and applies it like the dialog's OK. For a rose it changes the class table and
/// redraws the rose. If an argument is invalid or refused, nothing changes.
///
/// @return empty, or an error message
[[nodiscard]] std::string ApplyClassArguments(const std::vector<Argument>& arguments);

} // namespace quandrel
