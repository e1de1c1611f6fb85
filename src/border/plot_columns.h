// SPDX-License-Identifier: MIT
//
// Conversion between public plots and those of binary plot files.

#pragma once

#include "persistence/binary_plot.h"
#include "quandrel/plot_file.h"

namespace quandrel::api {

/// The contents of a file, with its rows as arrays.
[[nodiscard]] Plot PlotOut(BinaryPlot plot);

/// A checked plot for writing, with the styles of a first run. Throws std::invalid_argument.
[[nodiscard]] BinaryPlot PlotIn(const Plot& plot);

} // namespace quandrel::api
