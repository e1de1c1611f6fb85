// SPDX-License-Identifier: MIT
//
// The commands about the style of a plot. They can be undone, and report what cannot be
// read or written.

#pragma once

#include "core/record_figure.h"

#include <cstddef>
#include <optional>

namespace quandrel {

/// Which of StandardStyles() a plot has; nothing for a style of a file.
[[nodiscard]] std::optional<std::size_t> StandardStyleOf(const RecordFigure& figure);

/// Gives a plot one of StandardStyles().
void UseStandardStyle(int slot, std::size_t number);

/// Asks for a file and gives its style to a plot.
void OpenStyle(int slot);

/// Asks for a file and writes the style of a plot into it.
void SaveStyle(int slot);

/// Makes the style of a plot that of new plots, in this and later runs.
void UseStyleForNewPlots(int slot);

} // namespace quandrel
