// SPDX-License-Identifier: MIT

#include "edit/marks/small_circles.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/style_tables.h"
#include "edit/history/edit_step.h"
#include "orientation/angles.h"
#include "orientation/notation.h"
#include "orientation/number_text.h"
#include "orientation/projection.h"
#include "statistics/confidence_cone.h"
#include "stereo/cones.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quandrel {

namespace {

struct DegreeRange {
    double least = 0;
    double most = 0;
};

DegreeRange RangeOf(CirclePart part) {
    switch (part) {
    case CirclePart::kPlunge:
        return {-90, 90};
    case CirclePart::kAzimuth:
        return {-360, 360};
    case CirclePart::kAngle:
        break;
    }
    return {0, 180};
}

constexpr std::array<CirclePart, kTextsOfCircle> kParts = {
    CirclePart::kPlunge, CirclePart::kAzimuth, CirclePart::kAngle};

std::string& TextOfPart(SmallCircle& circle, CirclePart part) {
    switch (part) {
    case CirclePart::kPlunge:
        return circle.AxisPl;
    case CirclePart::kAzimuth:
        return circle.AxisAz;
    case CirclePart::kAngle:
        break;
    }
    return circle.Angle;
}

/// The circle of a set of gActivePlot, or nothing.
SmallCircle* CircleOfSet(int set) {
    if (!IsOpenSlot(gActivePlot) || set < 1 || set > kUserCircles) {
        return nullptr;
    }
    const auto& circles = ActiveRecord().PlotSmallCircles;
    return circles ? &(*circles)[static_cast<std::size_t>(set)] : nullptr;
}

CircleStyle PossibleStyle(const CircleStyle& style) {
    return {std::clamp(style.colour, 0, kColourCount - 1),
            std::clamp<int>(style.lineStyle, kSolidLine, kNoLine),
            std::clamp(style.width, 1, kWidestCircle)};
}

CircleStyle StyleOf(const SmallCircle& circle) {
    return PossibleStyle({circle.LineColour, circle.lineStyle, circle.LineWidth});
}

/// Completes a change of gActivePlot. A rose does not show small circles.
void FinishChange(bool isShown) {
    const bool isSeen = isShown && ActiveRecord().PlotKind != kRose;
    FinishUnkept(gActivePlot, isSeen ? Redraw::Picture : Redraw::Nothing);
}

} // namespace

std::optional<double> CircleValue(CirclePart part, const std::string& text) {
    std::optional<double> degrees = ReadNumber(text);
    if (!degrees && part == CirclePart::kAzimuth) {
        degrees = QuadrantDegrees(text);
    }
    const DegreeRange range = RangeOf(part);
    if (!degrees || *degrees < range.least || *degrees > range.most) {
        return std::nullopt;
    }
    return DegToRad(*degrees);
}

std::string CircleRule(CirclePart part) {
    switch (part) {
    case CirclePart::kPlunge:
        return "The plunge of the axis has to be a number from -90 to 90.";
    case CirclePart::kAzimuth:
        return "The azimuth of the axis has to be a number from -360 to 360, or a direction such "
               "as N30E.";
    case CirclePart::kAngle:
        break;
    }
    return "The angle has to be a number from 0 to 180.";
}

std::optional<CircleCone> ConeOfCircle(const SmallCircle& circle) {
    const auto plunge = CircleValue(CirclePart::kPlunge, circle.AxisPl);
    const auto trend = CircleValue(CirclePart::kAzimuth, circle.AxisAz);
    const auto angle = CircleValue(CirclePart::kAngle, circle.Angle);
    if (!plunge || !trend || !angle) {
        return std::nullopt;
    }
    return CircleCone{*plunge, WrappedAngle(*trend), *angle > kPi / 2 ? kPi - *angle : *angle};
}

LineLook LookOfSmallCircle(const Surface& surface, const Drawing& drawing,
                           const SmallCircle& circle) {
    static const AxisStyle start = StartStyles().axes[kSmallCircleStyle];
    const CircleStyle style = StyleOf(circle);
    const AxisStyle row = {static_cast<std::int16_t>(style.colour),
                           static_cast<std::int16_t>(style.lineStyle),
                           static_cast<std::int16_t>(style.width)};
    const LineStyle& lines = FigureOf(drawing).lines;
    LineLook look = LookOfLine(surface, drawing, row, start, lines.regionWidth, lines.accent);
    if (lines.regionWidth > 0 && row == start) {
        look.state.drawStyle = kDashedLine;
        TakeLayer(drawing.layer, look);
    }
    return look;
}

void DrawSmallCircle(Surface& surface, const Drawing& drawing, int plotKind, const CircleCone& cone,
                     const SmallCircle& circle) {
    const SavedState saved(surface);
    LineLook look = LookOfSmallCircle(surface, drawing, circle);
    look.state.fillStyle = kNoFill;
    if (cone.halfAngle > 0) {
        surface.SetState(look.state);
        DrawCone(surface, plotKind, cone.plunge, cone.trend, cone.halfAngle, look.colour);
        return;
    }
    Point axis;
    ProjectPoint(plotKind, cone.plunge, cone.trend, axis.x, axis.y);
    look.state.fillStyle = kSolidFill;
    surface.SetState(look.state);
    surface.Circle(axis, look.state.drawWidth * std::abs(surface.PixelSize().x), look.colour);
}

void NoteSmallCircles(PlotRecord& record) {
    if (!record.PlotSmallCircles || record.PlotKind == kRose) {
        return;
    }
    for (SmallCircle& circle : *record.PlotSmallCircles) {
        if (circle.Visible != 0 && ConeOfCircle(circle)) {
            circle.LastPlotSects = kSmallCircleSectors;
        }
    }
}

void DrawSmallCircles(const PlotRecord& record, const Drawing& drawing) {
    DrawConfidenceCone(record, drawing);
    if (!record.PlotSmallCircles || record.PlotKind == kRose) {
        return;
    }
    int set = 0;
    for (const SmallCircle& circle : *record.PlotSmallCircles) {
        const bool isAbove = drawing.circleAbove > 0 && drawing.circleAbove == set;
        const auto cone = ConeOfCircle(circle);
        if (circle.Visible != 0 && cone && !isAbove) {
            DrawSmallCircle(drawing.plot, drawing, record.PlotKind, *cone, circle);
        }
        ++set;
    }
}

std::string SmallCircleCaption() {
    return "Small Circles on: " + (IsOpenSlot(gActivePlot) ? ActiveRecord().PlotTitle : "");
}

const SmallCircle* SmallCircleOfSet(int set) {
    return CircleOfSet(set);
}

bool IsSmallCircleShown(int set) {
    const SmallCircle* const circle = CircleOfSet(set);
    return circle != nullptr && circle->Visible != 0;
}

void TypeCircleText(int set, CirclePart part, const std::string& text) {
    SmallCircle* const circle = CircleOfSet(set);
    if (circle == nullptr || TextOfPart(*circle, part) == text) {
        return;
    }
    TextOfPart(*circle, part) = text;
    FinishChange(circle->Visible != 0);
}

std::string ShowSmallCircle(int set, bool on) {
    SmallCircle* const circle = CircleOfSet(set);
    if (circle == nullptr || (circle->Visible != 0) == on) {
        return {};
    }
    for (const CirclePart part : kParts) {
        if (on && !CircleValue(part, TextOfPart(*circle, part))) {
            return CircleRule(part);
        }
    }
    circle->Visible = on ? kTrue : std::int16_t{0};
    FinishChange(true);
    return {};
}

CircleStyle StyleOfSmallCircle(int set) {
    const SmallCircle* const circle = CircleOfSet(set);
    return circle == nullptr ? CircleStyle{} : StyleOf(*circle);
}

void StyleSmallCircle(int set, const CircleStyle& style) {
    SmallCircle* const circle = CircleOfSet(set);
    if (circle == nullptr) {
        return;
    }
    const CircleStyle possible = PossibleStyle(style);
    circle->LineColour = static_cast<std::int16_t>(possible.colour);
    circle->lineStyle = static_cast<std::int16_t>(possible.lineStyle);
    circle->LineWidth = static_cast<std::int16_t>(possible.width);
    FinishChange(circle->Visible != 0);
}

} // namespace quandrel
