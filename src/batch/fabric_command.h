// SPDX-License-Identifier: MIT
//
// The command of fabric plots.

#pragma once

#include "batch/script.h"
#include "fabric/fabric_points.h"

#include <nlohmann/json_fwd.hpp>

#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// The arguments of the command that are no path.
inline constexpr const char* kFabricOf = "of";
inline constexpr const char* kFabricKind = "kind";
inline constexpr const char* kFabricSize = "size";

/// Gathers the fabrics that `of=` names (plot, overlays, classes: of gActivePlot; all: of all open
/// plots), and draws them into the file of the command, if it has one: `kind=woodcock`, triangle or
/// both, `size=` the height of a PNG in pixels.
///
/// @param[out] points  the fabrics
/// @return empty, or an error message
[[nodiscard]] std::string MakeFabricPlot(const Command& command, std::vector<FabricPoint>& points);

/// The values of fabrics, one object each; null for what is undetermined.
[[nodiscard]] nlohmann::ordered_json FabricJson(std::span<const FabricPoint> points);

} // namespace quandrel
