// SPDX-License-Identifier: MIT
//
// Conversion of a binary plot file that was read to a plot.

#pragma once

#include "core/plot.h"
#include "persistence/binary_plot.h"

namespace quandrel {

/// Gives an empty plot the record, the rows and the grids of a file. The caller sets the place of
/// the window, the file names and the title. Kinds of drawing that the program refuses are replaced
/// by those that it opens instead.
///
/// Throws std::bad_alloc; the plot is then unusable.
///
/// @return false when there is no memory for the rows: then nothing has changed
[[nodiscard]] bool TakeBinaryPlot(BinaryPlot file, Plot& plot);

} // namespace quandrel
