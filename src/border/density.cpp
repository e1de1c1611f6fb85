// SPDX-License-Identifier: MIT

#include "quandrel/density.h"

#include "border/border.h"
#include "border/net_points.h"
#include "density/cone_counts.h"
#include "density/contour_levels.h"
#include "density/contours.h"
#include "density/grid_density.h"
#include "density/grid_geometry.h"
#include "orientation/attitude.h"
#include "orientation/projection.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace quandrel::api {

namespace {

/// A line at the nearest whole degrees.
DistinctLine WholeLine(const Line& line) {
    static_cast<void>(In(line)); // checks it
    const Attitude whole = RoundedAttitude({line.plunge, WithinTurn(line.trend)}, false);
    return {static_cast<std::int16_t>(whole.dip), static_cast<std::int16_t>(whole.azimuth), 1};
}

LineHistogram HistogramOf(std::span<const Line> lines) {
    if (lines.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        throw std::invalid_argument("too many lines to count");
    }
    std::vector<DistinctLine> whole(lines.size());
    std::ranges::transform(lines, whole.begin(), WholeLine);
    return LineHistogram(whole);
}

/// Checks a field, because a caller may have created or changed it.
void RequireWhole(const DensityField& field) {
    const auto side = static_cast<std::size_t>(std::max(field.nodes, 0));
    SameLength(field.counts.size(), side * side, "counts and nodes");
    if (!(Finite(field.step, "step") > 0) || !std::isfinite(field.first) || field.lines < 0) {
        throw std::invalid_argument("a density field has no grid");
    }
}

double DensityOf(std::int32_t count, std::int32_t lines) {
    return lines > 0 ? 100.0 * count / lines : 0;
}

Contour ContourAt(const NodeValues& counts, double level, std::int32_t lines) {
    Contour contour{level, {}};
    for (const std::vector<Point>& line : ChainSegments(ContourOfCounts(counts, level, lines))) {
        contour.lines.push_back(NetLineOf(line));
    }
    return contour;
}

} // namespace

DensityField DensityFieldOf(std::span<const Line> lines, Projection projection, int gridSize) {
    Within(gridSize, kSmallestGridSize, kLargestGridSize, "grid size");
    const LineHistogram rows = HistogramOf(lines);
    const int step = GridStep(gridSize);
    DensityField field;
    field.projection = projection;
    field.lines = static_cast<std::int32_t>(lines.size());
    field.nodes = GridNodes(gridSize);
    field.first = NodePosition(0, step) / kNetRadius;
    field.step = step / kNetRadius;
    const auto side = static_cast<std::size_t>(field.nodes);
    field.counts.resize(side * side);
    for (int column = 0; column < field.nodes; ++column) {
        CountGridColumn(
            rows, KindOf(projection), gridSize, column,
            std::span(field.counts).subspan(static_cast<std::size_t>(column) * side, side));
    }
    return field;
}

double GreatestDensity(const DensityField& field) {
    return field.counts.empty() ? 0
                                : DensityOf(*std::ranges::max_element(field.counts), field.lines);
}

void CountAbout(std::span<const Line> lines, std::span<const Line> axes, double halfAngle,
                std::span<std::int32_t> counts) {
    SameLength(axes.size(), counts.size(), "axes and counts");
    if (!(halfAngle > 0 && halfAngle < 45)) {
        throw std::invalid_argument(
            "the half-angle of a counting cone is not above 0 and below 45");
    }
    const LineHistogram rows = HistogramOf(lines);
    std::ranges::transform(axes, counts.begin(), [&rows, halfAngle](const Line& axis) {
        const RadianLine in = In(axis);
        return CountWithin(rows, in.plunge, in.trend, DegToRad(halfAngle));
    });
}

std::vector<double> UsualLevels(const DensityField& field) {
    const ContourLevelSet set = ContourLevelsOf(field.lines, GreatestDensity(field));
    return {set.levels.begin(), set.levels.begin() + set.count};
}

std::vector<Contour> ContoursOf(const DensityField& field, std::span<const double> levels) {
    RequireWhole(field);
    const std::vector<double> counts(field.counts.begin(), field.counts.end());
    const NodeValues nodes = {counts, field.nodes, field.first * kNetRadius,
                              field.step * kNetRadius};
    std::vector<Contour> contours;
    for (const double level : levels) {
        if (!(Finite(level, "level") > 0)) {
            throw std::invalid_argument("a contour level is not above 0");
        }
        contours.push_back(ContourAt(nodes, level, field.lines));
    }
    return contours;
}

} // namespace quandrel::api
