// SPDX-License-Identifier: MIT
//
// The lines of a plot's files that are no data.

#pragma once

#include <string>

namespace quandrel {

/// What the last load into the active plot did, and each of its lines that is not plotted with the
/// row that it stands in. Empty when all lines are data.
[[nodiscard]] std::string UnplottedLinesText();

/// True when the active plot has such lines.
[[nodiscard]] bool HasUnplottedLines();

/// What the last opening of a file did, in a sentence: how many files of a workspace were opened,
/// or how many rows of the active plot's files were read; empty for a plot file.
[[nodiscard]] std::string OpeningText();

} // namespace quandrel
