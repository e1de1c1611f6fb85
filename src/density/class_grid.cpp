// SPDX-License-Identifier: MIT

#include "density/class_grid.h"

#include "core/grid_slider.h"
#include "core/plot_store.h"
#include "density/cone_counts.h"
#include "density/grid_geometry.h"
#include "orientation/projection.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr std::int16_t kByNumbers = 1;

/// Adds up line by line: differences of running totals would leave a rest of rounding where there
/// is nothing.
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

/// The valid appended numbers of the main rows of gActivePlot.
LineValues ValuesOfActivePlot() {
    LineValues values;
    const RowTable& table = TableOf(gActivePlot);
    const std::int32_t last = ActiveRecord().NumData;
    for (std::size_t place = 0; place < table.size(); ++place) {
        const std::int32_t index = table.index[place];
        if (index > last || IsErrorRow(table.plunge[place])
            || index >= gAppNumeric.RowCount(gActivePlot)) {
            continue;
        }
        if (const float value = gAppNumeric(gActivePlot, index); value != kInvalidNumber) {
            const int key = LineKey(table.plunge[place], table.trend[place]);
            values.Add(key / kRingTrends - 90, key % kRingTrends, static_cast<double>(value));
        }
    }
    return values;
}

/// Calls with the column, the row and the values of each node of the grid of gActivePlot that has
/// any.
template <class Visit>
void VisitNodes(int gridSize, Visit visit) {
    const LineValues values = ValuesOfActivePlot();
    const int step = GridStep(gridSize);
    const int nodes = GridNodes(gridSize);
    for (int column = 0; column < nodes; ++column) {
        for (int row = 0; row < nodes; ++row) {
            double plunge = 0;
            double trend = 0;
            UnprojectPoint(ActiveRecord().PlotKind, NodePosition(column, step),
                           NodePosition(row, step), plunge, trend);
            const ValueSum here = ValuesWithin(values, plunge, trend, kGridCountCone);
            if (here.values > 0) {
                visit(column, row, here);
            }
        }
    }
}

/// Both layers of a slot with no node set.
GridValues& UnsetGrid(std::size_t slot) {
    if (gGridValues[slot] == nullptr) {
        gGridValues[slot] = std::make_unique<GridValues>();
    }
    for (auto& layer : *gGridValues[slot]) {
        for (auto& column : layer) {
            column.fill(kUnsetValue);
        }
    }
    return *gGridValues[slot];
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

std::vector<double> NodeValuesOfActivePlot(GridLayer layer) {
    const int gridSize = std::clamp(gGridDensitySlider, kSmallestGridSize, kLargestGridSize);
    std::vector<double> nodes;
    if (ActiveRecord().HasAppendedNumeric != 0) {
        VisitNodes(gridSize, [&](int /*column*/, int /*row*/, const ValueSum& here) {
            nodes.push_back(layer == kMeanLayer ? here.sum / here.values : here.sum);
        });
    }
    return nodes;
}

void ComputeGridValues() {
    const PlotRecord& record = ActiveRecord();
    const auto slot = static_cast<std::size_t>(gActivePlot);
    if (record.ClassMode != kByNumbers || record.HasAppendedNumeric == 0) {
        gGridCount[slot] = 0;
        return;
    }
    GridValues& grid = UnsetGrid(slot);
    VisitNodes(record.GridSize, [&grid](int column, int row, const ValueSum& here) {
        const auto i = static_cast<std::size_t>(column);
        const auto j = static_cast<std::size_t>(row);
        grid[kCumulativeLayer][i][j] = here.sum;
        grid[kMeanLayer][i][j] = here.sum / here.values;
    });
    gGridCount[slot] = kTrue;
}

} // namespace quandrel
