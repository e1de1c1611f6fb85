// SPDX-License-Identifier: MIT
//
// The command that does the work of the rotation dialog.

#pragma once

#include "batch/script.h"

#include <string>
#include <vector>

namespace quandrel {

/// Rotates gActivePlot by arguments such as `op=3`, `axis=20,135`, `angle=-30`, and draws it. If an
/// argument is invalid, missing or refused, nothing changes.
///
/// @param[out] note  what was not rotated, or nothing
/// @return empty, or an error message
[[nodiscard]] std::string ApplyRotateArguments(const std::vector<Argument>& arguments,
                                               std::string& note);

} // namespace quandrel
