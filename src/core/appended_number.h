// SPDX-License-Identifier: MIT
//
// Appended texts read as numbers.

#pragma once

#include <optional>
#include <string_view>

namespace quandrel {

/// Reads an appended text as a number with the regional decimal delimiter: "2,5" where
/// gDecimalIsComma, else "2.5". Empty when the text is not a number or has the other delimiter.
/// Leading and trailing blanks are ignored.
[[nodiscard]] std::optional<double> ParseAppendedNumber(std::string_view text);

} // namespace quandrel
