// SPDX-License-Identifier: MIT
//
// Upper and lower case of letters in UTF-8 texts: the Latin, Greek and Cyrillic letters of one or
// two bytes. A change of case never changes the number of bytes. Bytes that are not UTF-8 stay.

#pragma once

#include <string>
#include <string_view>

namespace quandrel {

/// Folds a text for comparison without case: letters in lower case, both small sigmas the same.
[[nodiscard]] std::string LowerCase(std::string text);

/// Whether two texts are equal when case is ignored.
[[nodiscard]] bool EqualWithoutCase(std::string_view a, std::string_view b);

} // namespace quandrel
