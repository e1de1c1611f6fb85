// SPDX-License-Identifier: MIT
//
// Fabric plots: the fabrics of plots, of their overlays and of their classes as points in the
// diagram of log ratios and in the triangle of shares.
//
// This folder gathers the points, draws the diagrams and writes the values as texts. It is above
// `drawing` because one picture shows several plots, and their classes.
// Input: plots, styles, and the choice of rows. Output: points, a picture on a surface, texts.

#pragma once

#include "core/plot.h"
#include "core/styles.h"
#include "statistics/fabric_diagrams.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// One fabric.
struct FabricPoint {
    std::string name;                   ///< of the plot, the overlay, the class or the axes
    double count = 0;                   ///< number of rows
    DescendingEigenvalues eigenvalues;  ///< S1, S2, S3
    std::optional<LogRatioPlace> place; ///< empty where S3 is 0
    FabricShares shares;
    int symbol = 0; ///< symbol code as the plot shows the rows
    Colour colour;  ///< as the plot shows the rows
};

/// The fabrics of plots, in the order of the plots: of the main rows, of each overlay, of each
/// class. What has no rows has no point. O(rows).
///
/// With several plots each name begins with the title of its plot.
///
/// @param plots  none is null
/// @param of     sum of RegionsOfCode
[[nodiscard]] std::vector<FabricPoint> FabricPointsOf(std::span<Plot* const> plots,
                                                      const Styles& styles, std::int16_t of);

/// All open plots, by slot.
[[nodiscard]] std::vector<Plot*> OpenPlots();

/// What plots offer for fabric plots.
struct FabricOffer {
    bool hasOverlays = false;
    bool hasClasses = false;
};

[[nodiscard]] FabricOffer FabricOfferOf(std::span<Plot* const> plots);

} // namespace quandrel
