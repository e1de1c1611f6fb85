// SPDX-License-Identifier: MIT
//
// Where scripts come from: a file, a pipe, standard input.

#pragma once

#include "core/result.h"

#include <cstddef>
#include <string>

namespace quandrel {

/// A script of more bytes is none.
inline constexpr std::size_t kLargestScript = std::size_t{64} << 20;

/// The text of a script from a regular file, a pipe that somebody writes to, or standard input for
/// "-". It is UTF-8, or UTF-16 with a mark; marks are no part of it.
///
/// A folder, a device, a pipe through which nothing comes, and what is longer than kLargestScript
/// are refused with a text that says why.
[[nodiscard]] Result<std::string> ReadScriptFile(const std::string& path);

/// The same from a descriptor that is open already, whatever is behind it.
[[nodiscard]] Result<std::string> ReadScript(int descriptor);

} // namespace quandrel
