// SPDX-License-Identifier: MIT
//
// The statistics of a plot as texts, normal and advanced. The code that computes them stores them
// with the plot; windows, pages, pictures and scripts read them from here. A plot that has not been
// drawn does not have any.

#pragma once

#include "core/plot.h"

#include <string>

namespace quandrel {

/// Attached to the plot. Lines end in CR LF.
struct PlotStatistics {
    std::string normal;
    std::string advanced;
};

/// The texts of a plot; empty before the statistics are computed.
[[nodiscard]] const PlotStatistics& StatisticsOf(const Plot& plot);

/// The text that the plot shows.
[[nodiscard]] const std::string& StatisticsInUse(const Plot& plot);

/// Stores a text with the plot, and passes it to its window, if it has one.
void KeepNormalStatistics(Plot& plot, std::string text);
void KeepAdvancedStatistics(Plot& plot, std::string text);

} // namespace quandrel
