// SPDX-License-Identifier: MIT
//
// The lines without data in a plot's files.

#pragma once

#include <string>

namespace quandrel {

/// The result of the last load into the active plot, and each of its lines that is not plotted,
/// with the row that holds it. Empty when all lines are data.
[[nodiscard]] std::string UnplottedLinesText();

/// True when the active plot has such lines.
[[nodiscard]] bool HasUnplottedLines();

/// The result of the last opening of a file, in a sentence: how many files of a workspace were
/// opened, or how many rows of the active plot's files were read and how many of them have
/// decimals; empty for a plot file.
[[nodiscard]] std::string OpeningText();

} // namespace quandrel
