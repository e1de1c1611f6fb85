// SPDX-License-Identifier: MIT

#include "statistics/region_sample.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace quandrel {

namespace {

struct Row {
    Direction direction;
    double weight = 0;
};

auto KeyOf(const Row& row) {
    return std::tie(row.direction.l, row.direction.m, row.direction.n);
}

/// The rows with weight, sorted; equal ones are in the order of their weights, so that these are
/// always added up in the same order.
std::vector<Row> SortedRows(const WeightedDirections& rows, RowsAre kind) {
    std::vector<Row> sorted;
    for (std::size_t i = 0; i < rows.directions.size(); ++i) {
        if (rows.weights[i] > 0) {
            const Direction& row = rows.directions[i];
            sorted.push_back({kind == RowsAre::Axes
                                  ? LowerEnd(row)
                                  : Direction{row.l + 0.0, row.m + 0.0, row.n + 0.0},
                              rows.weights[i]});
        }
    }
    std::sort(sorted.begin(), sorted.end(), [](const Row& a, const Row& b) {
        return KeyOf(a) != KeyOf(b) ? KeyOf(a) < KeyOf(b) : a.weight < b.weight;
    });
    return sorted;
}

} // namespace

RegionSample RegionSampleOf(const WeightedDirections& rows, RowsAre kind,
                            std::optional<double> count) {
    RegionSample sample;
    sample.kind = kind;
    const Row* last = nullptr;
    const std::vector<Row> sorted = SortedRows(rows, kind);
    for (const Row& row : sorted) {
        if (last != nullptr && KeyOf(*last) == KeyOf(row)) {
            sample.rows.weights.back() += row.weight;
        } else {
            sample.rows.directions.push_back(row.direction);
            sample.rows.weights.push_back(row.weight);
        }
        last = &row;
    }
    sample.total = TotalWeight(sample.rows.weights);
    sample.count = count.value_or(sample.total);
    return sample;
}

std::optional<AxisFrame> AxisFrameOf(const RegionSample& sample, FrameCentre centre) {
    const auto tensor = OrientationTensor(sample.rows.directions, sample.rows.weights);
    if (!tensor) {
        return std::nullopt;
    }
    const FabricAxes sorted = SortedAxes(SymmetricEigen3(*tensor));
    AxisFrame frame{sorted.axes, sorted.values};
    if (centre == FrameCentre::Least) {
        std::swap(frame.axes[0], frame.axes[2]);
        std::swap(frame.values[0], frame.values[2]);
    }
    return frame;
}

std::optional<MeanFrame> MeanFrameOf(const RegionSample& sample) {
    const Direction resultant = ResultantOf(sample.rows.directions, sample.rows.weights);
    const double length = LengthOf(resultant);
    if (!(sample.total > 0) || length < kLeastMeanLength * sample.total) {
        return std::nullopt;
    }
    return MeanFrame{FrameAbout(Scaled(resultant, 1 / length)),
                     std::min(length / sample.total, 1.0)};
}

} // namespace quandrel
