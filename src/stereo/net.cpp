// SPDX-License-Identifier: MIT

#include "stereo/net.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "stereo/draw_target.h"

#include <cmath>

namespace quandrel {

namespace {

constexpr double kCross = 50;    // half of the centre cross
constexpr double kRimTick = 50;  // length of a tick outside the rim
constexpr double kAxisTick = 20; // half of a tick across an axis
constexpr double kArrowTip = 1091;
constexpr double kArrowBarb = 1021;

void DrawCentreCross(Surface& surface) {
    surface.Line({-kCross, 0}, {kCross, 0}, kBlack);
    surface.Line({0, -kCross}, {0, kCross}, kBlack);
}

void DrawRimTicks(Surface& surface) {
    // Kept: the north has no tick.
    surface.Line({-kNetRadius, 0}, {-kNetRadius - kRimTick, 0}, kBlack);
    surface.Line({kNetRadius, 0}, {kNetRadius + kRimTick, 0}, kBlack);
    surface.Line({0, -kNetRadius}, {0, -kNetRadius - kRimTick}, kBlack);
}

void DrawDiameters(Surface& surface) {
    surface.Line({-kNetRadius, 0}, {kNetRadius, 0}, kBlack);
    surface.Line({0, -kNetRadius}, {0, kNetRadius}, kBlack);
}

/// Ticks across the four half axes at each ten degrees of plunge.
void DrawAxisTicks(Surface& surface, int plotKind) {
    for (int i = 1; i <= 8; ++i) {
        std::int16_t x = 0;
        std::int16_t y = 0;
        ProjectPointInt(plotKind, i * kPi / 18, 0, x, y);
        const double d = y;
        surface.Line({-kAxisTick, d}, {kAxisTick, d}, kBlack);
        surface.Line({-kAxisTick, -d}, {kAxisTick, -d}, kBlack);
        surface.Line({d, -kAxisTick}, {d, kAxisTick}, kBlack);
        surface.Line({-d, -kAxisTick}, {-d, kAxisTick}, kBlack);
    }
}

/// Nineteen ticks, every ten degrees from north by east to south.
void DrawEasternRimTicks(Surface& surface) {
    for (int i = 0; i <= 18; ++i) {
        const double azimuth = i * kPi / 18;
        const double x = std::sin(azimuth);
        const double y = std::cos(azimuth);
        surface.Line({kNetRadius * x, kNetRadius * y},
                     {(kNetRadius + kRimTick) * x, (kNetRadius + kRimTick) * y}, kBlack);
    }
}

void DrawAxes(Surface& surface, int plotKind) {
    switch (gPlotAxesStyle) {
    case 0:
        DrawCentreCross(surface);
        break;
    case 1:
        DrawCentreCross(surface);
        DrawRimTicks(surface);
        break;
    case 2:
        DrawDiameters(surface);
        DrawAxisTicks(surface, plotKind);
        break;
    case 3:
        DrawEasternRimTicks(surface);
        DrawAxisTicks(surface, plotKind);
        break;
    default:
        break;
    }
}

Point AtAzimuth(double radius, double azimuth) {
    return {radius * std::sin(azimuth), radius * std::cos(azimuth)};
}

} // namespace

void SetPlotDrawMode() {
    DrawState state;
    state.font = gPlotFonts[kGeneralFont].font;
    PlotSurface().SetState(state);
}

void DrawPlotBase() {
    Surface& surface = PlotSurface();
    surface.SetUserScale(kPlotScale);
    SetPlotDrawMode();
    if (!IsDrawingElsewhere()) {
        surface.Clear(kWindowBackground);
    }
    const int plotKind = ActiveRecord().PlotKind;
    if (plotKind >= kRose) {
        return;
    }
    surface.Circle({0, 0}, kNetRadius, kBlack);
    DrawAxes(surface, plotKind);
}

void DrawPlotFurniture() {
    const PlotRecord& record = ActiveRecord();
    const auto& mean = record.AxisItems[0];
    if (NumberOf(mean[0]) == 0 || IsEmpty(mean[3]) || record.PlotKind >= kRose
        || record.OverlayRows[0] > 0) {
        return;
    }
    Surface& surface = PlotSurface();
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.drawWidth = 2;
    surface.SetState(state);
    const double trend = NumberOf(mean[3]);
    const Point tip = AtAzimuth(kArrowTip, trend);
    surface.Line(AtAzimuth(kNetRadius, trend), tip, kBlack);
    surface.Line(tip, AtAzimuth(kArrowBarb, trend - kPi / 200), kBlack);
    surface.Line(tip, AtAzimuth(kArrowBarb, trend + kPi / 200), kBlack);
}

} // namespace quandrel
