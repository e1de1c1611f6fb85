// SPDX-License-Identifier: MIT
//
// Plots as the bytes of a binary plot file and back, as values, without slots, windows, messages or
// files. Input: bytes, which are never trusted, or a plot. Output: a plot of its own, or bytes that
// can be read back.

#pragma once

#include "core/plot.h"
#include "core/result.h"

#include <string>
#include <string_view>

namespace quandrel {

/// The plot in the bytes of a binary plot file, of any version from 7.0 on.
///
/// The plot does not have a window, file names or a title. Densities, statistics and texts are
/// those of the file; fields missing in its version are as in NewPlotRecord.
///
/// @return a failure, a text for the user, if the bytes are damaged or hold values that no plot can
///         have
[[nodiscard]] Result<Plot> ReadPlotFile(std::string_view bytes);

/// A plot as the bytes of a binary plot file of the present version. Rows that are marked by links
/// to other plots are written as in the columns. Without a window the place of a new one is
/// written.
///
/// @return a failure, a text for the user, where a text or an overlay is too large for the file, or
///         a field has a value that a reader would reject
[[nodiscard]] Result<std::string> PlotFileBytes(const Plot& plot);

} // namespace quandrel
