// SPDX-License-Identifier: MIT
//
// The command that suggests formats for a file.

#pragma once

#include "core/result.h"

#include <string>

namespace quandrel {

/// The suggestions for a file as a line of JSON: a list of objects with `probability`, `format`
/// (FormatArgumentsOf in format_command.h) and `reasons`, the most probable first. Empty for a file
/// that states its format, and for one without rows.
///
/// @return a failure for a file that cannot be read
[[nodiscard]] Result<std::string> SuggestionsOfFile(const std::string& path);

} // namespace quandrel
