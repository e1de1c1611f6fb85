// SPDX-License-Identifier: MIT
//
// Results that follow from the sums of a summary: from measured angles, rounded once.

#pragma once

#include "statistics/fabric_kernels.h"
#include "summary/row_summary.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace quandrel {

/// Of lines, or of the poles of planes.
struct SummaryFabric {
    double count = 0; ///< n, or the total of the weights
    FabricAxes axes;  ///< eigenvalues, ascending, with their axes
    FabricShape shape;
    std::optional<Direction> meanOfAxes; ///< of lower ends, a unit vector
    double lengthOfAxes = 0;             ///< R/n of the same
    std::optional<Direction> mean;       ///< of directions
    double length = 0;                   ///< R/n of the same
    std::optional<double> kappa;         ///< Fisher's (n - 1)/(n - R); nothing for a single row
};

/// Of azimuths: trends, strikes of planes, or directions.
struct SummaryCircular {
    double count = 0;
    std::optional<double> mean; ///< radians, 0 to kTwoPi, of axes to kPi
    double length = 0;          ///< mean resultant length, of axes of the doubled angles
};

/// Nothing without rows.
[[nodiscard]] std::optional<SummaryFabric> FabricOf(const RowSummary& summary);

/// @param areAxes  both ends of a line count
/// @return nothing without rows
[[nodiscard]] std::optional<SummaryCircular> CircularOf(const RowSummary& summary, bool areAxes);

/// A cell of a histogram: numbers from `first` to before `end`, by their amount.
struct HistogramBin {
    double first = 0;
    double end = 0;
    std::uint64_t count = 0;
};

/// The bins of the appended number that hold some, ascending.
[[nodiscard]] std::vector<HistogramBin> HistogramOf(const NumberSummary& numbers);

/// The rows of a summary in whole degrees, as many times as there are: a line, or a plane.
struct SummaryCell {
    int dip = 0;     ///< or plunge, -90 to 90
    int azimuth = 0; ///< 0 to 360
    std::uint64_t rows = 0;
    double weight = 0; ///< their weights; their number in a summary without weights
};

/// The cells that hold rows, by their number.
[[nodiscard]] std::vector<SummaryCell> CellsOf(const RowSummary& summary);

} // namespace quandrel
