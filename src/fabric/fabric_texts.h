// SPDX-License-Identifier: MIT
//
// The values of fabric plots as texts: the cells of a table.

#pragma once

#include "fabric/fabric_points.h"

#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// The headings of the columns: rows, n, S1, S2, S3, ln(S2/S3), ln(S1/S2), K, C, P, G, R, B.
[[nodiscard]] const std::vector<std::string>& FabricHeadings();

/// The cells of a fabric under these headings, with three decimals; "-" for what is undetermined.
[[nodiscard]] std::vector<std::string> FabricCells(const FabricPoint& point);

/// The whole table with tabs: the headings, then one line for each fabric.
[[nodiscard]] std::string FabricTable(std::span<const FabricPoint> points);

/// What is to be told of fabrics: which have no place by log ratios, or that there are none. Empty
/// where nothing is.
[[nodiscard]] std::string FabricNote(std::span<const FabricPoint> points);

} // namespace quandrel
