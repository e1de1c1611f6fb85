// SPDX-License-Identifier: MIT
//
// Plots as the bytes of a binary plot file and back, as values: no slot, window, message or file
// takes part. Enters: bytes, which are never trusted, or a plot. Leaves: a plot of its own, or
// bytes that can be read back.

#pragma once

#include "core/plot.h"
#include "core/result.h"

#include <string>
#include <string_view>

namespace quandrel {

/// The plot that the bytes of a binary plot file hold, of any version from 7.0 on.
///
/// The plot has no window and no names of files or title. Densities, statistics and texts are those
/// of the file; what its version lacks is as in NewPlotRecord.
///
/// @return a failure, a text for the user, of bytes that are damaged or hold what no plot can have
[[nodiscard]] Result<Plot> ReadPlotFile(std::string_view bytes);

/// A plot as the bytes of a binary plot file of the present version. What of its rows is marked by
/// links to other plots is written as it is in the columns. Without a window the place of a new one
/// is written.
///
/// @return a failure, a text for the user, where a text or an overlay is too large for the file, or
///         a field has a value that a reader would refuse
[[nodiscard]] Result<std::string> PlotFileBytes(const Plot& plot);

} // namespace quandrel
