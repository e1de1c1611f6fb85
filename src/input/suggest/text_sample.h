// SPDX-License-Identifier: MIT
//
// The lines of a text from which a format is suggested.

#pragma once

#include "input/format_choice.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// Lines that are looked at: the first ones, and the same number spread over the others.
inline constexpr std::size_t kSuggestedFrom = 1000;

/// The lines that are looked at. O(their number).
[[nodiscard]] std::vector<std::string> SampleOfText(std::span<const std::string> lines);

/// Whether a text says its own format: it has a parameter line, or is one that the program wrote.
[[nodiscard]] bool StatesItsFormat(std::span<const std::string> lines);

/// The share of the rows among some lines that a format reads, 0 to 1; 0 without a row.
[[nodiscard]] double ShareRead(std::span<const std::string> lines, const FormatChoice& choice);

} // namespace quandrel
