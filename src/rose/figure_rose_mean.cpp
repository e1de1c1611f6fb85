// SPDX-License-Identifier: MIT

#include "rose/figure_rose_mean.h"

#include "orientation/angles.h"
#include "orientation/projection.h"
#include "rose/circular_reference.h"
#include "rose/rose_furniture.h"
#include "rose/rose_radii.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "rose/wedge_shapes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace quandrel {

namespace {

constexpr double kSignificance = 0.05;
constexpr double kHeadLength = 70; ///< of the arrow, from the rim inward
constexpr double kHeadHalfWidth = 22;
constexpr double kArcOfLine = 2.5; ///< width of the arc, in widths of the line

Point AtAzimuth(double radius, double azimuth, double across = 0) {
    return {radius * std::sin(azimuth) + across * std::cos(azimuth),
            radius * std::cos(azimuth) - across * std::sin(azimuth)};
}

/// The mean resultant length of azimuths, of axes that of their doubles.
double LengthOf(std::span<const double> azimuths, bool areDirected) {
    const double factor = areDirected ? 1 : 2;
    double sine = 0;
    double cosine = 0;
    for (const double azimuth : azimuths) {
        sine += std::sin(factor * azimuth);
        cosine += std::cos(factor * azimuth);
    }
    return std::min(std::hypot(sine, cosine) / static_cast<double>(azimuths.size()), 1.0);
}

/// Makes shapes of the colour of a line, without an outline, the state of a surface.
void UseShapes(Surface& surface, const LineLook& look) {
    DrawState state = look.state;
    state.drawStyle = kNoLine;
    state.fillStyle = kSolidFill;
    state.fillColour = look.colour;
    surface.SetState(state);
}

/// A filled head whose tip is on the rim.
void DrawHead(Surface& surface, const LineLook& look, double azimuth) {
    UseShapes(surface, look);
    const double base = kNetRadius - kHeadLength;
    const std::array<Point, 3> corners = {AtAzimuth(kNetRadius, azimuth),
                                          AtAzimuth(base, azimuth, kHeadHalfWidth),
                                          AtAzimuth(base, azimuth, -kHeadHalfWidth)};
    surface.Polygon(corners, look.colour);
}

/// The arcs on the rim, as shapes whose ends are those of the interval: lines have round ends. An
/// end just outside a half may have a part of its arc within it.
void DrawInterval(const Plot& plot, Surface& surface, const LineLook& look,
                  const FigureMean& mean) {
    constexpr double kPixelsInPoint = 96.0 / 72;
    const double width =
        kArcOfLine * look.state.widthInPoints * kPixelsInPoint * surface.PixelSize().y;
    UseShapes(surface, look);
    std::vector<double> ends = {mean.azimuth};
    if (!RoseOf(plot).isDirectional) {
        ends.push_back(WrappedAngle(mean.azimuth + kPi));
    }
    for (const double end : ends) {
        const RoseArc arc = ClippedArc(plot.record.RoseShape, end, *mean.halfWidth);
        if (arc.start != arc.end) {
            RoseWedge wedge;
            wedge.start = arc.start;
            wedge.end = arc.end;
            wedge.radius = kNetRadius + width / 2;
            surface.Polygon(CornersOfRingPart(wedge, kNetRadius - width / 2), look.colour);
        }
    }
}

} // namespace

bool IsMeanSignificant(const Plot& plot) {
    const PlotRecord& record = plot.record;
    const PlotRose& rose = RoseOf(plot);
    const bool hasWeights =
        MeasureOfRose(record.RoseType) != kRoseFrequency || IsRoseBiasCorrected(record);
    double count = record.RoseStats[kRoseCount][kRawTotal];
    double length = record.RoseResultant[kOfAngles];
    if (hasWeights && rose.angles.size() > 1) {
        const std::span<const double> azimuths = std::span(rose.angles).subspan(1);
        count = static_cast<double>(azimuths.size());
        length = LengthOf(azimuths, rose.isDirectional);
    }
    return count > 0 && RayleighTest(count, length).probability < kSignificance;
}

std::optional<FigureMean> MeanOfFigure(const Plot& plot, const Drawing& drawing) {
    const PlotRecord& record = plot.record;
    const bool isForAll = !FigureOf(drawing).roses.meanIfSignificant;
    if (record.RoseDisplay7 == 0 || !HasRoseMean(record)
        || !(isForAll || IsMeanSignificant(plot))) {
        return std::nullopt;
    }
    FigureMean mean;
    mean.azimuth = record.RoseMeanDir[kOfAngles];
    const std::optional<RoseConfidence>& confidence = RoseOf(plot).confidence;
    if (record.RoseDisplay8 != 0 && confidence && confidence->isInterval) {
        mean.halfWidth = confidence->halfWidth;
        mean.method = confidence->method;
    }
    return mean;
}

std::vector<double> EndsOfMean(const Plot& plot, const FigureMean& mean) {
    std::vector<double> ends = {mean.azimuth};
    if (!RoseOf(plot).isDirectional) {
        ends.push_back(WrappedAngle(mean.azimuth + kPi));
    }
    const int shape = plot.record.RoseShape;
    std::erase_if(ends, [shape](double end) { return !IsAzimuthShown(shape, end); });
    return ends;
}

LineLook LookOfMean(const Drawing& drawing) {
    const LineStyle& lines = FigureOf(drawing).lines;
    LineLook look{DrawState(), lines.accent};
    look.state.widthInPoints = lines.girdleWidth;
    return look;
}

void DrawFigureMean(const Plot& plot, const Drawing& drawing) {
    const std::optional<FigureMean> mean = MeanOfFigure(plot, drawing);
    if (!mean) {
        return;
    }
    Surface& surface = drawing.plot;
    const SavedState saved(surface);
    const LineLook look = LookOfMean(drawing);
    const bool hasHead = RoseOf(plot).isDirectional;
    const double zero = ZeroRadiusOfRose(plot.record);
    for (const double end : EndsOfMean(plot, *mean)) {
        surface.SetState(look.state);
        const double length = hasHead ? kNetRadius - kHeadLength : kNetRadius;
        if (length > zero) {
            surface.Line(AtAzimuth(zero, end), AtAzimuth(length, end), look.colour);
        }
        if (hasHead) {
            DrawHead(surface, look, end);
        }
    }
    if (mean->halfWidth) {
        DrawInterval(plot, surface, look, *mean);
    }
}

} // namespace quandrel
