// SPDX-License-Identifier: MIT

#include "stereo/net.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "stereo/window_drawing.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr double kCross = 50;    // half of the centre cross
constexpr double kRimTick = 50;  // length of a tick outside the rim
constexpr double kAxisTick = 20; // half of a tick across an axis
constexpr double kArrowTip = 1091;
constexpr double kArrowBarb = 1021;

void DrawCentreCross(Surface& surface, Colour ink) {
    surface.Line({-kCross, 0}, {kCross, 0}, ink);
    surface.Line({0, -kCross}, {0, kCross}, ink);
}

void DrawRimTicks(Surface& surface, Colour ink) {
    // Kept: the north has no tick.
    surface.Line({-kNetRadius, 0}, {-kNetRadius - kRimTick, 0}, ink);
    surface.Line({kNetRadius, 0}, {kNetRadius + kRimTick, 0}, ink);
    surface.Line({0, -kNetRadius}, {0, -kNetRadius - kRimTick}, ink);
}

void DrawDiameters(Surface& surface, Colour ink) {
    surface.Line({-kNetRadius, 0}, {kNetRadius, 0}, ink);
    surface.Line({0, -kNetRadius}, {0, kNetRadius}, ink);
}

/// Ticks across the four half axes at each ten degrees of plunge.
void DrawAxisTicks(Surface& surface, int plotKind, Colour ink) {
    for (int i = 1; i <= 8; ++i) {
        std::int16_t x = 0;
        std::int16_t y = 0;
        ProjectPointInt(plotKind, i * kPi / 18, 0, x, y);
        const double d = y;
        surface.Line({-kAxisTick, d}, {kAxisTick, d}, ink);
        surface.Line({-kAxisTick, -d}, {kAxisTick, -d}, ink);
        surface.Line({d, -kAxisTick}, {d, kAxisTick}, ink);
        surface.Line({-d, -kAxisTick}, {-d, kAxisTick}, ink);
    }
}

/// Nineteen ticks, every ten degrees from north by east to south.
void DrawEasternRimTicks(Surface& surface, Colour ink) {
    for (int i = 0; i <= 18; ++i) {
        const double azimuth = i * kPi / 18;
        const double x = std::sin(azimuth);
        const double y = std::cos(azimuth);
        surface.Line({kNetRadius * x, kNetRadius * y},
                     {(kNetRadius + kRimTick) * x, (kNetRadius + kRimTick) * y}, ink);
    }
}

void DrawAxes(Surface& surface, int plotKind, int axesStyle, Colour ink) {
    switch (axesStyle) {
    case 0:
        DrawCentreCross(surface, ink);
        break;
    case 1:
        DrawCentreCross(surface, ink);
        DrawRimTicks(surface, ink);
        break;
    case 2:
        DrawDiameters(surface, ink);
        DrawAxisTicks(surface, plotKind, ink);
        break;
    case 3:
        DrawEasternRimTicks(surface, ink);
        DrawAxisTicks(surface, plotKind, ink);
        break;
    default:
        break;
    }
}

/// An "N" between the top of the circle and the edge of the surface, at the size that fits there.
void DrawNorth(Surface& surface, Colour ink) {
    constexpr double kGap = 8; // from the circle
    constexpr double kLeastPoints = 4;
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.foreColour = ink;
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

void SetPlotDrawMode(const Drawing& drawing) {
    const PlotFont& font = drawing.styles.fonts[kGeneralFont];
    DrawState state;
    state.font = font.font;
    state.foreColour = ColourFromValue(static_cast<std::uint32_t>(font.colour));
    drawing.plot.SetState(state);
}

void DrawPlotBase(const PlotRecord& record, const Drawing& drawing) {
    Surface& surface = drawing.plot;
    surface.SetUserScale(kPlotScale);
    SetPlotDrawMode(drawing);
    if (drawing.purpose == DrawnFor::Window) {
        surface.Clear(PlotBackground(drawing));
    }
    if (record.PlotKind >= kRose) {
        return;
    }
    DrawNet(record.PlotKind, drawing);
    if (drawing.styles.showNorth) {
        DrawNorth(surface, AxesColour(drawing));
    }
}

void DrawNet(int plotKind, const Drawing& drawing) {
    const Colour ink = AxesColour(drawing);
    drawing.plot.Circle({0, 0}, kNetRadius, ink);
    DrawAxes(drawing.plot, plotKind, drawing.styles.plotAxesStyle, ink);
}

void DrawPlotFurniture(const PlotRecord& record, const Drawing& drawing) {
    const auto& mean = record.AxisItems[kMeanItem];
    if (NumberOf(mean[kItemShown]) == 0 || IsEmpty(mean[kItemTrend]) || record.PlotKind >= kRose
        || record.OverlayRows[kOverlayCount] > 0) {
        return;
    }
    Surface& surface = drawing.plot;
    const SavedState saved(surface);
    const AxisStyle& style = drawing.styles.axes[kMeanGirdleStyle];
    const Colour colour = TableColour(drawing.styles, style[kStyleColour]);
    DrawState state = surface.State();
    state.drawStyle = style[kStyleLine];
    state.drawWidth = style[kStyleWidth] + 1; // wider than other lines of the same style
    surface.SetState(state);
    const double trend = NumberOf(mean[kItemTrend]);
    const Point tip = AtAzimuth(kArrowTip, trend);
    surface.Line(AtAzimuth(kNetRadius, trend), tip, colour);
    surface.Line(tip, AtAzimuth(kArrowBarb, trend - kPi / 200), colour);
    surface.Line(tip, AtAzimuth(kArrowBarb, trend + kPi / 200), colour);
}

void SetPlotDrawMode() {
    SetPlotDrawMode(WindowDrawing(gActivePlot));
}

void DrawPlotBase() {
    DrawPlotBase(ActiveRecord(), WindowDrawing(gActivePlot));
}

void DrawPlotFurniture() {
    DrawPlotFurniture(ActiveRecord(), WindowDrawing(gActivePlot));
}

} // namespace quandrel
