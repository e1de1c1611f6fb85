// SPDX-License-Identifier: MIT
//
// The rotation dialog in words.

#pragma once

#include "batch/script.h"

#include <string>
#include <vector>

namespace quandrel {

/// Rotates gActivePlot by arguments such as `op=3`, `axis=20,135`, `angle=-30`, and draws it.
/// Nothing changes when one of them is wrong, lacks, or is refused.
///
/// @param[out] note  what was left unrotated, or nothing
/// @return empty, or what is wrong
[[nodiscard]] std::string ApplyRotateArguments(const std::vector<Argument>& arguments,
                                               std::string& note);

} // namespace quandrel
