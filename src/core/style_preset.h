// SPDX-License-Identifier: MIT
//
// What a style presets of a new plot, beyond how it is drawn.

#pragma once

#include "core/figure_style.h"
#include "core/plot_record.h"

namespace quandrel {

/// Presets a new plot by the style of new plots: whether areas of petals are in proportion, and in
/// a style that shows the mean of a rose where it is significant, mean and interval, switched on.
/// Classic changes nothing. Plots that are not new keep what they have.
void PresetByStyle(PlotRecord& record, const FigureStyle& style);

} // namespace quandrel
