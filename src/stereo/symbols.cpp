// SPDX-License-Identifier: MIT

#include "stereo/symbols.h"

#include "orientation/angles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <map>
#include <mutex>
#include <utility>

namespace quandrel {

namespace {

using Ink = GlyphPart::Ink;
using Kind = GlyphPart::Kind;

GlyphPart CirclePart(double radius, Ink ink) {
    return {Kind::Circle, ink, {{0, 0}}, radius};
}

GlyphPart PolygonPart(std::vector<Point> points, Ink ink) {
    return {Kind::Polygon, ink, std::move(points), 0};
}

GlyphPart LinePart(Point from, Point to) {
    return {Kind::Polyline, Ink::Outline, {from, to}, 0};
}

GlyphPart SquarePart(double h, Ink ink) {
    return PolygonPart({{-h, -h}, {h, -h}, {h, h}, {-h, h}}, ink);
}

/// A plus with arms of width 2h and length 3h.
GlyphPart PlusPart(double h, Ink ink) {
    return PolygonPart({{-h, 3 * h},
                        {h, 3 * h},
                        {h, h},
                        {3 * h, h},
                        {3 * h, -h},
                        {h, -h},
                        {h, -3 * h},
                        {-h, -3 * h},
                        {-h, -h},
                        {-3 * h, -h},
                        {-3 * h, h},
                        {-h, h}},
                       ink);
}

/// An upright triangle about its centroid, of half-width h / 2; `sign` -1 turns it upside down.
GlyphPart TrianglePart(double h, double sign, Ink ink) {
    const double halfWidth = h / 2;
    const double height = halfWidth * std::sqrt(3.0);
    return PolygonPart({{0, sign * height * 2 / 3},
                        {halfWidth, -sign * height / 3},
                        {-halfWidth, -sign * height / 3}},
                       ink);
}

GlyphPart DiamondPart(double h, Ink ink) {
    return PolygonPart({{0, 1.3 * h}, {h, 0}, {0, -1.3 * h}, {-h, 0}}, ink);
}

/// A star with `tips` tips between two radii, the first tip up.
GlyphPart StarPart(int tips, double outer, double inner, Ink ink) {
    std::vector<Point> points;
    for (int i = 0; i < 2 * tips; ++i) {
        const double radius = i % 2 == 0 ? outer : inner;
        const double azimuth = i * kPi / tips;
        points.push_back({radius * std::sin(azimuth), radius * std::cos(azimuth)});
    }
    return PolygonPart(std::move(points), ink);
}

/// A compass mark: a four-tipped star over a ring, with an arrow head in the north.
std::vector<GlyphPart> CompassParts(double h) {
    return {CirclePart(1.5 * h, Ink::Outline),
            StarPart(4, 2.6 * h, 0.6 * h, Ink::White),
            PolygonPart({{0, 2.6 * h}, {0.42 * h, 0.42 * h}, {0, 0}}, Ink::Filled),
            PolygonPart({{2.6 * h, 0}, {0.42 * h, -0.42 * h}, {0, 0}}, Ink::Filled),
            PolygonPart({{0, -2.6 * h}, {-0.42 * h, -0.42 * h}, {0, 0}}, Ink::Filled),
            PolygonPart({{-2.6 * h, 0}, {-0.42 * h, 0.42 * h}, {0, 0}}, Ink::Filled),
            PolygonPart({{0, 3.3 * h}, {0.4 * h, 2.7 * h}, {-0.4 * h, 2.7 * h}}, Ink::Filled)};
}

constexpr double kArrowLength = 25;
constexpr double kArrowHead = 8;

/// A line from the position along an azimuth, with a filled head at its end.
std::vector<GlyphPart> ArrowParts(double size, double azimuth) {
    const Point along{std::sin(azimuth), std::cos(azimuth)};
    const Point across{along.y, -along.x};
    const double length = kArrowLength * size;
    const double head = kArrowHead * size;
    const auto at = [&](double forward, double sideways) {
        return Point{forward * along.x + sideways * across.x,
                     forward * along.y + sideways * across.y};
    };
    return {LinePart({0, 0}, at(length - head / 2, 0)),
            PolygonPart({at(length, 0), at(length - head, head / 3), at(length - head, -head / 3)},
                        Ink::Filled)};
}

/// A line of an arrow's length to both sides of the position, without a sense.
std::vector<GlyphPart> SlipLineParts(double size, double azimuth) {
    const double reach = kArrowLength * size / 2;
    const Point along{reach * std::sin(azimuth), reach * std::cos(azimuth)};
    return {LinePart({-along.x, -along.y}, along)};
}

/// Whether a symbol is rotated by an angle.
bool IsTurned(int symbolCode) {
    return symbolCode == kSlipArrowSymbol || symbolCode == kSlipLineSymbol;
}

/// The mark at the end of a slip arrow: a broad ring with a bar, or if upward a narrow one with a
/// cross.
std::vector<GlyphPart> SlipEndParts(double h, bool upward) {
    std::vector<GlyphPart> parts = {CirclePart(5 * h, upward ? Ink::White : Ink::Filled),
                                    CirclePart(3 * h, Ink::White),
                                    LinePart({-3 * h, 0}, {3 * h, 0})};
    if (upward) {
        parts.push_back(LinePart({0, -3 * h}, {0, 3 * h}));
    }
    return parts;
}

using Parts = std::vector<GlyphPart>;

/// The shapes of the symbols from kFirstTableSymbol to kLastTableSymbol, by their size.
constexpr auto kTableShapes = std::to_array<Parts (*)(double)>({
    [](double s) { return Parts{CirclePart(4 * s, Ink::Filled)}; },
    [](double s) { return Parts{SquarePart(4 * s, Ink::Filled)}; },
    [](double s) { return Parts{PlusPart(2 * s, Ink::Filled)}; },
    [](double s) { return Parts{CirclePart(5 * s, Ink::White)}; },
    [](double s) {
        return Parts{CirclePart(5 * s, Ink::White), CirclePart(2.5 * s, Ink::Filled)};
    },
    [](double s) { return Parts{CirclePart(4 * s, Ink::Outline)}; },
    [](double s) { return Parts{SquarePart(4 * s, Ink::Outline)}; },
    [](double s) { return Parts{PlusPart(2 * s, Ink::Outline)}; },
    [](double s) { return Parts{TrianglePart(8 * s, 1, Ink::Filled)}; },
    [](double s) { return Parts{TrianglePart(8 * s, -1, Ink::Filled)}; },
    [](double s) { return Parts{DiamondPart(4 * s, Ink::Filled)}; },
    [](double s) { return Parts{StarPart(5, 6 * s, 2.4 * s, Ink::Filled)}; },
    [](double s) {
        return Parts{LinePart({-5 * s, -5 * s}, {5 * s, 5 * s})};
    },
    [](double s) {
        return Parts{LinePart({-5 * s, 5 * s}, {5 * s, -5 * s})};
    },
    [](double s) {
        return Parts{LinePart({-5 * s / 1.4, -5 * s / 1.4}, {5 * s / 1.4, 5 * s / 1.4}),
                     LinePart({-5 * s / 1.4, 5 * s / 1.4}, {5 * s / 1.4, -5 * s / 1.4})};
    },
    [](double s) { return CompassParts(3 * s); },
});
static_assert(kTableShapes.size() == kLastTableSymbol - kFirstTableSymbol + 1,
              "each code of the table has one shape");

/// The parts of a named symbol; none for other codes.
Parts PartsOfNamed(int symbolCode, double size, double angle) {
    switch (symbolCode) {
    case kPixelSymbol:
        return {{Kind::Pixel, Ink::Filled, {{0, 0}}, 0}};
    case kSlipArrowSymbol:
        return ArrowParts(size, angle);
    case kSlipLineSymbol:
        return SlipLineParts(size, angle);
    case kSlipEndSymbol:
        return SlipEndParts(size, false);
    case kSlipUpEndSymbol:
        return SlipEndParts(size, true);
    case kLargeCircleSymbol:
        return {CirclePart(100, Ink::Outline)};
    default:
        return {};
    }
}

Parts PartsOf(int symbolCode, double size, double angle) {
    if (symbolCode < kFirstTableSymbol || symbolCode > kLastTableSymbol) {
        return PartsOfNamed(symbolCode, size, angle);
    }
    return kTableShapes[static_cast<std::size_t>(symbolCode - kFirstTableSymbol)](size);
}

/// Glyphs that do not rotate, made once each. Their addresses are stable, so that one thread may
/// use a glyph while another makes the next.
const Glyph& KnownGlyph(int symbolCode, int size) {
    static std::mutex mutex;
    static std::map<std::pair<int, int>, Glyph> known;
    const std::lock_guard lock(mutex);
    const auto [place, isNew] = known.try_emplace({symbolCode, size});
    if (isNew) {
        place->second = GlyphOfSymbol(symbolCode, size, 0);
    }
    return place->second;
}

bool IsColour(int index) {
    return index >= 0 && index < kColourCount;
}

} // namespace

Glyph GlyphOfSymbol(int symbolCode, int size, double angle) {
    const int drawnSize = std::max(size, 1);
    std::string name = std::to_string(symbolCode) + "/" + std::to_string(drawnSize);
    if (IsTurned(symbolCode)) {
        // All digits, so that glyphs of the same name have the same shape.
        std::array<char, 32> digits{};
        name.append("/").append(
            digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), angle).ptr);
    }
    return {std::move(name), PartsOf(symbolCode, drawnSize, angle)};
}

bool DrawSymbol(Surface& surface, const Styles& styles, std::int16_t x, std::int16_t y,
                int colourIndex, int symbolCode, int size, double angle) {
    const Point at{static_cast<double>(x), static_cast<double>(y)};
    if (!IsColour(colourIndex)) {
        return false;
    }
    const Colour colour = TableColour(styles, colourIndex);
    if (IsTurned(symbolCode)) {
        surface.Markers(GlyphOfSymbol(symbolCode, size, angle), colour, std::span(&at, 1));
        return true;
    }
    const Glyph& glyph = KnownGlyph(symbolCode, size);
    if (!glyph.parts.empty()) {
        surface.Markers(glyph, colour, std::span(&at, 1));
    }
    return true;
}

bool DrawSymbols(Surface& surface, const Styles& styles, std::span<const Point> places,
                 SymbolCode code) {
    if (!IsColour(CodeColour(code))) {
        return false;
    }
    const Glyph& glyph = KnownGlyph(CodeSymbol(code), CodeSize(code));
    if (!glyph.parts.empty() && !places.empty()) {
        surface.Markers(glyph, TableColour(styles, CodeColour(code)), places);
    }
    return true;
}

} // namespace quandrel
