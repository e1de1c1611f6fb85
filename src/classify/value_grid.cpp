// SPDX-License-Identifier: MIT

#include "classify/value_grid.h"

#include "classify/classification.h"
#include "core/class_stats.h"
#include "core/plot_store.h"
#include "density/contours.h"
#include "density/grid_geometry.h"
#include "density/told_step.h"
#include "orientation/projection.h"
#include "stereo/draw_target.h"
#include "stereo/symbols.h"

#include <limits>

namespace quandrel {

namespace {

constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();

/// The grid layer that the active plot shows; nullptr without grids of values.
const GridValues::value_type* LayerShown() {
    const PlotRecord& record = ActiveRecord();
    const auto slot = static_cast<std::size_t>(gActivePlot);
    if (record.ClassMode != kClassesByNumber || gGridCount[slot] == 0 || !gGridValues[slot]
        || record.GridSize < kSmallestGridSize || record.GridSize > kLargestGridSize) {
        return nullptr;
    }
    const GridLayer layer =
        GridValueShown(record) == ClassGridValue::Mean ? kMeanLayer : kCumulativeLayer;
    return &(*gGridValues[slot])[layer];
}

/// The values of the nodes; nodes without rows have the background value.
std::vector<double> NodesOf(const GridValues::value_type& layer, int nodes) {
    const double background = GridBackground(ActiveRecord()).value_or(kNoValue);
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

/// PlacesOf for the active plot; empty without grids of values.
std::vector<std::vector<Point>> PlacesShown() {
    const GridValues::value_type* const layer = LayerShown();
    if (layer == nullptr) {
        return {};
    }
    const PlotRecord& record = ActiveRecord();
    return NodesOfClasses(*layer, RuleOfClassTable(record.ClassTable, kNumberClasses),
                          record.GridSize);
}

} // namespace

void DrawValueGrid() {
    const auto places = PlacesShown();
    for (std::size_t c = 1; c < places.size(); ++c) {
        if (!places[c].empty()) {
            DrawSymbols(PlotSurface(), places[c], CodeOfClass(static_cast<int>(c)));
        }
    }
}

std::vector<bool> ClassesOfValueNodes() {
    const auto places = PlacesShown();
    std::vector<bool> classes;
    for (const std::vector<Point>& nodes : places) {
        classes.push_back(!classes.empty() && !nodes.empty());
    }
    return classes;
}

std::vector<ValueContour> ValueContoursOfActivePlot() {
    std::vector<ValueContour> contours;
    const GridValues::value_type* const layer = LayerShown();
    if (layer == nullptr) {
        return contours;
    }
    const PlotRecord& record = ActiveRecord();
    const ClassRule rule = RuleOfClassTable(record.ClassTable, kNumberClasses);
    const int nodes = GridNodes(record.GridSize);
    const int step = GridStep(record.GridSize);
    const std::vector<double> values = NodesOf(*layer, nodes);
    const NodeValues grid = {values, nodes, static_cast<double>(NodePosition(0, step)),
                             static_cast<double>(step)};
    ToldStep told(" Please wait - calculating contours", LastClass(rule));
    for (int c = 2; c <= LastClass(rule); ++c) {
        told.Reach(c);
        const double limit = LowerLimitOf(rule, c);
        contours.push_back({c, limit, TraceContour(grid, limit)});
    }
    return contours;
}

std::vector<bool> ClassesOfValueContours() {
    std::vector<bool> classes;
    for (const ValueContour& contour : ValueContoursOfActivePlot()) {
        classes.resize(static_cast<std::size_t>(contour.classNumber) + 1);
        classes.back() = !contour.segments.empty();
    }
    return classes;
}

void TraceContoursClassified() {
    Surface& surface = PlotSurface();
    const SavedState saved(surface);
    for (const ValueContour& contour : ValueContoursOfActivePlot()) {
        const auto colour = static_cast<std::int16_t>(CodeColour(CodeOfClass(contour.classNumber)));
        DrawContourLine(surface, contour.segments, {colour, kSolidLine, 1});
    }
}

} // namespace quandrel
