// SPDX-License-Identifier: MIT

#include "density/class_grid.h"

#include "density/cone_counts.h"
#include "density/grid_geometry.h"
#include "orientation/projection.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr std::int16_t kByNumbers = 1;

/// Adds up line by line, because differences of running totals would leave rounding errors.
struct ValueTotal {
    const LineValues& values;
    ValueSum total;

    void AddRing(int plunge) { AddArc(plunge, 0, 359); }

    void AddArc(int plunge, int first, int last) {
        for (int trend = first; trend <= last; ++trend) {
            const int wrapped = (trend + 360) % 360;
            AddLine(plunge, wrapped);
            if (wrapped == 0) {
                AddLine(plunge, 360);
            }
        }
    }

    void AddLine(int plunge, int trend) {
        const ValueSum& here = values.At(plunge, trend);
        total.sum += here.sum;
        total.values += here.values;
    }
};

/// The valid appended numbers of the main rows of a plot.
LineValues ValuesOfRows(const Plot& plot) {
    LineValues values;
    const RowTable& table = plot.table;
    const std::int32_t last = plot.record.NumData;
    for (std::size_t place = 0; place < table.size(); ++place) {
        const std::int32_t index = table.index[place];
        if (index > last || IsErrorRow(table.plunge[place])
            || index >= plot.rows.number.RowCount()) {
            continue;
        }
        if (const float value = plot.rows.number(index); value != kInvalidNumber) {
            const int key = LineKey(table.plunge[place], table.trend[place]);
            values.Add(key / kRingTrends - 90, key % kRingTrends, static_cast<double>(value));
        }
    }
    return values;
}

/// Calls a function with column, row and values of each grid node over a plot that has any values.
template <class Visit>
void VisitNodes(const Plot& plot, int gridSize, Visit visit) {
    const LineValues values = ValuesOfRows(plot);
    const int step = GridStep(gridSize);
    const int nodes = GridNodes(gridSize);
    for (int column = 0; column < nodes; ++column) {
        for (int row = 0; row < nodes; ++row) {
            double plunge = 0;
            double trend = 0;
            UnprojectPoint(plot.record.PlotKind, NodePosition(column, step),
                           NodePosition(row, step), plunge, trend);
            const ValueSum here = ValuesWithin(values, plunge, trend, kGridCountCone);
            if (here.values > 0) {
                visit(column, row, here);
            }
        }
    }
}

/// Both layers of a plot with all nodes unset.
GridValues& UnsetGrid(Plot& plot) {
    if (plot.gridValues == nullptr) {
        plot.gridValues = std::make_unique<GridValues>();
    }
    for (auto& layer : *plot.gridValues) {
        for (auto& column : layer) {
            column.fill(kUnsetValue);
        }
    }
    return *plot.gridValues;
}

} // namespace

LineValues::LineValues()
    : sums_(std::make_unique<std::array<std::array<ValueSum, kRingTrends>, kRings>>()) {}

void LineValues::Add(int plunge, int trend, double value) {
    ValueSum& sum =
        (*sums_)[static_cast<std::size_t>(std::abs(plunge))][static_cast<std::size_t>(trend)];
    sum.sum += value;
    ++sum.values;
}

ValueSum ValuesWithin(const LineValues& values, double plunge, double trend, double cone) {
    ValueTotal total{values, {}};
    CountingCone(plunge, trend, cone).Scan(total);
    return total.total;
}

std::vector<double> NodeValuesOf(const Plot& plot, GridLayer layer, int gridSize) {
    std::vector<double> nodes;
    if (plot.record.HasAppendedNumeric != 0) {
        VisitNodes(plot, std::clamp(gridSize, kSmallestGridSize, kLargestGridSize),
                   [&](int /*column*/, int /*row*/, const ValueSum& here) {
                       nodes.push_back(layer == kMeanLayer ? here.sum / here.values : here.sum);
                   });
    }
    return nodes;
}

void ComputeGridValues(Plot& plot) {
    const PlotRecord& record = plot.record;
    if (record.ClassMode != kByNumbers || record.HasAppendedNumeric == 0) {
        plot.gridCount = 0;
        return;
    }
    GridValues& grid = UnsetGrid(plot);
    VisitNodes(plot, record.GridSize, [&grid](int column, int row, const ValueSum& here) {
        const auto i = static_cast<std::size_t>(column);
        const auto j = static_cast<std::size_t>(row);
        grid[kCumulativeLayer][i][j] = here.sum;
        grid[kMeanLayer][i][j] = here.sum / here.values;
    });
    plot.gridCount = kTrue;
}

} // namespace quandrel
