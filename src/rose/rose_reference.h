// SPDX-License-Identifier: MIT
//
// Reference values for the circular statistics of a rose.

#pragma once

#include "core/formulas.h"
#include "core/plot.h"
#include "core/reference_lines.h"
#include "rose/circular_reference.h"

#include <optional>
#include <vector>

namespace quandrel {

/// The reference of the rose of a plot: moments with the weights of its statistics, median and
/// tests from the azimuths of its observations, without the weights of a bias correction. Azimuths
/// count as they were measured, whether the plot uses decimals or not.
///
/// @return empty for other plots, kinds of rose without statistics, and roses never counted
[[nodiscard]] std::optional<CircularReference> RoseReferenceOf(const Plot& plot);

/// The numbers in order, angles in degrees. Median and tests are left out without a list of
/// azimuths.
///
/// @param plot      of the same rose, with its statistics computed
/// @param formulas  of these statistics
[[nodiscard]] std::vector<ReferenceLine> RoseReferenceLines(const CircularReference& reference,
                                                            const Plot& plot, Formulas formulas);

} // namespace quandrel
