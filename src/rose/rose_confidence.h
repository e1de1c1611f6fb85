// SPDX-License-Identifier: MIT
//
// The 95% confidence interval of the mean direction of a rose.

#pragma once

#include "core/formulas.h"
#include "rose/rose_tables.h"

#include <optional>

namespace quandrel {

/// Half the interval by the method for large samples, radians, 0 to pi/2 (pi/4 of axial data; the
/// whole of it for data so few or so dispersed that there is no interval); nothing when the rose
/// has no mean direction.
///
/// Formula: arc sin(z s), s the circular standard error, the root of the dispersion over the number
/// of data; z is 1.9604, in the textbook 1.96. N. I. Fisher, Statistical Analysis of Circular Data
/// (1993), 4.4.4.
[[nodiscard]] std::optional<double> RoseConfidenceHalfWidth(const Plot& plot,
                                                            Formulas formulas = Formulas::Own);

/// The interval by the statistics in the record of a plot, nothing when it has no mean direction.
/// The rows of a small sample are counted once more.
[[nodiscard]] std::optional<RoseConfidence> RoseConfidenceOf(const Plot& plot, Formulas formulas);

/// Whether a rose has a mean direction: statistics, and a resultant.
[[nodiscard]] bool HasRoseMean(const PlotRecord& record);

} // namespace quandrel
