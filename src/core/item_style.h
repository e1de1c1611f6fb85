// SPDX-License-Identifier: MIT
//
// The styles of the girdles and axes of a plot, in the rows of AxisItems.

#pragma once

#include "core/record_marks.h"
#include "core/styles.h"

#include <array>
#include <cstddef>

namespace quandrel {

/// A row of AxisItems; its places are AxisItemColumn.
using AxisItem = std::array<TaggedValue, kAxisValues>;

/// The row of Styles::axes that gives a row of AxisItems its style, 0 to kAxisItems - 1.
[[nodiscard]] std::size_t StyleRowOfItem(int item);

void SetStyleOfItem(AxisItem& item, const AxisStyle& style);

/// Whether an item has exactly a style.
[[nodiscard]] bool HasStyleOfItem(const AxisItem& item, const AxisStyle& style);

} // namespace quandrel
