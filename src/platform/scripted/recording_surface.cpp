// SPDX-License-Identifier: MIT

#include "platform/scripted/recording_surface.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace quandrel {

namespace {

constexpr std::array<const char*, 15> kKindNames = {
    "clear",   "line",  "box",     "filled box", "circle", "arc",  "wedge", "polyline",
    "polygon", "pixel", "markers", "text",       "path",   "clip", "unclip"};

std::string NumberText(double value) {
    std::array<char, 32> buffer{};
    const double rounded = std::nearbyint(value * 1000) / 1000 + 0.0;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), rounded);
    return {buffer.data(), end.ptr};
}

std::string FontText(const FontSpec& font) {
    std::string text;
    if (!font.family.empty()) {
        text += " font " + font.family;
    }
    if (font.points != FontSpec{}.points) {
        text += " points " + NumberText(font.points);
    }
    text += font.bold ? " bold" : "";
    text += font.italic ? " italic" : "";
    return text + (font.underline ? " underline" : "");
}

std::string PointsText(const std::vector<Point>& points) {
    std::string text;
    for (const Point& point : points) {
        text += " (" + NumberText(point.x) + ", " + NumberText(point.y) + ")";
    }
    return text;
}

std::string OpacityText(const char* name, double opacity) {
    return opacity == 1 ? "" : std::string(" ") + name + " opacity " + NumberText(opacity);
}

std::string StateText(const DrawState& state) {
    std::string text;
    if (state.drawMode != kDrawCopy) {
        text += " mode " + NumberText(state.drawMode);
    }
    if (state.widthInPoints > 0) {
        text += " width " + NumberText(state.widthInPoints) + " pt";
    } else if (state.drawWidth != 1) {
        text += " width " + NumberText(state.drawWidth);
    }
    if (state.drawStyle != kSolidLine) {
        text += " style " + NumberText(state.drawStyle);
    }
    text += OpacityText("line", state.lineOpacity);
    if (state.fillStyle != kNoFill) {
        text += " fill " + NumberText(state.fillStyle) + " " + HexOf(state.fillColour);
    }
    return text + OpacityText("fill", state.fillOpacity);
}

std::size_t CharacterCount(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xc0U) != 0x80U;
    }));
}

} // namespace

std::string OperationText(const DrawOperation& operation) {
    using Kind = DrawOperation::Kind;
    std::string text = kKindNames[static_cast<std::size_t>(operation.kind)];
    text += PointsText(operation.points);
    for (const std::vector<Point>& ring : operation.rings) {
        text += " ring" + PointsText(ring);
    }
    if (operation.radius != 0) {
        text += " radius " + NumberText(operation.radius);
    }
    if (operation.start != 0 || operation.end != 0) {
        text += " from " + NumberText(operation.start) + " to " + NumberText(operation.end);
    }
    if (operation.kind == Kind::PushClip || operation.kind == Kind::PopClip) {
        return text;
    }
    text += " " + HexOf(operation.colour);
    if (operation.kind == Kind::Text) {
        return text + FontText(operation.state.font) + " '" + operation.text + "'";
    }
    text += StateText(operation.state);
    return operation.text.empty() ? text : text + " '" + operation.text + "'";
}

Point RecordingSurface::PixelSize() const {
    return {std::abs(scale_.right - scale_.left) / widthPixels_,
            std::abs(scale_.top - scale_.bottom) / heightPixels_};
}

void RecordingSurface::Clear(Colour background) {
    operations_.clear();
    glyphs_.clear();
    Record(DrawOperation::Kind::Clear, background, {});
}

DrawOperation& RecordingSurface::Record(DrawOperation::Kind kind, Colour colour,
                                        std::vector<Point> points) {
    DrawOperation operation;
    operation.kind = kind;
    operation.colour = colour;
    operation.points = std::move(points);
    operation.state = state_;
    return operations_.emplace_back(std::move(operation));
}

void RecordingSurface::Line(Point from, Point to, Colour colour) {
    Record(DrawOperation::Kind::Line, colour, {from, to});
}

void RecordingSurface::Box(Point corner, Point opposite, Colour colour) {
    Record(DrawOperation::Kind::Box, colour, {corner, opposite});
}

void RecordingSurface::FilledBox(Point corner, Point opposite, Colour colour) {
    Record(DrawOperation::Kind::FilledBox, colour, {corner, opposite});
}

void RecordingSurface::Circle(Point centre, double radius, Colour colour) {
    Record(DrawOperation::Kind::Circle, colour, {centre}).radius = radius;
}

void RecordingSurface::Arc(Point centre, double radius, double start, double end, Colour colour) {
    DrawOperation& operation = Record(DrawOperation::Kind::Arc, colour, {centre});
    operation.radius = radius;
    operation.start = start;
    operation.end = end;
}

void RecordingSurface::Wedge(Point centre, double radius, double start, double end, Colour colour) {
    DrawOperation& operation = Record(DrawOperation::Kind::Wedge, colour, {centre});
    operation.radius = radius;
    operation.start = start;
    operation.end = end;
}

void RecordingSurface::Polyline(std::span<const Point> points, Colour colour) {
    Record(DrawOperation::Kind::Polyline, colour, {points.begin(), points.end()});
}

void RecordingSurface::Polygon(std::span<const Point> points, Colour colour) {
    Record(DrawOperation::Kind::Polygon, colour, {points.begin(), points.end()});
}

void RecordingSurface::Path(std::span<const std::vector<Point>> rings, Colour colour) {
    Record(DrawOperation::Kind::Path, colour, {}).rings.assign(rings.begin(), rings.end());
}

void RecordingSurface::SetPixel(Point at, Colour colour) {
    Record(DrawOperation::Kind::Pixel, colour, {at});
}

void RecordingSurface::Markers(const Glyph& glyph, Colour colour,
                               std::span<const Point> positions) {
    Record(DrawOperation::Kind::Markers, colour, {positions.begin(), positions.end()}).text =
        glyph.name;
    glyphs_.try_emplace(glyph.name, glyph);
}

void RecordingSurface::Text(Point topLeft, std::string_view utf8) {
    Record(DrawOperation::Kind::Text, state_.foreColour, {topLeft}).text = std::string(utf8);
}

void RecordingSurface::PushClip(Point centre, double radius) {
    Record(DrawOperation::Kind::PushClip, kBlack, {centre}).radius = radius;
}

void RecordingSurface::PopClip() {
    Record(DrawOperation::Kind::PopClip, kBlack, {});
}

double RecordingSurface::TextWidth(std::string_view utf8) const {
    const double height = state_.font.points * 96 / 72;
    return 0.6 * height * static_cast<double>(CharacterCount(utf8)) * PixelSize().x;
}

double RecordingSurface::TextHeight() const {
    return state_.font.points * 96 / 72 * PixelSize().y;
}

} // namespace quandrel
