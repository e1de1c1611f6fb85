// SPDX-License-Identifier: MIT

#include "rose/figure_rose_rim.h"

#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "orientation/projection.h"
#include "rose/label_box.h"
#include "rose/rose_furniture.h"
#include "stereo/figure_lines.h"
#include "stereo/figure_text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quandrel {

namespace {

constexpr double kLeastStep = 1;   ///< degrees between labels
constexpr double kLabelGap = 0.02; ///< from ticks to labels, share of the radius

Point AtAzimuth(double radius, double azimuth) {
    return {radius * std::sin(azimuth), radius * std::cos(azimuth)};
}

/// Ticks outward, in the part that the rose shows.
void DrawRimTicks(const Drawing& drawing, int shape) {
    const NetStyle& net = FigureOf(drawing).net;
    const int ticks = net.tickStep > 0 ? static_cast<int>(std::lround(360 / net.tickStep)) : 0;
    SetWidthInPoints(drawing.plot, net.tickWidth);
    for (int i = 0; i < ticks; ++i) {
        const double azimuth = i * kTwoPi / ticks;
        if (IsAzimuthShown(shape, azimuth)) {
            drawing.plot.Line(AtAzimuth(kNetRadius, azimuth),
                              AtAzimuth(kNetRadius * (1 + net.tickLength), azimuth),
                              AxesColour(drawing));
        }
    }
}

/// The circle, or the half of it with its diameter.
void DrawCircle(const Drawing& drawing, int shape) {
    SetWidthInPoints(drawing.plot, FigureOf(drawing).net.rimWidth);
    if (!drawing.styles.roseOuterCircle) {
        return;
    }
    const Colour ink = AxesColour(drawing);
    if (!IsHalfRose(shape)) {
        drawing.plot.Circle({}, kNetRadius, ink);
        return;
    }
    const RoseArc arc = ShownArc(shape);
    const Point end{kNetRadius * std::cos(arc.start), kNetRadius * std::sin(arc.start)};
    drawing.plot.Arc({}, kNetRadius, arc.start, arc.end, ink);
    drawing.plot.Line(end, {-end.x, -end.y}, ink);
}

/// The box of a label that touches the circle of labels from outside, moved onto the surface.
RoseLabelBox BoxOfLabel(const Surface& surface, const FigureStyle& figure, const RimLabel& label,
                        LabelRoom room) {
    const double width = surface.TextWidth(label.text);
    const double height = surface.TextHeight();
    const double radius = kNetRadius * ReachOfRim(figure);
    const double x = std::sin(label.azimuth);
    const double y = std::cos(label.azimuth);
    double left = radius * x + (x - 1) * width / 2;
    double top = radius * y + (y + 1) * height / 2;
    if (room == LabelRoom::Within) {
        const UserScale scale = surface.Scale();
        left = std::clamp(left, scale.left, std::max(scale.right - width, scale.left));
        top = std::clamp(top, std::min(scale.bottom + height, scale.top), scale.top);
    }
    return {left, top - height, left + width, top};
}

void DrawLabels(const Plot& plot, const Drawing& drawing, LabelRoom room) {
    Surface& surface = drawing.plot;
    const FigureStyle& figure = FigureOf(drawing);
    std::vector<RoseLabelBox> taken;
    for (const RimLabel& label : LabelsOfRim(figure.roses, plot.record.RoseShape)) {
        DrawState state = surface.State();
        state.font = FontOfRimLabel(drawing, label);
        state.foreColour = AxesColour(drawing);
        surface.SetState(state);
        const RoseLabelBox box = BoxOfLabel(surface, figure, label, room);
        const bool isTaken = std::ranges::any_of(
            taken, [&box](const RoseLabelBox& other) { return Meet(other, box); });
        if (!isTaken && !ReachesIntoCircle(box, kNetRadius)) {
            taken.push_back(box);
            surface.Text({box.left, box.top}, label.text);
        }
    }
}

} // namespace

std::vector<RimLabel> LabelsOfRim(const RoseStyle& style, int shape) {
    constexpr std::array<const char*, 4> kQuadrants = {"N", "E", "S", "W"};
    const bool areNames = style.tickStep <= 0;
    const double step = areNames ? 90 : std::max(style.tickStep, kLeastStep);
    const int count = static_cast<int>(std::floor(360 / step + 1e-9));
    std::vector<RimLabel> labels;
    for (int i = 0; i < count; ++i) {
        const double azimuth = DegToRad(i * step);
        if (IsAzimuthShown(shape, azimuth)) {
            const std::string text = areNames || i == 0 ? kQuadrants.at(static_cast<std::size_t>(i))
                                                        : FormatNumber(i * step, "000.##");
            labels.push_back({azimuth, text, i == 0});
        }
    }
    return labels;
}

FontSpec FontOfRimLabel(const Drawing& drawing, const RimLabel& label) {
    const FigureStyle& figure = FigureOf(drawing);
    FontSpec font = FontInFigure(drawing, kGeneralFont);
    if (label.isNorth && figure.net.showNorth) {
        font = {figure.text.families, std::max(figure.net.northSize, figure.text.leastSize), true};
    }
    return font;
}

double ReachOfRim(const FigureStyle& figure) {
    return 1 + figure.net.tickLength + kLabelGap;
}

void DrawFigureRim(const Plot& plot, const Drawing& drawing, LabelRoom room) {
    const SavedState saved(drawing.plot);
    DrawState state = drawing.plot.State();
    state.fillStyle = kNoFill;
    state.drawStyle = kSolidLine;
    drawing.plot.SetState(state);
    DrawRimTicks(drawing, plot.record.RoseShape);
    DrawCircle(drawing, plot.record.RoseShape);
    DrawLabels(plot, drawing, room);
}

} // namespace quandrel
