// SPDX-License-Identifier: MIT
//
// The command of confidence regions, and their values in the dump.

#pragma once

#include "batch/script.h"
#include "core/plot.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <vector>

namespace quandrel {

/// Changes the confidence regions of gActivePlot by arguments such as `about=axis,girdle`,
/// `level=95`, `method=auto`, or `off`, and draws it. If an argument is invalid, nothing changes.
///
/// @return empty, or an error message
[[nodiscard]] std::string ApplyRegionArguments(const std::vector<Argument>& arguments);

/// The regions of a plot, one object each; angles in degrees.
[[nodiscard]] nlohmann::ordered_json RegionsJson(const Plot& plot);

} // namespace quandrel
