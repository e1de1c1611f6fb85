// SPDX-License-Identifier: MIT
//
// From a binary plot file that was read to a plot.

#pragma once

#include "core/plot.h"
#include "persistence/binary_plot.h"

namespace quandrel {

/// Gives an empty plot the record, the rows and the grids of a file; the place of the window, the
/// names of files and the title are for the caller. Kinds of drawing that the program refuses
/// become those that it opens instead.
///
/// Throws std::bad_alloc; the plot is then of no use.
///
/// @return false when there is no memory for the rows: then nothing has changed
[[nodiscard]] bool TakeBinaryPlot(BinaryPlot file, Plot& plot);

} // namespace quandrel
