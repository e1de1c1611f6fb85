// SPDX-License-Identifier: MIT
//
// Derived rows in both forms in which a plot keeps them: whole degrees, and measured angles.

#pragma once

#include "core/row_block.h"
#include "input/data_rows.h"

namespace quandrel {

/// Appends a row whose whole degrees were rounded by the rule of its maker.
///
/// @param whole     the row in whole degrees, with its appended values
/// @param measured  its measured angles to 1e-6 degree; kept where they differ from the whole
/// degrees
/// @return false when memory ran out: the row was not stored, and DataFull of the plot is set
[[nodiscard]] bool StoreMeasuredRow(Plot& plot, const ParsedRow& whole,
                                    const MeasuredValues& measured, const RowTarget& target);

/// A line in radians as measured angles, to 1e-6 degree, trend 0 to less than 360.
[[nodiscard]] Attitude MeasuredLine(double plunge, double trend);

} // namespace quandrel
