// SPDX-License-Identifier: MIT

#include "stereo/net.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "core/style_tables.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "stereo/draw_target.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr double kCross = 50;    // half of the centre cross
constexpr double kRimTick = 50;  // length of a tick outside the rim
constexpr double kAxisTick = 20; // half of a tick across an axis
constexpr double kArrowTip = 1091;
constexpr double kArrowBarb = 1021;

void DrawCentreCross(Surface& surface) {
    surface.Line({-kCross, 0}, {kCross, 0}, AxesColour(DrawingInForce()));
    surface.Line({0, -kCross}, {0, kCross}, AxesColour(DrawingInForce()));
}

void DrawRimTicks(Surface& surface) {
    // Kept: the north has no tick.
    surface.Line({-kNetRadius, 0}, {-kNetRadius - kRimTick, 0}, AxesColour(DrawingInForce()));
    surface.Line({kNetRadius, 0}, {kNetRadius + kRimTick, 0}, AxesColour(DrawingInForce()));
    surface.Line({0, -kNetRadius}, {0, -kNetRadius - kRimTick}, AxesColour(DrawingInForce()));
}

void DrawDiameters(Surface& surface) {
    surface.Line({-kNetRadius, 0}, {kNetRadius, 0}, AxesColour(DrawingInForce()));
    surface.Line({0, -kNetRadius}, {0, kNetRadius}, AxesColour(DrawingInForce()));
}

/// Ticks across the four half axes at each ten degrees of plunge.
void DrawAxisTicks(Surface& surface, int plotKind) {
    for (int i = 1; i <= 8; ++i) {
        std::int16_t x = 0;
        std::int16_t y = 0;
        ProjectPointInt(plotKind, i * kPi / 18, 0, x, y);
        const double d = y;
        surface.Line({-kAxisTick, d}, {kAxisTick, d}, AxesColour(DrawingInForce()));
        surface.Line({-kAxisTick, -d}, {kAxisTick, -d}, AxesColour(DrawingInForce()));
        surface.Line({d, -kAxisTick}, {d, kAxisTick}, AxesColour(DrawingInForce()));
        surface.Line({-d, -kAxisTick}, {-d, kAxisTick}, AxesColour(DrawingInForce()));
    }
}

/// Nineteen ticks, every ten degrees from north by east to south.
void DrawEasternRimTicks(Surface& surface) {
    for (int i = 0; i <= 18; ++i) {
        const double azimuth = i * kPi / 18;
        const double x = std::sin(azimuth);
        const double y = std::cos(azimuth);
        surface.Line({kNetRadius * x, kNetRadius * y},
                     {(kNetRadius + kRimTick) * x, (kNetRadius + kRimTick) * y},
                     AxesColour(DrawingInForce()));
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

/// An "N" between the top of the circle and the edge of the surface, as small as that asks for.
void DrawNorth(Surface& surface) {
    constexpr double kGap = 8; // to the circle
    constexpr double kLeastPoints = 4;
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.foreColour = AxesColour(DrawingInForce());
    const double room = surface.Scale().top - kNetRadius - 2 * kGap;
    const double height = surface.TextHeight();
    if (height > room && height > 0) {
        state.font.points = std::max(state.font.points * room / height, kLeastPoints);
    }
    surface.SetState(state);
    surface.Text({-surface.TextWidth("N") / 2, kNetRadius + kGap + surface.TextHeight()}, "N");
}

Point AtAzimuth(double radius, double azimuth) {
    return {radius * std::sin(azimuth), radius * std::cos(azimuth)};
}

} // namespace

void SetPlotDrawMode() {
    const PlotFont& font = gSettings.styles.fonts[kGeneralFont];
    DrawState state;
    state.font = font.font;
    state.foreColour = ColourFromValue(static_cast<std::uint32_t>(font.colour));
    PlotSurface().SetState(state);
}

void DrawPlotBase() {
    Surface& surface = PlotSurface();
    surface.SetUserScale(kPlotScale);
    SetPlotDrawMode();
    if (!IsDrawingElsewhere()) {
        surface.Clear(PlotBackground(DrawingInForce()));
    }
    const int plotKind = ActiveRecord().PlotKind;
    if (plotKind >= kRose) {
        return;
    }
    surface.Circle({0, 0}, kNetRadius, AxesColour(DrawingInForce()));
    DrawAxes(surface, plotKind);
    if (gSettings.styles.showNorth) {
        DrawNorth(surface);
    }
}

void DrawPlotFurniture() {
    const PlotRecord& record = ActiveRecord();
    const auto& mean = record.AxisItems[kMeanItem];
    if (NumberOf(mean[kItemShown]) == 0 || IsEmpty(mean[kItemTrend]) || record.PlotKind >= kRose
        || record.OverlayRows[kOverlayCount] > 0) {
        return;
    }
    Surface& surface = PlotSurface();
    const SavedState saved(surface);
    const AxisStyle& style = gAxisStyleTable[kMeanGirdleStyle];
    const Colour colour = TableColour(style[0]);
    DrawState state = surface.State();
    state.drawStyle = style[1];
    state.drawWidth = style[2] + 1; // it stands out among lines of the same style
    surface.SetState(state);
    const double trend = NumberOf(mean[kItemTrend]);
    const Point tip = AtAzimuth(kArrowTip, trend);
    surface.Line(AtAzimuth(kNetRadius, trend), tip, colour);
    surface.Line(tip, AtAzimuth(kArrowBarb, trend - kPi / 200), colour);
    surface.Line(tip, AtAzimuth(kArrowBarb, trend + kPi / 200), colour);
}

} // namespace quandrel
