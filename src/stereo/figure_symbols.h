// SPDX-License-Identifier: MIT
//
// Symbols of rows in the style of a figure: sizes in millimetres, a white halo, and the shapes and
// colours of sets where the tables have their start values.

#pragma once

#include "core/figure_style.h"
#include "core/style_tables.h"
#include "stereo/drawing.h"

#include <cstdint>
#include <span>

namespace quandrel {

/// The look of a symbol on paper.
struct FigureSymbol {
    Colour colour;
    int shape = kNoShape;   ///< symbol code of the table of shapes
    bool isOpen = false;    ///< its areas are white within a rim
    double millimetres = 0; ///< across, without the halo
    double halo = 0;        ///< points; 0 for none
    double opacity = 1;

    static constexpr int kNoShape = 0;
};

/// The look of a code among so many rows, in a style with symbols in millimetres.
///
/// A code of the start tables is the default of its set: main rows, an overlay, a class, derived
/// axes. It takes the shape and the colour of the set; those of upward main rows and of T axes are
/// open. Upward polar lines of an overlay have the code of the next overlay, and so its look.
/// Derived axes look like main rows. Any other code keeps its shape and its colour, and its size is
/// in proportion.
[[nodiscard]] FigureSymbol SymbolInFigure(const FigureStyle& figure, const Styles& styles,
                                          SymbolCode code, std::int64_t rows);

/// The shape on a surface.
///
/// @param pixel  size of a logical pixel, user units
[[nodiscard]] Glyph GlyphInFigure(const FigureSymbol& symbol, Point pixel);

/// Draws a symbol at many positions, in order.
void DrawFigureSymbols(Surface& surface, const FigureSymbol& symbol, std::span<const Point> places);

/// Draws a code at many positions, in order: in the style of the figure, or as DrawSymbols in a
/// style that keeps the sizes of the tables.
///
/// @param rows    that the set has, for the size
/// @param onEach  rows that lie on each position, 1 or more, where they can be seen through
void DrawRowMarkers(Surface& surface, const Drawing& drawing, std::span<const Point> places,
                    SymbolCode code, std::int64_t rows, std::int32_t onEach = 1);

/// The opacity of the symbols of so many rows, 0 to 1: that of the layer, or of the style.
[[nodiscard]] double OpacityOfRows(const Drawing& drawing, std::int64_t rows);

/// The colour of the great circles of a code: of its layer, of its set in the style, or of the
/// tables.
[[nodiscard]] Colour ColourOfRows(const Drawing& drawing, SymbolCode code);

/// Draws the symbol of a band of densities at many positions: in the size of the tables, unless the
/// layer has symbols of its own.
void DrawBandMarkers(Surface& surface, const Drawing& drawing, std::span<const Point> places,
                     SymbolCode code);

/// A code and the number of rows of its set.
struct SetCode {
    SymbolCode code = 0;
    std::int64_t rows = 0;
};

/// Draws the slip arrow of a row: in the colour of its set and as thin as great circles, three
/// times as long as a symbol is wide; or as DrawSymbol in a style that keeps the sizes of the
/// tables.
///
/// @param arrow  kSlipArrowSymbol, or kSlipLineSymbol for an unknown sense
/// @param angle  azimuth, radians
void DrawSlipArrow(Surface& surface, const Drawing& drawing, Point at, const SetCode& code,
                   int arrow, double angle);

/// The statistical axes of a net.
enum class FigureAxis {
    Principal, ///< the greatest eigenvector: an open square
    Fold,      ///< the pole of the best girdle: a star
};

/// The look of an axis: the accent of the style, unless the tables have another symbol than at the
/// start.
[[nodiscard]] FigureSymbol AxisInFigure(const FigureStyle& figure, const Styles& styles,
                                        FigureAxis axis);

/// Draws the symbol of an axis, in the style of the figure or of the tables.
void DrawAxisMarker(Surface& surface, const Drawing& drawing, Point at, FigureAxis axis);

} // namespace quandrel
