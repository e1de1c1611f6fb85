// SPDX-License-Identifier: MIT
//
// The 95% confidence interval of the mean direction of a rose.

#pragma once

#include "core/formulas.h"
#include "rose/rose_tables.h"

#include <optional>

namespace quandrel {

/// Half the interval by the method for large samples, radians, 0 to pi/2 (for axial data pi/4; this
/// maximum if there is no interval, because the data are too few or too dispersed). Empty when the
/// rose does not have a mean direction.
///
/// Formula: arc sin(z s), s the circular standard error, the square root of the dispersion over the
/// number of data; z is 1.9604, in the textbook 1.96. N. I. Fisher, Statistical Analysis of
/// Circular Data (1993), 4.4.4.
[[nodiscard]] std::optional<double> RoseConfidenceHalfWidth(const Plot& plot,
                                                            Formulas formulas = Formulas::Own);

/// The interval from the statistics in the record of a plot, empty when it does not have a mean
/// direction. The rows of a small sample are counted again.
[[nodiscard]] std::optional<RoseConfidence> RoseConfidenceOf(const Plot& plot, Formulas formulas);

/// Whether a rose has a mean direction: statistics, and a resultant.
[[nodiscard]] bool HasRoseMean(const PlotRecord& record);

} // namespace quandrel
