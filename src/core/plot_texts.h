// SPDX-License-Identifier: MIT
//
// The statistics of a plot as texts, normal and advanced. Whoever works them out keeps them with
// the plot; its window shows them, and pages, pictures and scripts take them from here. A plot that
// has not been drawn has none.

#pragma once

#include "core/plot.h"

#include <string>

namespace quandrel {

/// Attached to the plot. Lines end in CR LF.
struct PlotStatistics {
    std::string normal;
    std::string advanced;
};

/// The texts of a plot; empty where nothing was worked out.
[[nodiscard]] const PlotStatistics& StatisticsOf(const Plot& plot);

/// The one of them that the plot shows.
[[nodiscard]] const std::string& StatisticsInUse(const Plot& plot);

/// Keeps a text with the plot, and gives it to its window, if it has one.
void KeepNormalStatistics(Plot& plot, std::string text);
void KeepAdvancedStatistics(Plot& plot, std::string text);

} // namespace quandrel
