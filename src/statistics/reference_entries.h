// SPDX-License-Identifier: MIT
//
// The reference statistics as a list of named numbers, each with the corresponding value of the
// statistics texts.

#pragma once

#include "core/plot_record.h"
#include "core/reference_lines.h"
#include "statistics/reference_statistics.h"

#include <vector>

namespace quandrel {

/// The numbers in order.
///
/// @param record  of the same rows, with its statistics computed
[[nodiscard]] std::vector<ReferenceLine> ReferenceEntries(const ReferenceStatistics& statistics,
                                                          const PlotRecord& record);

} // namespace quandrel
