// SPDX-License-Identifier: MIT

#include "quandrel/svg.h"

#include "platform/surface.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

namespace quandrel::api {

namespace {

/// From the top of a line of text to its base, in heights.
constexpr double kAscent = 0.8;

constexpr const char* kClipEnd = "</g>\n";

std::string NumberText(double value) {
    std::array<char, 400> buffer{};
    const double rounded = std::nearbyint(value * 1000) / 1000 + 0.0;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), rounded,
                                   std::chars_format::fixed);
    return {buffer.data(), end.ptr};
}

std::string Attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + value + "\"";
}

std::string Attribute(const char* name, double value) {
    return Attribute(name, NumberText(value));
}

std::string HexOf(Colour colour) {
    return quandrel::HexOf({colour.red, colour.green, colour.blue});
}

std::string PlaceText(Point point) {
    return NumberText(point.x) + " " + NumberText(point.y);
}

std::string PathOf(std::span<const Point> points) {
    std::string path;
    for (const Point& point : points) {
        path += (path.empty() ? "M" : "L") + PlaceText(point);
    }
    return path;
}

/// The opacity of a "fill" or "stroke", left out where nothing shows through.
std::string OpacityOf(const char* name, double opacity) {
    return opacity == 1 ? "" : Attribute(name, std::clamp(opacity, 0.0, 1.0));
}

std::string WidthText(const Pen& pen) {
    return pen.points > 0 ? NumberText(pen.points) + "pt" : NumberText(std::max(pen.width, 0.25));
}

Point AtAngle(Point centre, double radius, double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    return {centre.x + radius * std::sin(angle), centre.y - radius * std::cos(angle)};
}

/// Half a sweep at a time, since no arc of SVG ends where it begins.
std::string ArcPath(Point centre, double radius, double from, double sweep) {
    std::string path = "M" + PlaceText(AtAngle(centre, radius, from));
    for (const double end : {from + sweep / 2, from + sweep}) {
        path += "A" + NumberText(radius) + " " + NumberText(radius) + " 0 0 1 "
                + PlaceText(AtAngle(centre, radius, end));
    }
    return path;
}

std::string PathShape(const std::string& path) {
    return "<path" + Attribute("d", path);
}

std::string CircleShape(Point centre, double radius) {
    return "<circle" + Attribute("cx", centre.x) + Attribute("cy", centre.y)
           + Attribute("r", radius);
}

/// The dashes of a line in pixels, or nothing for a solid one.
const char* DashesOf(Dash dash) {
    switch (dash) {
    case Dash::kDashed:
        return "4 2";
    case Dash::kDotted:
        return "1 2";
    case Dash::kDashDot:
        return "4 2 1 2";
    case Dash::kDashDotDot:
        return "4 2 1 2 1 2";
    case Dash::kSolid:
    case Dash::kNone:
        break;
    }
    return "";
}

std::string StrokeOf(const Pen& pen) {
    if (pen.dash == Dash::kNone) {
        return Attribute("stroke", "none");
    }
    std::string stroke = Attribute("stroke", "#" + HexOf(pen.colour));
    stroke += OpacityOf("stroke-opacity", pen.opacity) + Attribute("stroke-width", WidthText(pen));
    const std::string dashes = DashesOf(pen.dash);
    return dashes.empty() ? stroke : stroke + Attribute("stroke-dasharray", dashes);
}

/// The lines of a hatch in a tile of 6 by 6 pixels.
const char* TileOf(Pattern pattern) {
    switch (pattern) {
    case Pattern::kHorizontal:
        return "M0 3H6";
    case Pattern::kVertical:
        return "M3 0V6";
    case Pattern::kUpward:
        return "M-1 1L1 -1M-1 7L7 -1M5 7L7 5";
    case Pattern::kDownward:
        return "M-1 5L1 7M-1 -1L7 7M5 -1L7 1";
    case Pattern::kCross:
        return "M0 3H6M3 0V6";
    case Pattern::kDiagonalCross:
        return "M-1 -1L7 7M-1 7L7 -1";
    case Pattern::kSolid:
    case Pattern::kNone:
        break;
    }
    return "";
}

/// A text with what XML reads otherwise written as references. Control characters are left out.
std::string Escaped(std::string_view utf8) {
    std::string text;
    for (const char c : utf8) {
        if (c == '&') {
            text += "&amp;";
        } else if (c == '<') {
            text += "&lt;";
        } else if (c == '"') {
            text += "&quot;";
        } else if (static_cast<unsigned char>(c) >= 0x20U) {
            text += c;
        }
    }
    return text;
}

} // namespace

std::string SvgPicture::Document() const {
    const std::string box = "0 0 " + NumberText(size_.width) + " " + NumberText(size_.height);
    std::string ends; // of clips that a drawing in progress has not ended
    for (int clip = 0; clip < openClips_; ++clip) {
        ends += kClipEnd;
    }
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\""
           + Attribute("width", size_.width) + Attribute("height", size_.height)
           + Attribute("viewBox", box) + ">\n" + body_ + ends + "</svg>\n";
}

/// The paint of a fill. A hatch is defined where it is first used.
std::string SvgPicture::PaintOf(const Fill& fill) {
    if (fill.pattern == Pattern::kNone) {
        return "none";
    }
    const std::string colour = HexOf(fill.colour);
    if (fill.pattern == Pattern::kSolid) {
        return "#" + colour;
    }
    const std::string name =
        "hatch" + std::to_string(static_cast<int>(fill.pattern)) + "-" + colour;
    if (defined_.insert(name).second) {
        body_ += "<pattern" + Attribute("id", name)
                 + " width=\"6\" height=\"6\" patternUnits=\"userSpaceOnUse\">"
                 + PathShape(TileOf(fill.pattern)) + Attribute("stroke", "#" + colour)
                 + "/></pattern>\n";
    }
    return "url(#" + name + ")";
}

void SvgPicture::Add(const std::string& shape, const Pen& pen, const Fill& fill) {
    const std::string paint = PaintOf(fill);
    body_ += shape + Attribute("fill", paint)
             + (fill.pattern == Pattern::kNone ? "" : OpacityOf("fill-opacity", fill.opacity))
             + StrokeOf(pen) + "/>\n";
}

void SvgPicture::Clear(Colour background) {
    body_.clear();
    openClips_ = 0;
    defined_.clear();
    const std::array<Point, 4> corners{
        {{0, 0}, {size_.width, 0}, {size_.width, size_.height}, {0, size_.height}}};
    Polygon(corners, {{}, 1, Dash::kNone}, {Pattern::kSolid, background});
}

void SvgPicture::Polyline(std::span<const Point> points, const Pen& pen) {
    Add(PathShape(PathOf(points)), pen, {});
}

void SvgPicture::Polygon(std::span<const Point> points, const Pen& pen, const Fill& fill) {
    Add(PathShape(PathOf(points) + "Z"), pen, fill);
}

void SvgPicture::Path(std::span<const std::vector<Point>> rings, const Pen& pen, const Fill& fill) {
    std::string path;
    for (const std::vector<Point>& ring : rings) {
        path += ring.empty() ? "" : PathOf(ring) + "Z";
    }
    Add(PathShape(path) + Attribute("fill-rule", "evenodd"), pen, fill);
}

void SvgPicture::Circle(Point centre, double radius, const Pen& pen, const Fill& fill) {
    Add(CircleShape(centre, radius), pen, fill);
}

void SvgPicture::Arc(Point centre, double radius, double from, double sweep, const Pen& pen) {
    Add(PathShape(ArcPath(centre, radius, from, sweep)), pen, {});
}

void SvgPicture::Wedge(Point centre, double radius, double from, double sweep, const Pen& pen,
                       const Fill& fill) {
    Add(PathShape(ArcPath(centre, radius, from, sweep) + "L" + PlaceText(centre) + "Z"), pen, fill);
}

void SvgPicture::Text(Point topLeft, std::string_view utf8, const Font& font, Colour colour) {
    const double height = TextHeight(font);
    const std::string family = font.family.empty() ? "sans-serif" : Escaped(font.family);
    body_ += "<text xml:space=\"preserve\"" + Attribute("x", topLeft.x)
             + Attribute("y", topLeft.y + kAscent * height) + Attribute("font-family", family)
             + Attribute("font-size", height) + (font.bold ? " font-weight=\"bold\"" : "")
             + (font.italic ? " font-style=\"italic\"" : "")
             + (font.underline ? " text-decoration=\"underline\"" : "")
             + Attribute("fill", "#" + HexOf(colour)) + ">" + Escaped(utf8) + "</text>\n";
}

void SvgPicture::PushClip(Point centre, double radius) {
    const std::string name =
        "clip" + NumberText(centre.x) + "_" + NumberText(centre.y) + "_" + NumberText(radius);
    if (defined_.insert(name).second) {
        body_ += "<clipPath" + Attribute("id", name) + ">" + CircleShape(centre, radius)
                 + "/></clipPath>\n";
    }
    body_ += "<g" + Attribute("clip-path", "url(#" + name + ")") + ">\n";
    ++openClips_;
}

void SvgPicture::PopClip() {
    if (openClips_ > 0) {
        body_ += kClipEnd;
        --openClips_;
    }
}

double SvgPicture::TextWidth(std::string_view utf8, const Font& font) const {
    return EstimatedTextWidth(utf8, font);
}

double SvgPicture::TextHeight(const Font& font) const {
    return EstimatedTextHeight(font);
}

} // namespace quandrel::api
