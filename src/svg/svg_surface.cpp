// SPDX-License-Identifier: MIT

#include "svg/svg_surface.h"

#include "svg/text_metrics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace quandrel {

namespace {

constexpr double kPixelsInAPoint = 96.0 / 72.0;
constexpr double kThinnestLine = 0.25; ///< logical pixels, as of every surface
constexpr double kThinnestGlyph = 1;

/// The angle from start to the end of an arc, above 0 and at most a full turn.
double SweepOf(double start, double end) {
    const double turn = 2 * std::numbers::pi;
    const double sweep = end - start;
    return sweep > 0 ? std::min(sweep, turn) : sweep + turn * (std::floor(-sweep / turn) + 1);
}

} // namespace

SvgSurface::SvgSurface(SvgWriter& writer, const SvgArea& area)
    : writer_(writer)
    , area_(area) {
    SetUserScale({0, 0, area.width / writer.Pixel(), -area.height / writer.Pixel()});
}

void SvgSurface::SetUserScale(const UserScale& scale) {
    scale_ = scale;
    unitsX_ = area_.width / (scale.right - scale.left);
    unitsY_ = area_.height / (scale.top - scale.bottom);
    symbols_.clear();
}

Point SvgSurface::PixelSize() const {
    return {writer_.Pixel() / std::abs(unitsX_), writer_.Pixel() / std::abs(unitsY_)};
}

Point SvgSurface::Map(Point point) const {
    return {area_.left + (point.x - scale_.left) * unitsX_,
            area_.top + (scale_.top - point.y) * unitsY_};
}

std::vector<Point> SvgSurface::Map(std::span<const Point> points) const {
    std::vector<Point> mapped(points.size());
    std::ranges::transform(points, mapped.begin(), [this](Point point) { return Map(point); });
    return mapped;
}

SvgArc SvgSurface::ArcOf(Point centre, double radius, double start, double end) const {
    // Upward in the user's units is against y of the document.
    return {Map(centre), radius * unitsX_, -radius * unitsY_, start, SweepOf(start, end)};
}

double SvgSurface::LineWidth(double leastPixels) const {
    return writer_.Pixel()
           * (state_.widthInPoints > 0 ? state_.widthInPoints * kPixelsInAPoint
                                       : std::max(state_.drawWidth, leastPixels));
}

SvgPen SvgSurface::PenOf(Colour colour) const {
    return {colour, LineWidth(kThinnestLine), state_.drawStyle, LineOpacityOf(state_)};
}

SvgFill SvgSurface::FillOf(Colour colour) const {
    return {kSolidFill, colour, FillOpacityOf(state_), {}};
}

SvgFill SvgSurface::StateFill() const {
    return {state_.fillStyle, state_.fillColour, FillOpacityOf(state_), {area_.left, area_.top}};
}

void SvgSurface::Clear(Colour background) {
    writer_.Add(
        BoxShape({area_.left, area_.top}, {area_.left + area_.width, area_.top + area_.height}),
        kNoSvgPen, {kSolidFill, background, 1, {}});
}

void SvgSurface::Line(Point from, Point to, Colour colour) {
    const std::array<Point, 2> ends = {from, to};
    Polyline(ends, colour);
}

void SvgSurface::Box(Point corner, Point opposite, Colour colour) {
    writer_.Add(BoxShape(Map(corner), Map(opposite)), PenOf(colour));
}

void SvgSurface::FilledBox(Point corner, Point opposite, Colour colour) {
    writer_.Add(BoxShape(Map(corner), Map(opposite)), PenOf(colour), FillOf(colour));
}

void SvgSurface::Circle(Point centre, double radius, Colour colour) {
    writer_.Add(EllipseShape(Map(centre), std::abs(radius * unitsX_), std::abs(radius * unitsY_)),
                PenOf(colour), StateFill());
}

void SvgSurface::Arc(Point centre, double radius, double start, double end, Colour colour) {
    writer_.Add(ArcShape(ArcOf(centre, radius, start, end)), PenOf(colour));
}

void SvgSurface::Wedge(Point centre, double radius, double start, double end, Colour colour) {
    writer_.Add(WedgeShape(ArcOf(centre, radius, start, end)), PenOf(colour), StateFill());
}

void SvgSurface::Polyline(std::span<const Point> points, Colour colour) {
    writer_.Add(LineShape(Map(points)), PenOf(colour));
}

void SvgSurface::Polygon(std::span<const Point> points, Colour colour) {
    writer_.Add(ClosedShape(Map(points)), PenOf(colour), StateFill());
}

void SvgSurface::Path(std::span<const std::vector<Point>> rings, Colour colour) {
    std::vector<std::vector<Point>> mapped;
    mapped.reserve(rings.size());
    for (const std::vector<Point>& ring : rings) {
        mapped.push_back(Map(ring));
    }
    writer_.Add(RingsShape(mapped), PenOf(colour), StateFill());
}

void SvgSurface::SetPixel(Point at, Colour colour) {
    const Point centre = Map(at);
    const double half = writer_.Pixel() / 2;
    writer_.Add(BoxShape({centre.x - half, centre.y - half}, {centre.x + half, centre.y + half}),
                kNoSvgPen, FillOf(colour));
}

SvgPart SvgSurface::PartOf(const GlyphPart& part, Colour colour) const {
    std::vector<Point> points;
    for (const Point& point : part.points) {
        points.push_back({point.x * unitsX_, -point.y * unitsY_});
    }
    SvgPart out;
    out.pen = {colour, LineWidth(kThinnestGlyph), kSolidLine, LineOpacityOf(state_),
               SvgCap::Square};
    if (part.ink != GlyphPart::Ink::Outline) {
        out.fill = FillOf(part.ink == GlyphPart::Ink::White ? kWhite : colour);
    }
    switch (part.kind) {
    case GlyphPart::Kind::Pixel: {
        const double half = writer_.Pixel() / 2;
        const Point at = points.at(0);
        out.shape = BoxShape({at.x - half, at.y - half}, {at.x + half, at.y + half});
        out.pen = kNoSvgPen;
        out.fill = FillOf(colour);
        break;
    }
    case GlyphPart::Kind::Polyline:
        out.shape = LineShape(points);
        out.fill = {};
        break;
    case GlyphPart::Kind::Polygon:
        out.shape = ClosedShape(points);
        break;
    case GlyphPart::Kind::Circle:
        out.shape = EllipseShape(points.at(0), std::abs(part.radius * unitsX_),
                                 std::abs(part.radius * unitsY_));
        break;
    }
    return out;
}

const std::string& SvgSurface::SymbolOf(const Glyph& glyph, Colour colour) {
    std::string& symbol = symbols_[{glyph.name, ColourValue(colour), LineWidth(kThinnestGlyph),
                                    LineOpacityOf(state_), FillOpacityOf(state_)}];
    if (symbol.empty()) {
        std::vector<SvgPart> parts;
        for (const GlyphPart& part : glyph.parts) {
            parts.push_back(PartOf(part, colour));
        }
        symbol = writer_.Symbol(parts);
    }
    return symbol;
}

void SvgSurface::Markers(const Glyph& glyph, Colour colour, std::span<const Point> positions) {
    if (glyph.parts.empty() || positions.empty()) {
        return;
    }
    const bool isOpaque = LineOpacityOf(state_) == 1 && FillOpacityOf(state_) == 1;
    writer_.Use(SymbolOf(glyph, colour), Map(positions),
                isOpaque ? SvgRepeats::Last : SvgRepeats::All);
}

double SvgSurface::FontSize() const {
    return state_.font.points * kPixelsInAPoint * writer_.Pixel();
}

void SvgSurface::Text(Point topLeft, std::string_view utf8) {
    const Point corner = Map(topLeft);
    const FontSpec& font = state_.font;
    writer_.Text({corner.x, corner.y + AscentInEms() * FontSize()}, utf8,
                 {font.family, FontSize(), font.bold, font.italic, font.underline},
                 state_.foreColour);
}

void SvgSurface::PushClip(Point centre, double radius) {
    writer_.PushClip(Map(centre), std::abs(radius * unitsX_), std::abs(radius * unitsY_));
}

void SvgSurface::PopClip() {
    writer_.PopClip();
}

void SvgSurface::BeginGroup(std::string_view id, std::string_view title) {
    writer_.BeginGroup(id, title);
}

void SvgSurface::EndGroup() {
    writer_.EndGroup();
}

double SvgSurface::TextWidth(std::string_view utf8) const {
    return WidthInEms(utf8, state_.font.bold) * FontSize() / std::abs(unitsX_);
}

double SvgSurface::TextHeight() const {
    return (AscentInEms() + DescentInEms()) * FontSize() / std::abs(unitsY_);
}

} // namespace quandrel
