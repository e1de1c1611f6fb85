// SPDX-License-Identifier: MIT
//
// The two texts of the statistics beside a stereo plot. Lines end in CR LF. Orientations are in the
// notation in force in the normal text, in degrees with two decimals in the advanced one; both say
// in which order. Directions that the data leave open are undetermined; other results that could
// not be worked out are written as they stand (99999). Below a result of the program's own formulas
// stands the textbook's, where it is printed otherwise.

#pragma once

#include "core/plot_record.h"

#include <optional>
#include <string>

namespace quandrel {

/// The end of a line.
inline constexpr const char* kLineEnd = "\r\n";

/// The appended numbers of the main rows of gActivePlot that are no error rows.
struct AppendedStatistics {
    double least = 0;
    double greatest = 0;
    double mean = 0;
    double standardDeviation = 0; ///< of a sample: over n - 1; 0 for a single number
};

/// @return nothing when there is no valid number. O(rows).
[[nodiscard]] std::optional<AppendedStatistics> AppendedStatisticsOfActivePlot();

/// The normal text of gActivePlot: means, girdles, appended numbers, gridded values. Only the
/// number of data without rows, and for a rose. Of P and T axes together those of P, then of T.
[[nodiscard]] std::string StatsBoxText();

/// The advanced text: principal axis, means, eigenvectors, shape. Only the number of data without
/// rows; empty for a rose.
[[nodiscard]] std::string FabricBoxText();

/// Keeps StatsBoxText with the plot, and shows it.
void WriteStatsBox();

/// Keeps FabricBoxText with the plot, and shows it.
void WriteFabricBox();

/// Writes both. A rose writes its own as it is drawn: for it nothing is done.
void WriteStatisticsBoxes();

} // namespace quandrel
