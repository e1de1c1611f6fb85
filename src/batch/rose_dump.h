// SPDX-License-Identifier: MIT
//
// A rose as JSON.

#pragma once

#include "core/plot.h"

#include <nlohmann/json.hpp>

namespace quandrel {

/// The tables of the rose of a plot: sectors, their statistics, trigonometric sums, radii and
/// wedges. Null if it was never counted.
[[nodiscard]] nlohmann::ordered_json RoseJson(const Plot& plot);

} // namespace quandrel
