// SPDX-License-Identifier: MIT

#include "border/inner_surface.h"

#include "border/border.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quandrel::api {

namespace {

constexpr double kWholeTurn = 360;

Colour ColourOut(quandrel::Colour colour) {
    return {colour.red, colour.green, colour.blue};
}

/// A box by its corners.
std::array<Point, 4> CornersOf(Point a, Point b) {
    return {{a, {b.x, a.y}, b, {a.x, b.y}}};
}

/// A square of one pixel.
std::array<Point, 4> PixelAt(Point at) {
    return CornersOf({at.x - 0.5, at.y - 0.5}, {at.x + 0.5, at.y + 0.5});
}

constexpr Pen kNoOutline{{}, 1, Dash::kNone};

/// What goes counter-clockwise from a start to an end, as an azimuth and a sweep clockwise from it.
struct Turn {
    double from = 0;
    double sweep = kWholeTurn;
};

Turn TurnOf(double start, double end) {
    const double sweep = std::fmod(end - start, kTwoPi);
    return {AzimuthOut(kPi / 2 - end), RadToDeg(sweep > 0 ? sweep : sweep + kTwoPi)};
}

Fill FillOf(GlyphPart::Ink ink, Colour colour, double opacity) {
    switch (ink) {
    case GlyphPart::Ink::Filled:
    case GlyphPart::Ink::Solid:
        return {Pattern::kSolid, colour, opacity};
    case GlyphPart::Ink::White:
    case GlyphPart::Ink::Halo:
        return {Pattern::kSolid, ColourOut(kWhite), opacity};
    case GlyphPart::Ink::Outline:
        break;
    }
    return {};
}

} // namespace

quandrel::Point InnerSurface::PixelSize() const {
    return {std::abs(scale_.right - scale_.left) / area_.width,
            std::abs(scale_.top - scale_.bottom) / area_.height};
}

Point InnerSurface::Out(quandrel::Point point) const {
    return {area_.left + (point.x - scale_.left) / (scale_.right - scale_.left) * area_.width,
            area_.top + (scale_.top - point.y) / (scale_.top - scale_.bottom) * area_.height};
}

std::vector<Point> InnerSurface::Out(std::span<const quandrel::Point> points) const {
    std::vector<Point> out(points.size());
    std::ranges::transform(points, out.begin(),
                           [this](quandrel::Point point) { return Out(point); });
    return out;
}

Pen InnerSurface::PenOf(quandrel::Colour colour) const {
    return {ColourOut(colour), state_.drawWidth, static_cast<Dash>(state_.drawStyle),
            state_.widthInPoints, LineOpacityOf(state_)};
}

Fill InnerSurface::StateFill() const {
    return state_.fillStyle == kNoFill ? Fill{}
                                       : Fill{static_cast<Pattern>(state_.fillStyle),
                                              ColourOut(state_.fillColour), FillOpacityOf(state_)};
}

Font InnerSurface::StateFont() const {
    const FontSpec& font = state_.font;
    return {font.family, font.points, font.bold, font.italic, font.underline};
}

void InnerSurface::Clear(quandrel::Colour background) {
    onto_.Clear(ColourOut(background));
}

void InnerSurface::Line(quandrel::Point from, quandrel::Point to, quandrel::Colour colour) {
    const std::array<Point, 2> ends{{Out(from), Out(to)}};
    onto_.Polyline(ends, PenOf(colour));
}

void InnerSurface::Box(quandrel::Point corner, quandrel::Point opposite, quandrel::Colour colour) {
    onto_.Polygon(CornersOf(Out(corner), Out(opposite)), PenOf(colour), {});
}

void InnerSurface::FilledBox(quandrel::Point corner, quandrel::Point opposite,
                             quandrel::Colour colour) {
    onto_.Polygon(CornersOf(Out(corner), Out(opposite)), PenOf(colour),
                  {Pattern::kSolid, ColourOut(colour), FillOpacityOf(state_)});
}

void InnerSurface::Circle(quandrel::Point centre, double radius, quandrel::Colour colour) {
    onto_.Circle(Out(centre), radius / PixelSize().x, PenOf(colour), StateFill());
}

void InnerSurface::Arc(quandrel::Point centre, double radius, double start, double end,
                       quandrel::Colour colour) {
    const Turn turn = TurnOf(start, end);
    onto_.Arc(Out(centre), radius / PixelSize().x, turn.from, turn.sweep, PenOf(colour));
}

void InnerSurface::Wedge(quandrel::Point centre, double radius, double start, double end,
                         quandrel::Colour colour) {
    const Turn turn = TurnOf(start, end);
    onto_.Wedge(Out(centre), radius / PixelSize().x, turn.from, turn.sweep, PenOf(colour),
                StateFill());
}

void InnerSurface::Polyline(std::span<const quandrel::Point> points, quandrel::Colour colour) {
    onto_.Polyline(Out(points), PenOf(colour));
}

void InnerSurface::Polygon(std::span<const quandrel::Point> points, quandrel::Colour colour) {
    onto_.Polygon(Out(points), PenOf(colour), StateFill());
}

void InnerSurface::Path(std::span<const std::vector<quandrel::Point>> rings,
                        quandrel::Colour colour) {
    std::vector<std::vector<Point>> out;
    for (const std::vector<quandrel::Point>& ring : rings) {
        out.push_back(Out(ring));
    }
    onto_.Path(out, PenOf(colour), StateFill());
}

void InnerSurface::SetPixel(quandrel::Point at, quandrel::Colour colour) {
    onto_.Polygon(PixelAt(Out(at)), kNoOutline,
                  {Pattern::kSolid, ColourOut(colour), FillOpacityOf(state_)});
}

MarkerPart InnerSurface::PartOf(const GlyphPart& part, Colour colour) const {
    const quandrel::Point pixel = PixelSize();
    MarkerPart out;
    for (const quandrel::Point& point : part.points) {
        out.points.push_back({point.x / pixel.x, -point.y / pixel.y});
    }
    const double fillOpacity = FillOpacityOf(state_);
    out.pen = {colour, std::max(state_.drawWidth, 1.0), Dash::kSolid, state_.widthInPoints,
               LineOpacityOf(state_)};
    out.fill = FillOf(part.ink, colour, fillOpacity);
    if (part.ink == GlyphPart::Ink::Solid || part.ink == GlyphPart::Ink::Halo) {
        out.pen = kNoOutline;
    }
    switch (part.kind) {
    case GlyphPart::Kind::Pixel: {
        const std::array<Point, 4> square = PixelAt(out.points.at(0));
        out.points.assign(square.begin(), square.end());
        out.kind = MarkerPart::Kind::kShape;
        out.pen = kNoOutline;
        out.fill = {Pattern::kSolid, colour, fillOpacity};
        break;
    }
    case GlyphPart::Kind::Polyline:
        out.kind = MarkerPart::Kind::kLine;
        out.fill = {};
        break;
    case GlyphPart::Kind::Polygon:
        out.kind = MarkerPart::Kind::kShape;
        break;
    case GlyphPart::Kind::Circle:
        out.kind = MarkerPart::Kind::kCircle;
        out.radius = part.radius / pixel.x;
        break;
    }
    return out;
}

void InnerSurface::Markers(const Glyph& glyph, quandrel::Colour colour,
                           std::span<const quandrel::Point> positions) {
    Marker marker;
    for (const GlyphPart& part : glyph.parts) {
        marker.parts.push_back(PartOf(part, ColourOut(colour)));
    }
    onto_.Markers(marker, Out(positions));
}

void InnerSurface::Text(quandrel::Point topLeft, std::string_view utf8) {
    onto_.Text(Out(topLeft), utf8, StateFont(), ColourOut(state_.foreColour));
}

void InnerSurface::PushClip(quandrel::Point centre, double radius) {
    onto_.PushClip(Out(centre), radius / PixelSize().x);
}

void InnerSurface::PopClip() {
    onto_.PopClip();
}

void InnerSurface::BeginGroup(std::string_view id, std::string_view title) {
    onto_.BeginGroup(id, title);
}

void InnerSurface::EndGroup() {
    onto_.EndGroup();
}

double InnerSurface::TextWidth(std::string_view utf8) const {
    return onto_.TextWidth(utf8, StateFont()) * PixelSize().x;
}

double InnerSurface::TextHeight() const {
    return onto_.TextHeight(StateFont()) * PixelSize().y;
}

} // namespace quandrel::api
