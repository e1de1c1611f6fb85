// SPDX-License-Identifier: MIT
//
// Markers: the shared primitive for data rows, grid symbols, legend samples and the symbol picker.

#pragma once

#include "core/style_tables.h"
#include "platform/surface.h"

#include <cstdint>
#include <span>

namespace quandrel {

/// Codes of the symbols in the table of shapes. The user chooses among them, kNoSymbol and
/// kPixelSymbol.
inline constexpr int kFirstTableSymbol = 2;
inline constexpr int kLastTableSymbol = 17;

/// Codes of the named symbols.
enum SymbolCodeNumber : int {
    kNoSymbol = 0,    ///< hides a row
    kPixelSymbol = 1, ///< one logical pixel
    kSlipArrowSymbol = 50,
    kSlipEndSymbol = 51,   ///< end mark of a downward slip arrow
    kSlipUpEndSymbol = 52, ///< end mark of an upward one
    kSlipLineSymbol = 53,  ///< a slip arrow of unknown sense: a line to both sides
    kLargeCircleSymbol = 100,
};

/// The shape of a symbol in plot units about its position; empty for code 0 and unknown codes.
///
/// @param size   0 counts as 1; the half-size is the size times a factor of the code
/// @param angle  azimuth of a slip arrow or slip line, radians; other shapes do not rotate
[[nodiscard]] Glyph GlyphOfSymbol(int symbolCode, int size, double angle);

/// Draws a symbol in the colours of a Styles. The surface's state is restored.
///
/// @param x, y         plot units
/// @param colourIndex  0 to 24; any other is refused
/// @return false when the colour was refused: nothing is drawn
bool DrawSymbol(Surface& surface, const Styles& styles, std::int16_t x, std::int16_t y,
                int colourIndex, int symbolCode, int size, double angle);

/// The same in the current colours.
inline bool DrawSymbol(Surface& surface, std::int16_t x, std::int16_t y, int colourIndex,
                       int symbolCode, int size, double angle) {
    return DrawSymbol(surface, gSettings.styles, x, y, colourIndex, symbolCode, size, angle);
}

/// Draws one style at many positions, in order.
bool DrawSymbols(Surface& surface, const Styles& styles, std::span<const Point> places,
                 SymbolCode code);

} // namespace quandrel
