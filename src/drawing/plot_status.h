// SPDX-License-Identifier: MIT
//
// What the status line says of a plot once it is drawn.

#pragma once

#include "core/plot_record.h"

#include <string>

namespace quandrel {

/// The number of data and the plot's title; of a plot without data what can be done with it.
[[nodiscard]] std::string StatusOfPlot(const PlotRecord& record);

} // namespace quandrel
