// SPDX-License-Identifier: MIT
//
// The record of a new plot by settings that are given.

#pragma once

#include "core/settings_value.h"

namespace quandrel {

/// The record of an empty plot. Reads nothing but the settings; NewPlotRecord() is by those in
/// force.
[[nodiscard]] PlotRecord NewPlotRecord(const Settings& settings);

} // namespace quandrel
