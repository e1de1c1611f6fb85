// SPDX-License-Identifier: MIT

#include "rose/rose_mean.h"

#include "orientation/angles.h"
#include "orientation/projection.h"
#include "rose/rose_confidence.h"
#include "rose/rose_furniture.h"
#include "rose/rose_tables.h"

#include <cmath>

namespace quandrel {

namespace {

constexpr double kArrowBarb = 1021;
constexpr double kBarbAngle = kPi / 200;
constexpr double kArrowWidth = 2;
constexpr double kArcWidth = 4;

/// The azimuths of the mean: for axial data both ends.
std::vector<double> MeanEnds(const Plot& plot) {
    if (!HasRoseMean(plot.record)) {
        return {};
    }
    const double mean = plot.record.RoseMeanDir[kOfAngles];
    return RoseOf(plot).isDirectional ? std::vector{mean}
                                      : std::vector{mean, WrappedAngle(mean + kPi)};
}

Point AtAzimuth(double radius, double azimuth) {
    return {radius * std::sin(azimuth), radius * std::cos(azimuth)};
}

void UseWidth(Surface& surface, double width) {
    DrawState state = surface.State();
    state.drawStyle = kSolidLine;
    state.drawWidth = width;
    surface.SetState(state);
}

void DrawArrow(Surface& surface, double azimuth) {
    const Point tip = AtAzimuth(kNetRadius + kArrowLength, azimuth);
    surface.Line(AtAzimuth(kNetRadius, azimuth), tip, kBlack);
    surface.Line(tip, AtAzimuth(kArrowBarb, azimuth - kBarbAngle), kBlack);
    surface.Line(tip, AtAzimuth(kArrowBarb, azimuth + kBarbAngle), kBlack);
}

void DrawConfidenceArcs(Surface& surface, const Plot& plot) {
    const std::optional<RoseConfidence>& confidence = RoseOf(plot).confidence;
    if (!confidence || !confidence->isInterval) {
        return;
    }
    for (const double end : MeanEnds(plot)) {
        const RoseArc arc = ClippedArc(plot.record.RoseShape, end, *confidence->halfWidth);
        if (arc.start != arc.end) {
            surface.Arc({}, kNetRadius, arc.start, arc.end, kBlack);
        }
    }
}

} // namespace

std::vector<double> RoseArrowAzimuths(const Plot& plot) {
    const PlotRecord& record = plot.record;
    std::vector<double> azimuths;
    if (record.RoseDisplay7 != 0) {
        azimuths = MeanEnds(plot);
    }
    std::erase_if(azimuths,
                  [&record](double azimuth) { return !IsAzimuthShown(record.RoseShape, azimuth); });
    return azimuths;
}

void DrawRoseMean(const Plot& plot, const Drawing& drawing) {
    Surface& surface = drawing.plot;
    const SavedState saved(surface);
    UseWidth(surface, kArrowWidth);
    for (const double azimuth : RoseArrowAzimuths(plot)) {
        DrawArrow(surface, azimuth);
    }
    if (plot.record.RoseDisplay8 != 0) {
        UseWidth(surface, kArcWidth);
        DrawConfidenceArcs(surface, plot);
    }
}

} // namespace quandrel
