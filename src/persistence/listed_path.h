// SPDX-License-Identifier: MIT
//
// Paths as lines of a workspace. Most are written unchanged. If a workspace has a name that a line
// cannot hold, bytes of all names may be written as "%" and two hexadecimal digits.

#pragma once

#include <string>
#include <string_view>

namespace quandrel {

/// Whether a line cannot hold a path unchanged: it has blanks at an end, backslashes, control
/// characters including line ends, or bytes that are not UTF-8.
[[nodiscard]] bool NeedsEscapes(std::string_view path);

/// A path with escapes for everything that NeedsEscapes finds, and for each "%".
[[nodiscard]] std::string WithEscapes(std::string_view path);

/// The path of a line with escapes; a "%" without two digits is literal. Inverse: WithEscapes.
[[nodiscard]] std::string WithoutEscapes(std::string_view text);

} // namespace quandrel
