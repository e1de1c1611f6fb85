// SPDX-License-Identifier: MIT
//
// The caption of a plot's window.

#pragma once

#include <string>

namespace quandrel {

/// The caption of the plot's window: its title, the set shown, the kind of data.
[[nodiscard]] std::string TitleOfPlot();

/// Writes the caption of the active plot's window.
void UpdateTitle();

} // namespace quandrel
