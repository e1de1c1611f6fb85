// SPDX-License-Identifier: MIT
//
// Upper and lower case of letters in UTF-8 texts: Latin, Greek and Cyrillic, as far as they are
// written in one or two bytes. No letter changes its number of bytes. Bytes that are no UTF-8 stay.

#pragma once

#include <string>
#include <string_view>

namespace quandrel {

/// A text for comparison without case: letters in lower case, both small sigmas alike.
[[nodiscard]] std::string LowerCase(std::string text);

/// True when two texts are alike but for the case of letters.
[[nodiscard]] bool EqualWithoutCase(std::string_view a, std::string_view b);

} // namespace quandrel
