// SPDX-License-Identifier: MIT

#include "stereo/figure_symbols.h"

#include "stereo/crowd.h"
#include "stereo/symbols.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

namespace quandrel {

namespace {

using Ink = GlyphPart::Ink;

constexpr double kPixelsInMillimetre = 96 / 25.4;
constexpr double kPixelsInPoint = 96.0 / 72;
constexpr double kOpenRim = 0.16; ///< width of the rim of an open symbol, share of its size
constexpr int kFirstClassSymbol = 39;

/// The set whose start style a code is.
struct SetOfCode {
    std::size_t number = 0; ///< 0 for main rows, then overlays; classes from 0
    bool isOpen = false;    ///< of upward lines
};

std::optional<SetOfCode> SetOfStartCode(SymbolCode code) {
    static const Styles start = StartStyles();
    const auto is = [code](int row) { return CodeOfStyleRow(start, row) == code; };
    if (is(kRowSymbol) || is(kUpRowSymbol)) {
        return SetOfCode{0, is(kUpRowSymbol)};
    }
    for (int overlay = 1; overlay <= kOverlaySymbols; ++overlay) {
        if (is(kFirstOverlaySymbol + overlay % kOverlaySymbols)) {
            return SetOfCode{static_cast<std::size_t>(overlay), false};
        }
    }
    if (is(kDerivedSymbol) || is(kDerivedUpSymbol)) {
        return SetOfCode{0, is(kDerivedUpSymbol)};
    }
    for (int row = kFirstClassSymbol; row < kSymbolRowCount; ++row) {
        if (is(row)) {
            return SetOfCode{static_cast<std::size_t>(row - kFirstClassSymbol), false};
        }
    }
    return std::nullopt;
}

template <class T>
T InTurn(const std::vector<T>& list, std::size_t number, T otherwise) {
    return list.empty() ? otherwise : list[number % list.size()];
}

/// A part without an outline, enlarged.
GlyphPart Scaled(GlyphPart part, double factor, Ink ink) {
    part.ink = ink;
    part.radius *= factor;
    for (Point& point : part.points) {
        point = {point.x * factor, point.y * factor};
    }
    return part;
}

/// Half of the extent of a shape in either direction, the greater one.
double ReachOf(const Glyph& glyph) {
    double reach = 0;
    for (const GlyphPart& part : glyph.parts) {
        for (const Point& point : part.points) {
            reach =
                std::max({reach, std::abs(point.x) + part.radius, std::abs(point.y) + part.radius});
        }
    }
    return reach;
}

bool IsArea(const GlyphPart& part) {
    return part.kind == GlyphPart::Kind::Circle || part.kind == GlyphPart::Kind::Polygon;
}

/// Adds a part of a shape in its size on the surface.
void AddPart(const GlyphPart& part, double factor, bool isOpen, Glyph& glyph) {
    if (!IsArea(part)) {
        glyph.parts.push_back(Scaled(part, factor, part.ink));
        return;
    }
    glyph.parts.push_back(Scaled(part, factor, Ink::Solid));
    if (isOpen || part.ink != Ink::Filled) {
        glyph.parts.push_back(Scaled(part, factor * (1 - 2 * kOpenRim), Ink::Halo));
    }
}

/// Whether a layer has properties of symbols that differ from those of the style.
bool HasOwnSymbols(const FigureLayer* layer) {
    return layer != nullptr
           && (layer->LayerColour != kColourOfStyle || layer->LayerOpacity != kAsStyle
               || layer->LayerSymbol != kAsStyle || layer->LayerSize != kAsStyle
               || layer->LayerHalo != kAsStyle);
}

/// The symbol of a code in the size that the tables give it.
FigureSymbol SymbolOfTables(const Styles& styles, SymbolCode code, Point pixel) {
    FigureSymbol symbol;
    symbol.colour = TableColour(styles, CodeColour(code));
    symbol.shape = CodeSymbol(code);
    symbol.millimetres =
        2 * ReachOf(GlyphOfSymbol(symbol.shape, CodeSize(code), 0)) / pixel.x / kPixelsInMillimetre;
    return symbol;
}

/// Gives a symbol the properties that a layer has of its own.
void TakeLayer(const FigureLayer* layer, FigureSymbol& symbol) {
    if (layer == nullptr) {
        return;
    }
    if (layer->LayerColour != kColourOfStyle) {
        symbol.colour = ColourFromValue(static_cast<std::uint32_t>(layer->LayerColour));
    }
    if (layer->LayerSymbol != kAsStyle) {
        symbol.shape = layer->LayerSymbol;
    }
    const auto take = [](double own, double& value) { value = own != kAsStyle ? own : value; };
    take(layer->LayerOpacity, symbol.opacity);
    take(layer->LayerSize, symbol.millimetres);
    take(layer->LayerHalo, symbol.halo);
}

} // namespace

FigureSymbol SymbolInFigure(const FigureStyle& figure, const Styles& styles, SymbolCode code,
                            std::int64_t rows) {
    static const int startSize = StartStyles().symbols[kRowSymbol][kPlaceSize];
    const SymbolStyle& style = figure.symbols;
    FigureSymbol symbol;
    symbol.millimetres = SymbolSizeOf(style, rows);
    symbol.opacity = SymbolOpacityOf(style, rows);
    symbol.halo = symbol.opacity < 1 ? 0 : style.haloWidth;
    if (const std::optional<SetOfCode> set = SetOfStartCode(code)) {
        symbol.colour = InTurn(style.setColours, set->number, kBlack);
        symbol.shape = InTurn(style.setShapes, set->number, CodeSymbol(code));
        symbol.isOpen = set->isOpen;
        return symbol;
    }
    symbol.colour = TableColour(styles, CodeColour(code));
    symbol.shape = CodeSymbol(code);
    symbol.millimetres *= static_cast<double>(std::max(CodeSize(code), 1)) / startSize;
    return symbol;
}

FigureSymbol AxisInFigure(const FigureStyle& figure, const Styles& styles, FigureAxis axis) {
    constexpr double kShareOfRows = 2; // axes are larger than rows
    constexpr int kSquare = 3;
    constexpr int kStar = 13;
    static const AxisStyle start = StartStyles().axes[kBetaAxisStyle];
    const AxisStyle& style = styles.axes[kBetaAxisStyle];
    FigureSymbol symbol;
    symbol.halo = figure.symbols.haloWidth;
    symbol.millimetres = figure.symbols.size * kShareOfRows;
    if (style == start) {
        symbol.colour = figure.lines.accent;
        symbol.isOpen = axis == FigureAxis::Principal;
        symbol.shape = symbol.isOpen ? kSquare : kStar;
        // A star of the same extent looks smaller than a square.
        symbol.millimetres *= symbol.isOpen ? 1 : 1.4;
        return symbol;
    }
    symbol.colour = TableColour(styles, style[kStyleColour]);
    symbol.shape = style[kStyleSymbol];
    symbol.millimetres *= static_cast<double>(std::max<int>(style[kStyleSize], 1))
                          / std::max<int>(start[kStyleSize], 1);
    return symbol;
}

Glyph GlyphInFigure(const FigureSymbol& symbol, Point pixel) {
    const Glyph shape = GlyphOfSymbol(symbol.shape, 1, 0);
    const double reach = ReachOf(shape);
    Glyph glyph;
    if (reach == 0) {
        return shape; // a pixel
    }
    const double half = symbol.millimetres / 2 * kPixelsInMillimetre * pixel.x;
    const double factor = half / reach;
    glyph.name = (symbol.isOpen ? "open " : "solid ") + std::to_string(symbol.shape) + " "
                 + std::to_string(factor) + " " + std::to_string(symbol.halo * pixel.x);
    if (symbol.halo > 0) {
        const double wider = factor * (half + symbol.halo * kPixelsInPoint * pixel.x) / half;
        for (const GlyphPart& part : shape.parts) {
            if (IsArea(part)) {
                glyph.parts.push_back(Scaled(part, wider, Ink::Halo));
            }
        }
    }
    for (const GlyphPart& part : shape.parts) {
        AddPart(part, factor, symbol.isOpen, glyph);
    }
    return glyph;
}

double OpacityOfRows(const Drawing& drawing, std::int64_t rows) {
    if (drawing.layer != nullptr && drawing.layer->LayerOpacity != kAsStyle) {
        return drawing.layer->LayerOpacity;
    }
    const SymbolStyle& style = FigureOf(drawing).symbols;
    return style.size > 0 ? SymbolOpacityOf(style, rows) : 1;
}

void DrawRowMarkers(Surface& surface, const Drawing& drawing, std::span<const Point> places,
                    SymbolCode code, std::int64_t rows, std::int32_t onEach) {
    const FigureStyle& figure = FigureOf(drawing);
    const bool isOfTables = figure.symbols.size == 0;
    if (CodeSymbol(code) == kNoSymbol || (isOfTables && !HasOwnSymbols(drawing.layer))) {
        DrawSymbols(surface, drawing.styles, places, code);
        return;
    }
    FigureSymbol symbol = isOfTables ? SymbolOfTables(drawing.styles, code, surface.PixelSize())
                                     : SymbolInFigure(figure, drawing.styles, code, rows);
    TakeLayer(drawing.layer, symbol);
    symbol.opacity = OpacityTogether(symbol.opacity, onEach);
    DrawFigureSymbols(surface, symbol, places);
}

Colour ColourOfRows(const Drawing& drawing, SymbolCode code) {
    if (drawing.layer != nullptr && drawing.layer->LayerColour != kColourOfStyle) {
        return ColourFromValue(static_cast<std::uint32_t>(drawing.layer->LayerColour));
    }
    return FigureOf(drawing).symbols.size > 0
               ? SymbolInFigure(FigureOf(drawing), drawing.styles, code, 1).colour
               : TableColour(drawing.styles, CodeColour(code));
}

void DrawBandMarkers(Surface& surface, const Drawing& drawing, std::span<const Point> places,
                     SymbolCode code) {
    if (HasOwnSymbols(drawing.layer)) {
        FigureSymbol symbol = SymbolOfTables(drawing.styles, code, surface.PixelSize());
        TakeLayer(drawing.layer, symbol);
        DrawFigureSymbols(surface, symbol, places);
    } else {
        DrawSymbols(surface, drawing.styles, places, code);
    }
}

void DrawSlipArrow(Surface& surface, const Drawing& drawing, Point at, const SetCode& code,
                   int arrow, double angle) {
    constexpr double kLengthInSymbols = 3;
    constexpr double kLengthOfGlyph = 25; // of size 1
    const FigureStyle& figure = FigureOf(drawing);
    const bool isOfTables = figure.symbols.size == 0;
    const bool hasWidth = drawing.layer != nullptr && drawing.layer->LayerWidth != kAsStyle;
    if (isOfTables && !HasOwnSymbols(drawing.layer) && !hasWidth) {
        DrawSymbol(surface, drawing.styles, static_cast<std::int16_t>(at.x),
                   static_cast<std::int16_t>(at.y), CodeColour(code.code), arrow,
                   CodeSize(code.code), angle);
        return;
    }
    FigureSymbol symbol = isOfTables
                              ? SymbolOfTables(drawing.styles, code.code, surface.PixelSize())
                              : SymbolInFigure(figure, drawing.styles, code.code, code.rows);
    TakeLayer(drawing.layer, symbol);
    const double factor = symbol.millimetres * kLengthInSymbols * kPixelsInMillimetre
                          * surface.PixelSize().x / kLengthOfGlyph;
    Glyph glyph = GlyphOfSymbol(arrow, 1, angle);
    glyph.name += " " + std::to_string(factor);
    for (GlyphPart& part : glyph.parts) {
        part = Scaled(part, factor, part.ink);
    }
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.fillOpacity = symbol.opacity;
    state.lineOpacity = symbol.opacity;
    state.widthInPoints = hasWidth ? drawing.layer->LayerWidth : figure.lines.circleWidth;
    surface.SetState(state);
    surface.Markers(glyph, symbol.colour, std::span(&at, 1));
}

void DrawFigureSymbols(Surface& surface, const FigureSymbol& symbol,
                       std::span<const Point> places) {
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.fillOpacity = symbol.opacity;
    state.lineOpacity = symbol.opacity;
    surface.SetState(state);
    const Glyph glyph = GlyphInFigure(symbol, surface.PixelSize());
    if (!glyph.parts.empty() && !places.empty()) {
        surface.Markers(glyph, symbol.colour, places);
    }
}

void DrawAxisMarker(Surface& surface, const Drawing& drawing, Point at, FigureAxis axis) {
    const bool isOfTables = FigureOf(drawing).symbols.size == 0;
    const AxisStyle& style = drawing.styles.axes[kBetaAxisStyle];
    const SymbolCode code =
        MakeSymbolCode(style[kStyleColour], style[kStyleSymbol], style[kStyleSize]);
    if (isOfTables && !HasOwnSymbols(drawing.layer)) {
        DrawSymbols(surface, drawing.styles, std::span(&at, 1), code);
        return;
    }
    FigureSymbol symbol = isOfTables ? SymbolOfTables(drawing.styles, code, surface.PixelSize())
                                     : AxisInFigure(FigureOf(drawing), drawing.styles, axis);
    TakeLayer(drawing.layer, symbol);
    DrawFigureSymbols(surface, symbol, std::span(&at, 1));
}

} // namespace quandrel
