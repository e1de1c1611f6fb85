// SPDX-License-Identifier: MIT
//
// Rows gathered for fields of density. They are gathered once for all methods and widths.

#pragma once

#include "density/ring_convolution.h"
#include "density/weighted_cells.h"
#include "stereo/distinct_lines.h"
#include "stereo/measured_line.h"

#include <optional>
#include <span>
#include <vector>

namespace quandrel {

class DensityRows {
public:
    /// Rows in whole degrees. O(lines).
    ///
    /// @param sense  of axes, the signs of plunges are ignored
    DensityRows(std::span<const DistinctLine> lines, LineSense sense);

    /// Rows of any precision. O(rows); 24 bytes for each that is not in whole degrees.
    ///
    /// @param rowWeights  how often each row counts, 0 or more; empty where each counts once
    DensityRows(std::span<const MeasuredLine> lines, std::span<const double> rowWeights,
                LineSense sense);

    [[nodiscard]] LineSense Sense() const { return sense_; }

    /// The sum of the weights of the rows: without weights, their number.
    [[nodiscard]] double Weight() const { return weight_; }

    /// Whether all rows are in whole degrees.
    [[nodiscard]] bool AreWhole() const { return between_.empty(); }

    /// The rows shared out to the nodes of the lattice, as spectra. Computed at the first call.
    ///
    /// @param threads  1 or more; the result does not depend on them
    [[nodiscard]] const LatticeSpectra& Spectra(unsigned threads);

    /// The rows in cells. Computed at the first call.
    [[nodiscard]] const WeightedCells& Cells();

private:
    void AddWhole(std::size_t node, double rowWeight);

    LineSense sense_;
    double weight_ = 0;
    std::vector<double> nodes_; ///< the weight of the rows in whole degrees at each node
    std::vector<MeasuredLine> between_;
    std::vector<double> betweenWeights_; ///< empty where each counts once
    std::optional<LatticeSpectra> spectra_;
    std::optional<WeightedCells> cells_;
};

} // namespace quandrel
