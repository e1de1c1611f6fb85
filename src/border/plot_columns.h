// SPDX-License-Identifier: MIT
//
// Public plots and those of binary plot files: what they have in common, either way.

#pragma once

#include "persistence/binary_plot.h"
#include "quandrel/plot_file.h"

namespace quandrel::api {

/// What a file told, with its rows as arrays.
[[nodiscard]] Plot PlotOut(BinaryPlot plot);

/// A checked plot as one to be written, with the styles of a first run. Throws
/// std::invalid_argument.
[[nodiscard]] BinaryPlot PlotIn(const Plot& plot);

} // namespace quandrel::api
