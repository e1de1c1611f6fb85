// SPDX-License-Identifier: MIT

#include "preferences/style_samples.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "density/contour_trace.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "rose/rose_furniture.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"
#include "stereo/great_circles.h"
#include "stereo/net.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quandrel {

namespace {

Plot SamplePlot(std::int16_t plotKind) {
    Plot plot;
    plot.record = NewPlotRecord();
    plot.record.PlotKind = plotKind;
    return plot;
}

/// A rose without scale and mean, whose petals fill their sectors.
Plot SampleRose() {
    Plot plot = SamplePlot(kRose);
    PlotRecord& record = plot.record;
    record.RoseDisplay6 = 0;
    record.RoseDisplay7 = 0;
    record.RoseSectorFraction = 100;
    record.RoseZeroCircle = 0;
    record.RoseSegShape = 0;
    return plot;
}

Drawing SampleOn(Surface& surface, const Styles& styles) {
    return {surface, surface, styles, DrawnFor::Sample};
}

void DrawEmptyNet(const PlotRecord& record, const Drawing& drawing) {
    drawing.plot.Clear(PlotBackground(drawing));
    DrawPlotBase(record, drawing);
}

/// Two hills on a grid of nodes over the net, 0 to 1 high.
constexpr int kHillNodes = 41;
constexpr double kNodeStep = 2 * kNetRadius / (kHillNodes - 1);

std::vector<double> HillNodes() {
    constexpr double kSpread = 0.2;
    constexpr std::array<Point, 2> kTops = {{{-0.32, 0.15}, {0.1, 0.42}}};
    constexpr std::array<double, 2> kHeights = {1.0, 0.55};
    std::vector<double> nodes;
    for (int column = 0; column < kHillNodes; ++column) {
        for (int row = 0; row < kHillNodes; ++row) {
            const double x = column * kNodeStep / kNetRadius - 1;
            const double y = row * kNodeStep / kNetRadius - 1;
            double height = 0;
            for (std::size_t i = 0; i < kTops.size(); ++i) {
                const double square = std::pow(x - kTops[i].x, 2) + std::pow(y - kTops[i].y, 2);
                height += kHeights[i] * std::exp(-square / kSpread);
            }
            nodes.push_back(height);
        }
    }
    return nodes;
}

void DrawContourSamples(Surface& surface, const Styles& styles) {
    const SavedState saved(surface);
    const std::vector<double> nodes = HillNodes();
    const NodeValues grid{nodes, kHillNodes, -kNetRadius, kNodeStep};
    for (int level = 0; level < kContourStyles; ++level) {
        const AxisStyle& style = styles.contours[static_cast<std::size_t>(level)];
        DrawState state = surface.State();
        state.drawStyle = style[kStyleLine];
        state.drawWidth = style[kStyleWidth];
        surface.SetState(state);
        for (const std::vector<Point>& line :
             ChainSegments(TraceContour(grid, 0.2 + 0.14 * level))) {
            surface.Polyline(line, TableColour(styles, style[kStyleColour]));
        }
    }
}

void DrawGirdleSamples(Surface& surface, const Styles& styles) {
    constexpr std::array<std::size_t, 2> kKinds = {kUserGirdleStyle, kCalculatedGirdleStyle};
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
        const AxisStyle& style = styles.axes[kKinds[i]];
        const double plunge = DegToRad(38.0 - 16.0 * static_cast<double>(i));
        DrawGreatCircleOfPole(surface, styles, kEqualArea, plunge, DegToRad(315.0),
                              style[kStyleColour], style[kStyleLine], style[kStyleWidth]);
    }
}

constexpr double kFrame = 2200; ///< plot units; size of a rose with its margins

/// The user scale that places the frame of one of several roses in a row of them.
UserScale ScaleOfRoseNumber(int number) {
    const double left = kPlotScale.left - number * kFrame;
    return {left, kPlotScale.top, left + kSampleRoses * kFrame, kPlotScale.bottom};
}

constexpr int kSimpleSectors = 9;
constexpr int kWindSectors = 12;
constexpr int kClassedSectors = 6;
constexpr int kSampleClasses = 12;

/// Adds a layer of petals with these lengths, which divide `turn` degrees equally.
void AddLayer(Plot& plot, RoseRadiiTable radii, double turn, int layer) {
    plot.record.RoseSectorSize = turn / radii.Sectors();
    RoseOf(plot).radii = std::move(radii);
    AddRoseWedges(plot, layer);
}

/// Lengths that increase and decrease once over the sectors, from `least` to `most`.
RoseRadiiTable Waves(int sectors, double least, double most) {
    RoseRadiiTable radii(sectors, 1);
    for (int sector = 1; sector <= sectors; ++sector) {
        const double wave = std::pow(std::sin(kPi * (sector - 0.5) / sectors), 2);
        radii(sector, 0) = least + (most - least) * wave;
    }
    return radii;
}

Plot SimpleRose() {
    Plot plot = SampleRose();
    AddLayer(plot, Waves(kSimpleSectors, 250, 1000), 180, 0);
    return plot;
}

Plot WindRose() {
    Plot plot = SampleRose();
    RoseOf(plot).isDirectional = true;
    constexpr std::array<double, 3> kLongest = {450, 750, 1000};
    for (int layer = 2; layer >= 0; --layer) {
        const double longest = kLongest[static_cast<std::size_t>(layer)];
        AddLayer(plot, Waves(kWindSectors, longest / 2, longest), 360, layer);
    }
    return plot;
}

Plot ClassedRose() {
    Plot plot = SampleRose();
    RoseRadiiTable radii(kClassedSectors, kSampleClasses);
    const RoseRadiiTable lengths = Waves(kClassedSectors, 500, 1000);
    for (int sector = 1; sector <= kClassedSectors; ++sector) {
        radii(sector, 0) = lengths(sector, 0);
        for (int c = 1; c <= kSampleClasses; ++c) {
            radii(sector, c) = lengths(sector, 0) / kSampleClasses;
        }
    }
    AddLayer(plot, std::move(radii), 180, 0);
    return plot;
}

} // namespace

void DrawNetSample(Surface& surface, Styles styles, std::int16_t axesStyle) {
    styles.plotAxesStyle = axesStyle;
    DrawEmptyNet(SamplePlot(kEqualArea).record, SampleOn(surface, styles));
}

void DrawRoseAxesSample(Surface& surface, Styles styles, std::int16_t axesStyle) {
    styles.roseAxesStyle = axesStyle;
    const Plot rose = SampleRose();
    DrawEmptyNet(rose.record, SampleOn(surface, styles));
    DrawRoseScale(rose, SampleOn(surface, styles));
}

void DrawLinesSample(Surface& surface, const Styles& styles) {
    PlotRecord record = SamplePlot(kEqualArea).record;
    DrawEmptyNet(record, SampleOn(surface, styles));
    DrawContourSamples(surface, styles);
    DrawGirdleSamples(surface, styles);
    record.AxisItems[kMeanItem][kItemShown] = true;
    record.AxisItems[kMeanItem][kItemTrend] = DegToRad(100.0);
    DrawPlotFurniture(record, SampleOn(surface, styles));
}

SampleWedges DrawRoseSamples(Surface& surface, Styles styles) {
    styles.showCompassPoints = false;
    const Drawing drawing = SampleOn(surface, styles);
    surface.Clear(PlotBackground(drawing));
    constexpr std::array<Plot (*)(), kSampleRoses> kRoses = {SimpleRose, WindRose, ClassedRose};
    SampleWedges drawn;
    for (int number = 0; number < kSampleRoses; ++number) {
        const auto place = static_cast<std::size_t>(number);
        const Plot rose = kRoses[place]();
        SetPlotDrawMode(drawing);
        surface.SetUserScale(ScaleOfRoseNumber(number));
        DrawRoseWedges(rose, drawing);
        DrawRoseScale(rose, drawing);
        drawn[place] = RoseOf(rose).wedges;
    }
    return drawn;
}

int StyleRowAt(const SampleWedges& wedges, double across, double down) {
    const int number = std::clamp(static_cast<int>(across * kSampleRoses), 0, kSampleRoses - 1);
    const UserScale scale = ScaleOfRoseNumber(number);
    const Point at{scale.left + across * (scale.right - scale.left),
                   scale.top + down * (scale.bottom - scale.top)};
    const RoseWedge* const wedge = WedgeAt(wedges[static_cast<std::size_t>(number)], at);
    if (wedge == nullptr) {
        return kRoseBackgroundStyle;
    }
    if (wedge->classNumber > 0) {
        return kFirstRoseClassStyle + (wedge->classNumber - 1) % kSampleClasses;
    }
    return wedge->layer == 0 ? kRoseStyle : kOverlaidRoseStyle - wedge->layer;
}

} // namespace quandrel
