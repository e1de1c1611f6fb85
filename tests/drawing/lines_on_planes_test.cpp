// SPDX-License-Identifier: MIT
//
// Lines that are worked out to lie in planes are drawn on the great circles of these planes.

#include "derive/measured_line.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "stereo/row_drawing.h"
#include "support/slotless_plots.h"
#include "support/test_platform.h"

#include <cmath>
#include <memory>
#include <random>

namespace quandrel {
namespace {

constexpr double kNear = 2e-4 * kNetRadius;
constexpr int kChunks = 500;
constexpr std::int32_t kRowsOfChunk = 200;

class LinesOnPlanesTest : public EngineTest {};

/// Appends a measured row, a main one or one of an overlay.
void AppendMeasured(Plot& plot, int overlay, const Attitude& measured) {
    RowValues values;
    values.isData = true;
    values.dip = static_cast<std::int32_t>(std::lround(measured.dip));
    values.azimuth = static_cast<std::int32_t>(std::lround(measured.azimuth)) % 360;
    values.measured[static_cast<std::size_t>(RowAngles::Primary)] = measured;
    values.code = CodeOfStyleRow(gSettings.styles, kRowSymbol);
    values.place = PlottedOrientation(plot.record.PlotKind, IsPlottedAsPole(plot.record, overlay),
                                      0, measured);
    ASSERT_TRUE(AppendRow(plot, overlay, values));
}

/// A line in a plane, by the angle along it from its strike.
Attitude LineInPlane(const Attitude& plane, double pitch) {
    const double dip = DegToRad(plane.dip);
    const double azimuth = DegToRad(plane.azimuth);
    // The unit vectors of the strike and of the line of dip span the plane.
    const double c = std::cos(pitch);
    const double s = std::sin(pitch);
    const double north = c * std::sin(azimuth) + s * std::cos(dip) * std::cos(azimuth);
    const double east = -c * std::cos(azimuth) + s * std::cos(dip) * std::sin(azimuth);
    const double down = s * std::sin(dip);
    return MeasuredLine(std::asin(down), WrappedAngle(std::atan2(east, north)));
}

double DistanceTo(const std::vector<Point>& line, Point at) {
    double least = 1e9;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const Point a = line[i - 1];
        const Point step{line[i].x - a.x, line[i].y - a.y};
        const double square = step.x * step.x + step.y * step.y;
        const double along = ((at.x - a.x) * step.x + (at.y - a.y) * step.y) / square;
        const double part = square > 0 ? std::clamp(along, 0.0, 1.0) : 0;
        least = std::min(least, std::hypot(at.x - a.x - part * step.x, at.y - a.y - part * step.y));
    }
    return least;
}

/// The greatest distance of the symbol of a line from the circle of its plane.
double GreatestDistance(const Plot& plot, const std::shared_ptr<const FigureStyle>& style) {
    double greatest = 0;
    for (std::int32_t row = 1; row <= plot.record.NumData; ++row) {
        RecordingSurface net(500, 500);
        Drawing drawing{net, net, gSettings.styles, DrawnFor::Paper};
        drawing.figure = style;
        DrawRowGreatCircles(plot, drawing, {row, row});
        DrawRowSymbols(plot, drawing,
                       RowRange{row + plot.record.NumData, row + plot.record.NumData});
        const DrawOperation& circle = net.Operations().front();
        const DrawOperation& symbol = net.Operations().back();
        EXPECT_EQ(symbol.kind, DrawOperation::Kind::Markers);
        greatest = std::max(greatest, DistanceTo(circle.points, symbol.points.at(0)));
    }
    return greatest;
}

TEST_F(LinesOnPlanesTest, AHundredThousandSlipLinesLieOnTheirPlanes) {
    constexpr unsigned kSeed = 20240611;
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<double> dip(0.5, 89.5);
    std::uniform_real_distribution<double> azimuth(0, 359.9);
    std::uniform_real_distribution<double> pitch(0.01, kPi - 0.01);
    const auto style = std::make_shared<const FigureStyle>(*StandardStyle(kJournalStyle));
    for (int chunk = 0; chunk < kChunks; ++chunk) {
        Plot plot;
        plot.record = NewPlotRecord();
        plot.record.PlotKind = chunk % 2 == 0 ? kEqualArea : kEqualAngle;
        plot.record.PrimaryFormat = kPrimaryPlane;
        plot.record.DataKind = kPlanes;
        plot.record.UseDecimals = kTrue;
        std::vector<Attitude> planes;
        for (std::int32_t row = 0; row < kRowsOfChunk; ++row) {
            constexpr double kTenths = 10; // as compasses are read with decimals
            planes.push_back({std::round(dip(random) * kTenths) / kTenths,
                              std::round(azimuth(random) * kTenths) / kTenths});
            AppendMeasured(plot, 0, planes.back());
        }
        const int overlay = OpenOverlay(plot.record, kOverlayLines);
        for (const Attitude& plane : planes) {
            AppendMeasured(plot, overlay, LineInPlane(plane, pitch(random)));
        }
        ASSERT_LT(GreatestDistance(plot, style), kNear) << "seed " << kSeed << ", " << chunk;
    }
}

} // namespace
} // namespace quandrel
