// SPDX-License-Identifier: MIT
//
// The style that a plot is drawn in.

#pragma once

#include "core/figure_style.h"
#include "core/plot_record.h"

#include <memory>

namespace quandrel {

/// The style of a plot: the text of its own, else the standard style that it names. Classic for a
/// plot without one, and where its own cannot be read.
[[nodiscard]] std::shared_ptr<const FigureStyle> StyleOfPlot(const PlotRecord& record);

} // namespace quandrel
