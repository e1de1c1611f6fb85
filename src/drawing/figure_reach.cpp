// SPDX-License-Identifier: MIT

#include "drawing/figure_reach.h"

#include "drawing/figure_text_rule.h"
#include "rose/figure_rose_fills.h"
#include "rose/figure_rose_rim.h"
#include "stereo/net.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr double kNorthGap = 0.008; ///< as DrawPlotBase leaves above the longest tick
constexpr double kArrowReach = 1.1;
constexpr double kPlotReach = 1.1; ///< of kPlotScale

FigureReach Around(double share) {
    return {{share, 0}, {share, 0}, {share, 0}, {share, 0}};
}

FigureReach ReachOfNet(const Plot& plot, const Drawing& drawing) {
    const FigureStyle& figure = FigureOf(drawing);
    const NetStyle& net = figure.net;
    if (net.rimWidth == 0) {
        return Around(kPlotReach);
    }
    double around = 1 + std::max(net.tickLength, net.quadrantLength);
    if (IsMeanArrowShown(plot.record)) {
        around = std::max(around, kArrowReach);
    }
    FigureReach reach = Around(around);
    if (net.showNorth) {
        const double points = std::max(net.northSize, figure.text.leastSize);
        reach.top.share += kNorthGap;
        reach.top.millimetres =
            TextRule(drawing.legend, {figure.text.families, points, true}).Height();
    }
    return reach;
}

/// Widens a side to a distance that has both parts.
void Widen(ReachOfSide& side, double share, double millimetres) {
    side.share = std::max(side.share, share);
    side.millimetres = std::max(side.millimetres, millimetres);
}

FigureReach ReachOfRose(const Plot& plot, const Drawing& drawing) {
    const FigureStyle& figure = FigureOf(drawing);
    const double radius = ReachOfRim(figure);
    FigureReach reach;
    for (const RimLabel& label : LabelsOfRim(figure.roses, plot.record.RoseShape)) {
        const TextRule rule(drawing.legend, FontOfRimLabel(drawing, label));
        const double width = rule.Width(label.text);
        const double height = rule.Height();
        const double x = std::sin(label.azimuth);
        const double y = std::cos(label.azimuth);
        Widen(reach.left, -radius * x, (1 - x) / 2 * width);
        Widen(reach.right, radius * x, (1 + x) / 2 * width);
        Widen(reach.top, radius * y, (1 + y) / 2 * height);
        Widen(reach.bottom, -radius * y, (1 - y) / 2 * height);
    }
    return reach;
}

} // namespace

FigureReach ReachOfFigure(const Plot& plot, const Drawing& drawing) {
    if (plot.record.PlotKind != kRose) {
        return ReachOfNet(plot, drawing);
    }
    return HasFigureRoses(drawing) ? ReachOfRose(plot, drawing) : Around(kPlotReach);
}

} // namespace quandrel
