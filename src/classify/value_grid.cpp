// SPDX-License-Identifier: MIT

#include "classify/value_grid.h"

#include "classify/classification.h"
#include "core/class_stats.h"
#include "core/plot_store.h"
#include "core/told_step.h"
#include "density/contours.h"
#include "density/grid_geometry.h"
#include "orientation/projection.h"
#include "stereo/symbols.h"
#include "stereo/window_drawing.h"

#include <limits>

namespace quandrel {

namespace {

constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();

/// The grid layer that a plot shows; nullptr without grids of values.
const GridValues::value_type* LayerShown(const Plot& plot) {
    const PlotRecord& record = plot.record;
    if (record.ClassMode != kClassesByNumber || plot.gridCount == 0 || !plot.gridValues
        || record.GridSize < kSmallestGridSize || record.GridSize > kLargestGridSize) {
        return nullptr;
    }
    const GridLayer layer =
        GridValueShown(record) == ClassGridValue::Mean ? kMeanLayer : kCumulativeLayer;
    return &(*plot.gridValues)[layer];
}

/// The values of the nodes; nodes without rows have the background value.
std::vector<double> NodesOf(const PlotRecord& record, const GridValues::value_type& layer,
                            int nodes) {
    const double background = GridBackground(record).value_or(kNoValue);
    const auto side = static_cast<std::size_t>(nodes);
    std::vector<double> values;
    values.reserve(side * side);
    for (std::size_t i = 0; i < side; ++i) {
        for (std::size_t j = 0; j < side; ++j) {
            values.push_back(layer[i][j] == kUnsetValue ? background : layer[i][j]);
        }
    }
    return values;
}

/// The lower limit of a class from 2 on.
double LowerLimitOf(const ClassRule& rule, int classNumber) {
    return classNumber == rule.base + 2 ? rule.top
                                        : rule.limits.at(static_cast<std::size_t>(classNumber - 2));
}

/// Positions of the nodes of each class.
std::vector<std::vector<Point>> NodesOfClasses(const GridValues::value_type& layer,
                                               const ClassRule& rule, int gridSize) {
    const int nodes = GridNodes(gridSize);
    const int step = GridStep(gridSize);
    std::vector<std::vector<Point>> places(static_cast<std::size_t>(LastClass(rule)) + 1);
    for (int column = 0; column < nodes; ++column) {
        const double x = NodePosition(column, step);
        for (int row = 0; row < nodes; ++row) {
            const double y = NodePosition(row, step);
            const double value =
                layer[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)];
            if (value != kUnsetValue && x * x + y * y <= kNetRadius * kNetRadius) {
                const int classNumber = ClassOfNumber(rule, value);
                places[static_cast<std::size_t>(classNumber)].push_back({x, y});
            }
        }
    }
    return places;
}

/// PlacesOf for a plot; empty without grids of values.
std::vector<std::vector<Point>> PlacesShown(const Plot& plot) {
    const GridValues::value_type* const layer = LayerShown(plot);
    if (layer == nullptr) {
        return {};
    }
    return NodesOfClasses(*layer, RuleOfClassTable(plot.record.ClassTable, kNumberClasses),
                          plot.record.GridSize);
}

} // namespace

void DrawValueGrid(const Plot& plot, const Drawing& drawing) {
    const auto places = PlacesShown(plot);
    for (std::size_t c = 1; c < places.size(); ++c) {
        if (!places[c].empty()) {
            DrawSymbols(drawing.plot, drawing.styles, places[c],
                        CodeOfClass(drawing.styles, static_cast<int>(c)));
        }
    }
}

std::vector<bool> ClassesOfValueNodes(const Plot& plot) {
    std::vector<bool> classes;
    for (const std::vector<Point>& nodes : PlacesShown(plot)) {
        classes.push_back(!classes.empty() && !nodes.empty());
    }
    return classes;
}

std::vector<ValueContour> ValueContoursOf(const Plot& plot, StatusLine* watcher) {
    std::vector<ValueContour> contours;
    const GridValues::value_type* const layer = LayerShown(plot);
    if (layer == nullptr) {
        return contours;
    }
    const PlotRecord& record = plot.record;
    const ClassRule rule = RuleOfClassTable(record.ClassTable, kNumberClasses);
    const int nodes = GridNodes(record.GridSize);
    const int step = GridStep(record.GridSize);
    const std::vector<double> values = NodesOf(record, *layer, nodes);
    const NodeValues grid = {values, nodes, static_cast<double>(NodePosition(0, step)),
                             static_cast<double>(step)};
    ToldStep told(" Please wait - calculating contours", LastClass(rule), watcher);
    for (int c = 2; c <= LastClass(rule); ++c) {
        told.Reach(c);
        const double limit = LowerLimitOf(rule, c);
        contours.push_back({c, limit, TraceContour(grid, limit)});
    }
    return contours;
}

std::vector<bool> ClassesOfValueContours(const Plot& plot) {
    std::vector<bool> classes;
    for (const ValueContour& contour : ValueContoursOf(plot)) {
        classes.resize(static_cast<std::size_t>(contour.classNumber) + 1);
        classes.back() = !contour.segments.empty();
    }
    return classes;
}

void DrawValueContours(const Plot& plot, const Drawing& drawing) {
    const SavedState saved(drawing.plot);
    for (const ValueContour& contour : ValueContoursOf(plot, drawing.watcher)) {
        const SymbolCode code = CodeOfClass(drawing.styles, contour.classNumber);
        DrawContourLine(drawing, contour.segments,
                        {static_cast<std::int16_t>(CodeColour(code)), kSolidLine, 1});
    }
}

void TraceContoursClassified() {
    DrawValueContours(ActivePlot(), WindowDrawing(gActivePlot));
}

} // namespace quandrel
