// SPDX-License-Identifier: MIT
//
// The status line of a plot after it is drawn.

#pragma once

#include "core/plot_record.h"

#include <string>

namespace quandrel {

/// The number of data and the plot's title; for a plot without data, what the user can do with it.
[[nodiscard]] std::string StatusOfPlot(const PlotRecord& record);

} // namespace quandrel
