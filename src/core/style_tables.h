// SPDX-License-Identifier: MIT
//
// The shared style tables: colours, and the styles of symbols and lines that refer to them.

#pragma once

#include "platform/surface.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

inline constexpr int kColourCount = 25;
inline constexpr int kSymbolRowCount = 51;

/// 24-bit colours, red in the low byte.
extern std::array<std::uint32_t, kColourCount> gColourTable;

/// Places of a row of gSymbolTable.
enum SymbolPlace : int { kPlaceColour = 0, kPlaceSymbol = 1, kPlaceSize = 2 };

using SymbolRow = std::array<std::int16_t, 3>;

/// Styles, indexed [row][place]: colour index, symbol code, size. Row 0 is the symbol of a row, row
/// 1 of one with an upward line, rows 2 to 9 of overlays, 10 to 15 of density bands, 19 and 20 of
/// derived axes, 39 to 50 of classes.
extern std::array<SymbolRow, kSymbolRowCount> gSymbolTable;

inline constexpr int kRowSymbol = 0;
inline constexpr int kUpRowSymbol = 1;
inline constexpr int kFirstOverlaySymbol = 2;
inline constexpr int kOverlaySymbols = 7;
inline constexpr int kFirstBandSymbol = 10;
inline constexpr int kLastBandSymbol = 15;
inline constexpr int kRoseStyle = 16;           ///< wedges of a rose: colour and fill style
inline constexpr int kRoseBackgroundStyle = 17; ///< its blank parts; in the symbol's place the
                                                ///< colour of outlines
inline constexpr int kFirstRoseClassStyle = 24; ///< fills of the classes of a rose
inline constexpr int kOverlaidRoseStyle = 38;   ///< fill of overlaid rose i is row 38 - i
inline constexpr int kDerivedSymbol = 19;
inline constexpr int kDerivedUpSymbol = 20;

/// Style of a computed axis, a girdle or a small circle: colour index, then draw style and draw
/// width of a line, or symbol code and size of a point.
using AxisStyle = std::array<std::int16_t, 3>;

/// Rows of gAxisStyleTable.
enum AxisStyleRow : int {
    kBetaAxisStyle = 0,
    kMeanGirdleStyle = 1,
    kUserGirdleStyle = 2,
    kCalculatedGirdleStyle = 3,
    kSmallCircleStyle = 4,
};

extern std::array<AxisStyle, 5> gAxisStyleTable;

inline constexpr int kContourStyles = 6;

/// Styles of density contours, by level: colour index, draw style, draw width. Levels beyond take
/// the last.
extern std::array<AxisStyle, kContourStyles> gContourStyleTable;

/// Fills the tables with what the program starts with.
void BuildStyleTables();

/// The colour of an index 0 to 24. An index outside is a mistake of the caller and gives black.
[[nodiscard]] Colour TableColour(int index);

/// A drawing code: colour index, symbol code and size, each 0 to 99, in one number. From outside it
/// is six digits, two each.
using SymbolCode = std::uint32_t;

[[nodiscard]] constexpr SymbolCode MakeSymbolCode(int colour, int symbol, int size) {
    return static_cast<SymbolCode>(colour * 10000 + symbol * 100 + size);
}

[[nodiscard]] constexpr int CodeColour(SymbolCode code) {
    return static_cast<int>(code / 10000);
}

[[nodiscard]] constexpr int CodeSymbol(SymbolCode code) {
    return static_cast<int>(code / 100 % 100);
}

[[nodiscard]] constexpr int CodeSize(SymbolCode code) {
    return static_cast<int>(code % 100);
}

/// The code of a row of gSymbolTable.
[[nodiscard]] SymbolCode CodeOfStyleRow(int row);

/// The six digits of a code.
[[nodiscard]] std::string SymbolCodeText(SymbolCode code);

/// The code of six digits, or nothing when the text is anything else.
[[nodiscard]] std::optional<SymbolCode> SymbolCodeFromText(std::string_view text);

} // namespace quandrel
