// SPDX-License-Identifier: MIT

#include "rose/rose_mean.h"

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "rose/circular_statistics.h"
#include "rose/rose_confidence.h"
#include "rose/rose_furniture.h"
#include "rose/rose_tables.h"
#include "stereo/draw_target.h"

#include <cmath>

namespace quandrel {

namespace {

constexpr double kArrowBarb = 1021;
constexpr double kBarbAngle = kPi / 200;
constexpr double kArrowWidth = 2;
constexpr double kArcWidth = 4;

/// The azimuths of the mean: of axial data both ends.
std::vector<double> MeanEnds(const PlotRecord& record) {
    if (!HasRoseMean(record)) {
        return {};
    }
    const double mean = record.RoseMeanDir[kOfAngles];
    return gRoseDirectional ? std::vector{mean} : std::vector{mean, WrappedAngle(mean + kPi)};
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

void DrawConfidenceArcs(Surface& surface, const PlotRecord& record) {
    const std::optional<RoseConfidence> confidence =
        RoseConfidenceOf(record, gSettings.notation.formulas);
    if (!confidence || !confidence->isInterval) {
        return;
    }
    for (const double end : MeanEnds(record)) {
        const RoseArc arc = ClippedArc(record.RoseShape, end, *confidence->halfWidth);
        if (arc.start != arc.end) {
            surface.Arc({}, kNetRadius, arc.start, arc.end, kBlack);
        }
    }
}

} // namespace

std::vector<double> RoseArrowAzimuths(const PlotRecord& record) {
    std::vector<double> azimuths;
    if (record.RoseDisplay7 != 0) {
        azimuths = MeanEnds(record);
    }
    std::erase_if(azimuths,
                  [&record](double azimuth) { return !IsAzimuthShown(record.RoseShape, azimuth); });
    return azimuths;
}

void DrawRoseMean() {
    const PlotRecord& record = ActiveRecord();
    Surface& surface = PlotSurface();
    const SavedState saved(surface);
    UseWidth(surface, kArrowWidth);
    for (const double azimuth : RoseArrowAzimuths(record)) {
        DrawArrow(surface, azimuth);
    }
    if (record.RoseDisplay8 != 0) {
        UseWidth(surface, kArcWidth);
        DrawConfidenceArcs(surface, record);
    }
}

} // namespace quandrel
