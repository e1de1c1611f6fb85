// SPDX-License-Identifier: MIT
//
// Paths as lines of a workspace. Most stand there as they are; in a workspace with a name that a
// line cannot hold, bytes of all names may be written as "%" and two hexadecimal digits.

#pragma once

#include <string>
#include <string_view>

namespace quandrel {

/// True when a line cannot hold a path as it is: with blanks at an end, backslashes, control
/// characters, line ends among them, or bytes that are not UTF-8.
[[nodiscard]] bool NeedsEscapes(std::string_view path);

/// A path with everything escaped that NeedsEscapes finds, and each "%".
[[nodiscard]] std::string WithEscapes(std::string_view path);

/// The path of a line with escapes; a "%" without two digits stands for itself. Inverse:
/// WithEscapes.
[[nodiscard]] std::string WithoutEscapes(std::string_view text);

} // namespace quandrel
