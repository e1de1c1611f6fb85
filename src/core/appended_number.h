// SPDX-License-Identifier: MIT
//
// Appended texts read as numbers.

#pragma once

#include <optional>
#include <string_view>

namespace quandrel {

/// An appended text as a number, with the regional decimal delimiter: "2,5" where gDecimalIsComma,
/// else "2.5". Nothing when it is no number, or one with the other delimiter. Blanks about it do
/// not count.
[[nodiscard]] std::optional<double> ParseAppendedNumber(std::string_view text);

} // namespace quandrel
