// SPDX-License-Identifier: MIT
//
// The classes of a plot's rows in the form in which statistics take them: `statistics` does not
// see `classify`.

#pragma once

#include "core/plot.h"
#include "statistics/row_groups.h"

namespace quandrel {

/// The class of each main row by the plot's class mode and table, with the labels of the classes as
/// in the legend. Both are empty in a plot without classes. O(rows).
[[nodiscard]] RowClasses RowClassesOf(const Plot& plot);

} // namespace quandrel
