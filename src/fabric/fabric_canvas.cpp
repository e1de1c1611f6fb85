// SPDX-License-Identifier: MIT

#include "fabric/fabric_canvas.h"

#include "drawing/legend.h"
#include "stereo/drawable_text.h"
#include "stereo/symbols.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace quandrel {

namespace {

constexpr double kPointsInPixel = 0.75; ///< 72 and 96 to the inch
constexpr double kPointsInSymbolUnit = 0.55;
constexpr double kMarkerPen = 0.5;
constexpr double kWhiteRim = 0.6; ///< around a text on white
constexpr FabricPen kLeaderPen{0.3, kLineGrey, kSolidLine};

/// The symbol that marks a fabric: that of its rows, or a dot for what is no shape of its own.
int SymbolOf(const FabricPoint& point) {
    const bool isShape = point.symbol >= kFirstTableSymbol && point.symbol <= kLastTableSymbol;
    return isShape ? point.symbol : kFirstTableSymbol;
}

/// A symbol of size 1 in points.
Glyph GlyphInPoints(int symbol) {
    Glyph glyph = GlyphOfSymbol(symbol, 1, 0);
    glyph.name = "fabric " + glyph.name;
    for (GlyphPart& part : glyph.parts) {
        part.radius *= kPointsInSymbolUnit;
        for (Point& point : part.points) {
            point = {point.x * kPointsInSymbolUnit, point.y * kPointsInSymbolUnit};
        }
    }
    return glyph;
}

/// The nearest point of a box.
Point NearestOf(const LabelBox& box, Point to) {
    return {std::clamp(to.x, box.left, box.Right()), std::clamp(to.y, box.bottom, box.Top())};
}

/// A line from a marker to a label that is not beside it.
void DrawLeader(FabricCanvas& canvas, Point marker, const LabelBox& label) {
    const Point end = NearestOf(label, marker);
    const double distance = std::hypot(end.x - marker.x, end.y - marker.y);
    if (distance > 2 * kMarkerReach) {
        canvas.Line(marker, end, kLeaderPen);
    }
}

} // namespace

FabricCanvas::FabricCanvas(Surface& surface)
    : surface_(surface)
    , saved_(surface) {
    const UserScale scale = surface.Scale();
    const Point pixel = surface.PixelSize();
    width_ = std::abs(scale.right - scale.left) / pixel.x * kPointsInPixel;
    height_ = std::abs(scale.top - scale.bottom) / pixel.y * kPointsInPixel;
    surface.SetUserScale({0, height_, width_, 0});
}

void FabricCanvas::Line(Point from, Point to, const FabricPen& pen) {
    DrawState state;
    state.widthInPoints = pen.width;
    state.drawStyle = pen.style;
    surface_.SetState(state);
    surface_.Line(from, to, pen.colour);
}

void FabricCanvas::Polygon(std::span<const Point> points, const FabricPen& pen) {
    DrawState state;
    state.widthInPoints = pen.width;
    state.drawStyle = pen.style;
    surface_.SetState(state);
    surface_.Polygon(points, pen.colour);
}

void FabricCanvas::UseFont(double points, Colour colour) {
    DrawState state;
    state.font.points = points;
    state.foreColour = colour;
    surface_.SetState(state);
}

LabelBox FabricCanvas::BoxOf(std::string_view text, Point at, TextAnchor anchor, double points) {
    UseFont(points, kBlack);
    const double width = surface_.TextWidth(text);
    const double height = surface_.TextHeight();
    return {at.x - anchor.across * width, at.y - anchor.up * height, width, height};
}

double FabricCanvas::TextHeight(double points) {
    UseFont(points, kBlack);
    return surface_.TextHeight();
}

void FabricCanvas::Write(const LabelBox& box, std::string_view text, double points, Colour colour) {
    UseFont(points, colour);
    surface_.Text({box.left, box.Top()}, text);
}

void FabricCanvas::WriteOnWhite(const LabelBox& box, std::string_view text, Colour colour) {
    surface_.SetState({});
    surface_.FilledBox({box.left - kWhiteRim, box.bottom + kWhiteRim},
                       {box.Right() + kWhiteRim, box.Top() - kWhiteRim}, kWhite);
    Write(box, text, kLabelPoints, colour);
}

std::string FabricCanvas::Cut(const std::string& text, double width) {
    UseFont(kLabelPoints, kBlack);
    return CutToWidth(surface_, DrawableText(text), width);
}

void FabricCanvas::Marker(Point at, const FabricPoint& point) {
    DrawState state;
    state.widthInPoints = kMarkerPen;
    surface_.SetState(state);
    // White would not show on white.
    const Colour colour = point.colour == kWhite ? kBlack : point.colour;
    surface_.Markers(GlyphInPoints(SymbolOf(point)), colour, std::span(&at, 1));
}

void TakeMarkers(LabelPlaces& labels, std::span<const Point> at) {
    for (const Point& marker : at) {
        labels.Take(
            {marker.x - kMarkerReach, marker.y - kMarkerReach, 2 * kMarkerReach, 2 * kMarkerReach});
    }
}

void DrawFabricMarkers(FabricCanvas& canvas, LabelPlaces& labels,
                       std::span<const FabricPoint* const> points, std::span<const Point> at,
                       std::span<const int> numbers) {
    std::vector<std::optional<LabelBox>> boxes(at.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const LabelBox size = canvas.BoxOf(std::to_string(numbers[i]), {}, {});
        boxes[i] = labels.TakeFirstFree(PlacesAround(at[i], kMarkerReach, size.width, size.height));
        if (boxes[i]) {
            DrawLeader(canvas, at[i], *boxes[i]);
        }
    }
    for (std::size_t i = 0; i < at.size(); ++i) {
        if (boxes[i]) {
            canvas.WriteOnWhite(*boxes[i], std::to_string(numbers[i]));
        }
    }
    for (std::size_t i = 0; i < at.size(); ++i) {
        canvas.Marker(at[i], *points[i]);
    }
}

} // namespace quandrel
