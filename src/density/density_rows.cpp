// SPDX-License-Identifier: MIT

#include "density/density_rows.h"

#include "density/shared_work.h"

#include <algorithm>
#include <utility>

namespace quandrel {

namespace {

/// Rows between the nodes are shared out in a number of blocks that follows from their number
/// alone, so that sums do not depend on the threads.
std::size_t BlocksFor(std::size_t rows) {
    constexpr std::size_t kRowsOfBlock = 32'768;
    constexpr std::size_t kMostBlocks = 8;
    return std::clamp<std::size_t>(rows / kRowsOfBlock, 1, kMostBlocks);
}

void ShareOut(std::span<const MeasuredLine> lines, std::span<const double> rowWeights,
              LineSense sense, unsigned threads, std::span<double> nodes) {
    std::vector<RowShares> blocks(BlocksFor(lines.size()), RowShares(sense));
    ShareRuns(blocks.size(), 1, threads, [&](std::size_t block, std::size_t) {
        const std::size_t end = lines.size() * (block + 1) / blocks.size();
        for (std::size_t row = lines.size() * block / blocks.size(); row < end; ++row) {
            blocks[block].Add(LatticePlaceOf(lines[row], sense),
                              rowWeights.empty() ? 1 : rowWeights[row]);
        }
    });
    for (std::size_t block = 1; block < blocks.size(); ++block) {
        blocks.front().Add(blocks[block]);
    }
    std::move(blocks.front()).AddTo(nodes);
}

} // namespace

DensityRows::DensityRows(std::span<const DistinctLine> lines, LineSense sense)
    : sense_(sense)
    , nodes_(NodesOf(sense)) {
    for (const DistinctLine& line : lines) {
        const MeasuredLine measured{DegToRad(line.plunge), DegToRad(line.trend)};
        AddWhole(NearestNode(LatticePlaceOf(measured, sense), sense), line.rows);
    }
}

DensityRows::DensityRows(std::span<const MeasuredLine> lines, std::span<const double> rowWeights,
                         LineSense sense)
    : sense_(sense)
    , nodes_(NodesOf(sense)) {
    for (std::size_t row = 0; row < lines.size(); ++row) {
        const LatticePlace place = LatticePlaceOf(lines[row], sense);
        const double rowWeight = rowWeights.empty() ? 1 : rowWeights[row];
        if (IsNode(place)) {
            AddWhole(NearestNode(place, sense), rowWeight);
            continue;
        }
        if (between_.empty()) {
            between_.reserve(lines.size() - row);
        }
        weight_ += rowWeight;
        between_.push_back(lines[row]);
        if (!rowWeights.empty()) {
            betweenWeights_.push_back(rowWeight);
        }
    }
}

void DensityRows::AddWhole(std::size_t node, double rowWeight) {
    weight_ += rowWeight;
    nodes_[node] += rowWeight;
}

const LatticeSpectra& DensityRows::Spectra(unsigned threads) {
    if (!spectra_) {
        std::vector<double> nodes = nodes_;
        if (!AreWhole()) {
            ShareOut(between_, betweenWeights_, sense_, threads, nodes);
        }
        spectra_ = SpectraOf(nodes, sense_);
    }
    return *spectra_;
}

const WeightedCells& DensityRows::Cells() {
    if (!cells_) {
        std::vector<MeasuredLine> lines = between_;
        std::vector<double> rowWeights = betweenWeights_;
        rowWeights.resize(lines.size(), 1);
        for (std::size_t node = 0; node < nodes_.size(); ++node) {
            if (nodes_[node] != 0) {
                lines.push_back(LineOfNode(node, sense_));
                rowWeights.push_back(nodes_[node]);
            }
        }
        cells_.emplace(lines, rowWeights, sense_);
    }
    return *cells_;
}

} // namespace quandrel
