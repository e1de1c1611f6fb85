// SPDX-License-Identifier: MIT
//
// The legend of a rose.

#pragma once

#include "core/plot.h"
#include "rose/rose_sectors.h"
#include "stereo/legend_line.h"

#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// The short name of an appended number in a legend and in statistics: the first 12 characters, or
/// for the usual names, in any case: "Wghted freq" for "weighting", "Wind freq" and "Wind speed".
[[nodiscard]] std::string RoseValueLabel(std::string_view name);

/// The lines for the kind of a rose; the layers of an overlaid one have samples.
[[nodiscard]] std::vector<LegendLine> RoseTitleLines(const PlotRecord& record,
                                                     const Styles& styles);

/// The lines of a bias correction, none without one; "Dip only" says that there is no correction.
[[nodiscard]] std::vector<LegendLine> RoseBiasLines(const PlotRecord& record);

/// A sample and a label for each class that is shown and can hold rows; samples are as wide as the
/// classes where these differ in width. Empty for a rose without classes.
[[nodiscard]] std::vector<LegendLine> RoseClassLines(const Plot& plot, const Styles& styles);

/// The lines of the legend of the rose of a plot: its kind, whether axes are counted at both ends,
/// the basis of its classes, its bias correction, and its classes.
[[nodiscard]] std::vector<LegendLine> RoseLegendLines(const Plot& plot, const Styles& styles);

} // namespace quandrel
