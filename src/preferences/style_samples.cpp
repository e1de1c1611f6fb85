// SPDX-License-Identifier: MIT

#include "preferences/style_samples.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "core/style_tables.h"
#include "density/contour_trace.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "rose/rose_furniture.h"
#include "rose/rose_tables.h"
#include "stereo/draw_target.h"
#include "stereo/great_circles.h"
#include "stereo/net.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quandrel {

namespace {

/// The place of the store that is never a plot serves as the plot of a sample.
class SamplePlot {
public:
    SamplePlot(Surface& surface, std::int16_t plotKind)
        : work_(0)
        , elsewhere_(surface, surface, DrawnFor::Sample)
        , former_(std::exchange(gPlots.at(0), NewPlotRecord())) {
        gPlots[0].PlotKind = plotKind;
    }

    ~SamplePlot() { gPlots[0] = std::move(former_); }

    SamplePlot(const SamplePlot&) = delete;
    SamplePlot& operator=(const SamplePlot&) = delete;

private:
    PlotInWork work_;
    DrawElsewhere elsewhere_;
    PlotRecord former_;
};

/// Another value for the length of a block.
template <class T>
class SampleValue {
public:
    SampleValue(T& place, T value)
        : place_(place)
        , former_(std::exchange(place, std::move(value))) {}

    ~SampleValue() { place_ = std::move(former_); }

    SampleValue(const SampleValue&) = delete;
    SampleValue& operator=(const SampleValue&) = delete;

private:
    T& place_;
    T former_;
};

void DrawEmptyNet(Surface& surface) {
    surface.Clear(PlotBackground(DrawingInForce()));
    DrawPlotBase();
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

void DrawContourSamples(Surface& surface) {
    const SavedState saved(surface);
    const std::vector<double> nodes = HillNodes();
    const NodeValues grid{nodes, kHillNodes, -kNetRadius, kNodeStep};
    for (int level = 0; level < kContourStyles; ++level) {
        const AxisStyle& style = gSettings.styles.contours[static_cast<std::size_t>(level)];
        DrawState state = surface.State();
        state.drawStyle = style[1];
        state.drawWidth = style[2];
        surface.SetState(state);
        for (const std::vector<Point>& line :
             ChainSegments(TraceContour(grid, 0.2 + 0.14 * level))) {
            surface.Polyline(line, TableColour(style[0]));
        }
    }
}

void DrawGirdleSamples(Surface& surface) {
    constexpr std::array<std::size_t, 2> kKinds = {kUserGirdleStyle, kCalculatedGirdleStyle};
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
        const AxisStyle& style = gAxisStyleTable[kKinds[i]];
        const double plunge = DegToRad(38.0 - 16.0 * static_cast<double>(i));
        DrawGreatCircleOfPole(surface, gSettings.styles, kEqualArea, plunge, DegToRad(315.0),
                              style[0], style[1], style[2]);
    }
}

constexpr double kFrame = 2200; ///< plot units of a rose with its margins

/// The user scale that puts the frame of one of several roses at its place in a row of them.
UserScale ScaleOfRoseNumber(int number) {
    const double left = kPlotScale.left - number * kFrame;
    return {left, kPlotScale.top, left + kSampleRoses * kFrame, kPlotScale.bottom};
}

constexpr int kSimpleSectors = 9;
constexpr int kWindSectors = 12;
constexpr int kClassedSectors = 6;
constexpr int kSampleClasses = 12;

/// Draws the wedges of gRoseRadii as a layer of a rose and gives them.
void DrawSampleLayer(int sectors, double turn, int layer) {
    gPlots[0].RoseSectorSize = turn / sectors;
    DrawRoseWedges(0, layer);
}

/// Lengths that rise and fall once over the sectors, from `least` to `most`.
RoseRadiiTable Waves(int sectors, double least, double most) {
    RoseRadiiTable radii(sectors, 1);
    for (int sector = 1; sector <= sectors; ++sector) {
        const double wave = std::pow(std::sin(kPi * (sector - 0.5) / sectors), 2);
        radii(sector, 0) = least + (most - least) * wave;
    }
    return radii;
}

void DrawSimpleRose() {
    gRoseDirectional = false;
    gRoseRadii = Waves(kSimpleSectors, 250, 1000);
    DrawSampleLayer(kSimpleSectors, 180, 0);
}

void DrawWindRose() {
    gRoseDirectional = true;
    constexpr std::array<double, 3> kLongest = {450, 750, 1000};
    for (int layer = 2; layer >= 0; --layer) {
        const double longest = kLongest[static_cast<std::size_t>(layer)];
        gRoseRadii = Waves(kWindSectors, longest / 2, longest);
        DrawSampleLayer(kWindSectors, 360, layer);
    }
}

void DrawClassedRose() {
    gRoseDirectional = false;
    gRoseRadii = RoseRadiiTable(kClassedSectors, kSampleClasses);
    const RoseRadiiTable lengths = Waves(kClassedSectors, 500, 1000);
    for (int sector = 1; sector <= kClassedSectors; ++sector) {
        gRoseRadii(sector, 0) = lengths(sector, 0);
        for (int c = 1; c <= kSampleClasses; ++c) {
            gRoseRadii(sector, c) = lengths(sector, 0) / kSampleClasses;
        }
    }
    DrawSampleLayer(kClassedSectors, 180, 0);
}

} // namespace

void DrawNetSample(Surface& surface, std::int16_t axesStyle) {
    const SampleValue style(gPlotAxesStyle, axesStyle);
    const SamplePlot plot(surface, kEqualArea);
    DrawEmptyNet(surface);
}

void DrawRoseAxesSample(Surface& surface, std::int16_t axesStyle) {
    const SampleValue style(gRoseAxesStyle, axesStyle);
    const SamplePlot plot(surface, kRose);
    gPlots[0].RoseDisplay6 = 0;
    gPlots[0].RoseDisplay7 = 0;
    DrawEmptyNet(surface);
    DrawRoseScale();
}

void DrawLinesSample(Surface& surface) {
    const SamplePlot plot(surface, kEqualArea);
    DrawEmptyNet(surface);
    DrawContourSamples(surface);
    DrawGirdleSamples(surface);
    gPlots[0].AxisItems[kMeanItem][kItemShown] = true;
    gPlots[0].AxisItems[kMeanItem][kItemTrend] = DegToRad(100.0);
    DrawPlotFurniture();
}

SampleWedges DrawRoseSamples(Surface& surface) {
    const SampleValue compass(gSettings.styles.showCompassPoints, false);
    const SamplePlot plot(surface, kRose);
    PlotRose& rose = ActiveRose();
    rose = {};
    PlotRecord& record = gPlots[0];
    record.RoseDisplay6 = 0;
    record.RoseDisplay7 = 0;
    record.RoseSectorFraction = 100;
    record.RoseZeroCircle = 0;
    record.RoseSegShape = 0;
    surface.Clear(PlotBackground(DrawingInForce()));
    constexpr std::array<void (*)(), kSampleRoses> kRoses = {DrawSimpleRose, DrawWindRose,
                                                             DrawClassedRose};
    SampleWedges drawn;
    for (int number = 0; number < kSampleRoses; ++number) {
        SetPlotDrawMode();
        surface.SetUserScale(ScaleOfRoseNumber(number));
        rose.wedges.clear();
        kRoses[static_cast<std::size_t>(number)]();
        DrawRoseScale();
        drawn[static_cast<std::size_t>(number)] = rose.wedges;
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
