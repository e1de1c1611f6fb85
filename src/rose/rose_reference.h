// SPDX-License-Identifier: MIT
//
// The reference to the circular statistics of a rose.

#pragma once

#include "core/plot_record.h"
#include "core/reference_lines.h"
#include "rose/circular_reference.h"

#include <optional>
#include <vector>

namespace quandrel {

/// The reference of the rose of gActivePlot: moments over what its statistics are over, median and
/// tests over the azimuths of its observations, without the weights of a bias correction.
///
/// @return nothing for other plots, kinds of rose without statistics, and when the tables are of
///         another plot
[[nodiscard]] std::optional<CircularReference> RoseReferenceOfActivePlot();

/// The numbers in their order, angles in degrees. Median and tests are left out without a list of
/// azimuths.
///
/// @param record  of the same rose, with its statistics worked out
[[nodiscard]] std::vector<ReferenceLine> RoseReferenceLines(const CircularReference& reference,
                                                            const PlotRecord& record);

} // namespace quandrel
