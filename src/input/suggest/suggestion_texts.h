// SPDX-License-Identifier: MIT
//
// Suggested formats in words.

#pragma once

#include "input/suggest/format_suggestion.h"

#include <string>
#include <vector>

namespace quandrel {

/// A suggestion in a line, columns counted from 1: "97%: planes, dip direction 1, dip 2, number 3".
[[nodiscard]] std::string TextOfSuggestion(const FormatSuggestion& suggestion);

/// Why none of the suggestions is taken unasked, and each of them with its reasons, a line each.
[[nodiscard]] std::string TextOfDoubt(const std::vector<FormatSuggestion>& suggestions);

} // namespace quandrel
