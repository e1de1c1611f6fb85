// SPDX-License-Identifier: MIT
//
// The lines of a text from which a format is suggested.

#pragma once

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

} // namespace quandrel
