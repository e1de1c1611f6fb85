// SPDX-License-Identifier: MIT
//
// The command of the statistical tests.

#pragma once

#include "batch/script.h"
#include "core/result.h"

#include <string>
#include <vector>

namespace quandrel {

/// The tests of rows of gActivePlot by arguments such as `of=overlay1`, `with=2:main`,
/// `tries=9999`, `seed=7`, as one line of JSON; with `qq=FILE` the quantile plots are drawn into a
/// file. No plot is changed.
///
/// @return the line without its end, or an error message
[[nodiscard]] Result<std::string> TestsJson(const std::vector<Argument>& arguments);

} // namespace quandrel
