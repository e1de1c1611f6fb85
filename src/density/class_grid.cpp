// SPDX-License-Identifier: MIT

#include "density/class_grid.h"

#include "density/axis_cells.h"
#include "density/cone_counts.h"
#include "density/grid_geometry.h"
#include "orientation/projection.h"
#include "platform/platform.h"

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

/// Calls a function with plunge, trend and valid appended number of each main row of a plot that
/// has one.
template <class Visit>
void VisitValues(const Plot& plot, const Visit& visit) {
    const RowTable& table = plot.table;
    const std::int32_t last = plot.record.NumData;
    for (std::size_t place = 0; place < table.size(); ++place) {
        const std::int32_t index = table.index[place];
        if (index > last || IsErrorRow(table.plunge[place])
            || index >= plot.rows.number.RowCount()) {
            continue;
        }
        if (const float value = plot.rows.number(index); value != kInvalidNumber) {
            visit(table.plunge[place], table.trend[place], static_cast<double>(value));
        }
    }
}

/// The values of a plot by whole-degree lines.
LineValues ValuesOfRows(const Plot& plot) {
    LineValues values;
    VisitValues(plot, [&values](double plunge, double trend, double value) {
        const int key = LineKey(plunge, trend);
        values.Add(key / kRingTrends - 90, key % kRingTrends, value);
    });
    return values;
}

/// The measured lines of the main rows of a plot that have valid appended numbers.
class MeasuredValues {
public:
    explicit MeasuredValues(const Plot& plot)
        : axes_(Gather(plot, values_), ThreadsToUse()) {}

    [[nodiscard]] ValueSum Within(double plunge, double trend) const {
        ValueSum total;
        axes_.VisitWithin({plunge, WrappedAngle(trend)}, kGridCountCone, [&](std::int32_t number) {
            total.sum += values_[static_cast<std::size_t>(number)];
            ++total.values;
        });
        return total;
    }

private:
    static std::vector<MeasuredLine> Gather(const Plot& plot, std::vector<double>& values) {
        std::vector<MeasuredLine> lines;
        VisitValues(plot, [&](double plunge, double trend, double value) {
            lines.push_back({plunge, trend});
            values.push_back(value);
        });
        return lines;
    }

    std::vector<double> values_;
    AxisCells axes_;
};

/// Calls a function with column, row and values of each grid node that has any.
///
/// @param valuesAt  gives the values about a line
template <class ValuesAt, class Visit>
void VisitNodes(int plotKind, int gridSize, const ValuesAt& valuesAt, const Visit& visit) {
    const int step = GridStep(gridSize);
    const int nodes = GridNodes(gridSize);
    for (int column = 0; column < nodes; ++column) {
        for (int row = 0; row < nodes; ++row) {
            double plunge = 0;
            double trend = 0;
            UnprojectPoint(plotKind, NodePosition(column, step), NodePosition(row, step), plunge,
                           trend);
            const ValueSum here = valuesAt(plunge, trend);
            if (here.values > 0) {
                visit(column, row, here);
            }
        }
    }
}

/// The same with the values of the main rows of a plot.
template <class Visit>
void VisitNodesOf(const Plot& plot, int gridSize, const Visit& visit) {
    if (ShowsDecimals(plot)) {
        const MeasuredValues values(plot);
        VisitNodes(
            plot.record.PlotKind, gridSize,
            [&](double plunge, double trend) { return values.Within(plunge, trend); }, visit);
        return;
    }
    const LineValues values = ValuesOfRows(plot);
    VisitNodes(
        plot.record.PlotKind, gridSize,
        [&](double plunge, double trend) {
            return ValuesWithin(values, plunge, trend, kGridCountCone);
        },
        visit);
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
        VisitNodesOf(plot, std::clamp(gridSize, kSmallestGridSize, kLargestGridSize),
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
    VisitNodesOf(plot, record.GridSize, [&grid](int column, int row, const ValueSum& here) {
        const auto i = static_cast<std::size_t>(column);
        const auto j = static_cast<std::size_t>(row);
        grid[kCumulativeLayer][i][j] = here.sum;
        grid[kMeanLayer][i][j] = here.sum / here.values;
    });
    plot.gridCount = kTrue;
}

} // namespace quandrel
