// SPDX-License-Identifier: MIT
//
// Changes of the kind of data of a plot.

#pragma once

#include <cstdint>

namespace quandrel {

/// Treats the rows of gActivePlot as a kind of data (a DataKindCode), without a question: computes
/// their positions for that kind, and redraws the plot.
void SetDataType(std::int16_t kind);

} // namespace quandrel
