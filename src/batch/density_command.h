// SPDX-License-Identifier: MIT
//
// The commands that do the work of the dialogs of densities and confidence regions.

#pragma once

#include "batch/script.h"

#include <string>
#include <vector>

namespace quandrel {

/// Changes the densities of gActivePlot by arguments such as `method=kamb`, `k=3`, `unit=sigma`,
/// `levels=2,4,8`, and draws it. If an argument is invalid, nothing changes.
///
/// @return empty, or an error message
[[nodiscard]] std::string ApplyDensityArguments(const std::vector<Argument>& arguments);

/// The local maxima of the density that gActivePlot shows (density/maxima_table.h); empty without.
[[nodiscard]] std::string MaximaText();

} // namespace quandrel
