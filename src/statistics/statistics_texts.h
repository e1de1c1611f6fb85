// SPDX-License-Identifier: MIT
//
// The two texts of the statistics beside a stereo plot. Lines end in CR LF. Orientations are in the
// current notation in the normal text, in degrees with two decimals in the advanced one; both give
// the order of the values. Directions that the data do not determine are printed as undetermined;
// other results that could not be computed are printed unchanged (99999). The textbook's value
// follows below a result of the program's own formulas if it prints differently.

#pragma once

#include "core/plot_record.h"

#include <optional>
#include <string>

namespace quandrel {

/// The end of a line.
inline constexpr const char* kLineEnd = "\r\n";

/// The appended numbers of the main rows of gActivePlot that are not error rows.
struct AppendedStatistics {
    double least = 0;
    double greatest = 0;
    double mean = 0;
    double standardDeviation = 0; ///< of a sample, with n - 1; 0 for a single number
};

/// @return empty when there is no valid number. O(rows).
[[nodiscard]] std::optional<AppendedStatistics> AppendedStatisticsOfActivePlot();

/// The normal text of gActivePlot: means, girdles, appended numbers, gridded values. Only the
/// number of data without rows, and for a rose. In a plot of P and T axes those of P, then of T.
[[nodiscard]] std::string StatsBoxText();

/// The advanced text: principal axis, means, eigenvectors, shape. Only the number of data without
/// rows; empty for a rose.
[[nodiscard]] std::string FabricBoxText();

/// Stores StatsBoxText with the plot, and shows it.
void WriteStatsBox();

/// Stores FabricBoxText with the plot, and shows it.
void WriteFabricBox();

/// Writes both. Does nothing for a rose, which writes its own when it is drawn.
void WriteStatisticsBoxes();

} // namespace quandrel
