// SPDX-License-Identifier: MIT

#include "stereo/net.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "stereo/figure_lines.h"
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

constexpr double kNorthGap = 8; ///< around the "N"

/// Makes the font of a surface smaller where texts are too high for a room.
void FitFont(Surface& surface, double room) {
    constexpr double kLeastPoints = 4;
    const double height = surface.TextHeight();
    if (height > room && height > 0) {
        DrawState state = surface.State();
        state.font.points = std::max(state.font.points * room / height, kLeastPoints);
        surface.SetState(state);
    }
}

/// An "N" between the top of the circle and the edge of the surface, at the size that fits there.
void DrawNorth(Surface& surface, Colour ink) {
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.foreColour = ink;
    surface.SetState(state);
    FitFont(surface, surface.Scale().top - kNetRadius - 2 * kNorthGap);
    surface.Text({-surface.TextWidth("N") / 2, kNetRadius + kNorthGap + surface.TextHeight()}, "N");
}

Point AtAzimuth(double radius, double azimuth) {
    return {radius * std::sin(azimuth), radius * std::cos(azimuth)};
}

/// The marks of a style on the rim: ticks outward at equal steps, longer ones at the quadrants.
void DrawFigureTicks(Surface& surface, const NetStyle& net, Colour ink) {
    const int ticks = net.tickStep > 0 ? static_cast<int>(std::lround(360 / net.tickStep)) : 0;
    const auto draw = [&](double azimuth, double share) {
        surface.Line(AtAzimuth(kNetRadius, azimuth), AtAzimuth(kNetRadius * (1 + share), azimuth),
                     ink);
    };
    for (int i = 0; i < ticks; ++i) {
        if (i * 4 % ticks != 0) {
            draw(i * kTwoPi / ticks, net.tickLength);
        }
    }
    for (int quadrant = 0; quadrant < 4 && net.quadrantLength > 0; ++quadrant) {
        draw(quadrant * kPi / 2, net.quadrantLength);
    }
}

/// The bold "N" of a style, above the longest tick.
void DrawFigureNorth(Surface& surface, const FigureStyle& figure, Colour ink, NetRoom room) {
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.font = {figure.text.families, std::max(figure.net.northSize, figure.text.leastSize),
                  true};
    state.foreColour = ink;
    surface.SetState(state);
    const double rim = kNetRadius * (1 + figure.net.quadrantLength);
    if (room == NetRoom::Within) {
        FitFont(surface, surface.Scale().top - rim - kNorthGap);
    }
    surface.Text({-surface.TextWidth("N") / 2, rim + kNorthGap + surface.TextHeight()}, "N");
}

/// The net of a style that has one.
void DrawFigureNet(const Drawing& drawing) {
    const FigureStyle& figure = FigureOf(drawing);
    Surface& surface = drawing.plot;
    const SavedState saved(surface);
    LineLook rim{surface.State(), AxesColour(drawing)};
    rim.state.widthInPoints = figure.net.rimWidth;
    TakeLayer(drawing.layer, rim);
    const Colour ink = rim.colour;
    SetWidthInPoints(surface, figure.net.tickWidth);
    const double half = figure.net.crossSpan / 2 * kNetRadius;
    if (half > 0) {
        surface.Line({-half, 0}, {half, 0}, ink);
        surface.Line({0, -half}, {0, half}, ink);
    }
    DrawFigureTicks(surface, figure.net, ink);
    surface.SetState(rim.state);
    surface.Circle({0, 0}, kNetRadius, ink);
}

} // namespace

void SetPlotDrawMode(const Drawing& drawing) {
    const PlotFont& font = drawing.styles.fonts[kGeneralFont];
    DrawState state;
    state.font = font.font;
    state.foreColour = ColourFromValue(static_cast<std::uint32_t>(font.colour));
    drawing.plot.SetState(state);
}

void DrawPlotBase(const PlotRecord& record, const Drawing& drawing, NetRoom room) {
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
    DrawNorthOfNet(drawing, room);
}

void DrawNorthOfNet(const Drawing& drawing, NetRoom room) {
    const FigureStyle& figure = FigureOf(drawing);
    if (figure.net.rimWidth > 0) {
        if (figure.net.showNorth) {
            DrawFigureNorth(drawing.plot, figure, AxesColour(drawing), room);
        }
    } else if (drawing.styles.showNorth) {
        DrawNorth(drawing.plot, AxesColour(drawing));
    }
}

void DrawNet(int plotKind, const Drawing& drawing) {
    if (FigureOf(drawing).net.rimWidth > 0) {
        DrawFigureNet(drawing);
        return;
    }
    const Colour ink = AxesColour(drawing);
    drawing.plot.Circle({0, 0}, kNetRadius, ink);
    DrawAxes(drawing.plot, plotKind, drawing.styles.plotAxesStyle, ink);
}

bool IsMeanArrowShown(const PlotRecord& record) {
    const auto& mean = record.AxisItems[kMeanItem];
    return NumberOf(mean[kItemShown]) != 0 && !IsEmpty(mean[kItemTrend]) && record.PlotKind < kRose
           && record.OverlayRows[kOverlayCount] <= 0;
}

void DrawPlotFurniture(const PlotRecord& record, const Drawing& drawing) {
    if (!IsMeanArrowShown(record)) {
        return;
    }
    const auto& mean = record.AxisItems[kMeanItem];
    Surface& surface = drawing.plot;
    const SavedState saved(surface);
    LineLook look =
        LookOfAxisStyle(surface, drawing, kMeanGirdleStyle, FigureOf(drawing).lines.girdleWidth);
    look.state.drawWidth += 1; // wider than other lines of the same style
    const Colour colour = look.colour;
    surface.SetState(look.state);
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
