// SPDX-License-Identifier: MIT
//
// A rose as JSON.

#pragma once

#include <nlohmann/json.hpp>

namespace quandrel {

/// The tables of the rose of gActivePlot: sectors, their statistics, trigonometric sums, radii and
/// wedges. Null when the rose drawn last is another plot's.
[[nodiscard]] nlohmann::ordered_json RoseJson();

} // namespace quandrel
