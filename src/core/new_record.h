// SPDX-License-Identifier: MIT
//
// The record of a new plot from given settings.

#pragma once

#include "core/settings_value.h"

namespace quandrel {

/// The record of an empty plot. Reads only these settings; NewPlotRecord() uses the current ones.
[[nodiscard]] PlotRecord NewPlotRecord(const Settings& settings);

} // namespace quandrel
