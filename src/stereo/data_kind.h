// SPDX-License-Identifier: MIT
//
// What the rows of a plot are taken as.

#pragma once

#include <cstdint>

namespace quandrel {

/// Takes the rows of gActivePlot as a kind of data (a DataKindCode), without a question: they get
/// their places as that kind, and the plot is drawn anew.
void SetDataType(std::int16_t kind);

} // namespace quandrel
