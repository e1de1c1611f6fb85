// SPDX-License-Identifier: MIT

#include "core/style_tables.h"

#include <algorithm>
#include <cctype>

namespace quandrel {

Settings gSettings;

namespace {

constexpr std::array<std::uint32_t, kColourCount> kStartColours = {
    0xffffff, 0xffffff, 0xc0c0c0, 0x808080, 0x404040, 0,        128,      192,      255,
    16576,    33023,    49344,    65535,    0x80ffff, 65280,    49152,    0xffff00, 0xc0c000,
    0x808000, 0xff0000, 0xbb0000, 0x800000, 0xff00ff, 0xc000c0, 0x800080,
};

// Overlays differ in colour and in shape, so that they remain distinct in black and white. The row
// after an overlay's own is for its upward lines. Density bands run from small and grey to large
// and warm. Rows 24 to 38 are fills of roses: their second number is a pattern, 0 solid. Classes
// have full colours and one shape until the colours run out.
constexpr std::array<SymbolRow, kSymbolRowCount> kStartSymbols = {{
    {5, 3, 2}, // 0 a row
    {5, 7, 3}, // 1 a row that points upward
    {7, 2, 3}, // 2 to 9 overlays
    {20, 8, 3}, {15, 10, 2}, {9, 12, 3}, {24, 7, 3}, {18, 3, 3}, {6, 16, 2}, {21, 9, 3},
    {3, 2, 1}, // 10 to 15 density bands
    {18, 2, 2}, {15, 2, 3},  {10, 2, 4}, {8, 2, 5},  {6, 2, 6},  {5, 0, 1}, // 16 wedges of a rose
    {1, 5, 1},  // 17 background of a rose
    {7, 8, 3},  // 18 beta axis
    {5, 3, 5},  // 19 derived axes, downward
    {5, 8, 5},  // 20 derived axes, upward
    {20, 3, 5}, // 21 annotation points of the left button
    {15, 8, 5}, // 22 annotation points of the right button
    {7, 17, 7}, // 23
    {5, 0, 1},  // 24 to 35 fills of classes in a rose
    {12, 0, 1}, {14, 0, 1},  {15, 0, 1}, {17, 0, 1}, {18, 0, 1}, {19, 0, 1}, {20, 0, 1},
    {23, 0, 1}, {22, 0, 1},  {7, 0, 1},  {8, 0, 1},  {15, 1, 1}, // 36 to 38 fills of overlaid roses
    {19, 1, 1}, {8, 0, 1},   {5, 2, 3},                          // 39 to 50 classes 1 to 12
    {20, 2, 3}, {18, 2, 3},  {15, 2, 3}, {11, 2, 3}, {10, 2, 3}, {9, 2, 3},  {24, 2, 3}, // 46
    {23, 2, 3}, {22, 2, 3},  {7, 2, 3},  {8, 2, 3},
}};

constexpr std::array<AxisStyle, 5> kStartAxisStyles = {{
    {7, 8, 5}, // beta axis: colour, symbol, size
    {5, 0, 1}, // mean great circle: colour, draw style, draw width
    {5, 2, 1}, // user-defined girdles
    {8, 1, 1}, // calculated girdle
    {20, 0, 1} // small circles
}};

// Each level has the colour of the band symbols that it encloses; the sixth has its own colour.
constexpr std::array<AxisStyle, kContourStyles> kStartContourStyles = {{
    {18, kSolidLine, 1},
    {15, kSolidLine, 1},
    {10, kSolidLine, 1},
    {8, kSolidLine, 1},
    {6, kSolidLine, 1},
    {24, kSolidLine, 1},
}};

} // namespace

Styles StartStyles() {
    Styles styles;
    styles.colours = kStartColours;
    styles.symbols = kStartSymbols;
    styles.axes = kStartAxisStyles;
    styles.contours = kStartContourStyles;
    return styles;
}

void BuildStyleTables() {
    const Styles start = StartStyles();
    Styles& styles = gSettings.styles;
    styles.colours = start.colours;
    styles.symbols = start.symbols;
    styles.axes = start.axes;
    styles.contours = start.contours;
}

Colour TableColour(const Styles& styles, int index) {
    if (index < 0 || index >= kColourCount) {
        return kBlack;
    }
    return ColourFromValue(styles.colours[static_cast<std::size_t>(index)]);
}

SymbolCode CodeOfStyleRow(const Styles& styles, int row) {
    const SymbolRow& style = styles.symbols.at(static_cast<std::size_t>(row));
    return MakeSymbolCode(style[kPlaceColour], style[kPlaceSymbol], style[kPlaceSize]);
}

std::string SymbolCodeText(SymbolCode code) {
    std::string digits = std::to_string(code % 1000000);
    return std::string(6 - digits.size(), '0') + digits;
}

std::optional<SymbolCode> SymbolCodeFromText(std::string_view text) {
    const auto isDigit = [](unsigned char c) { return std::isdigit(c) != 0; };
    if (text.size() != 6 || !std::all_of(text.begin(), text.end(), isDigit)) {
        return std::nullopt;
    }
    SymbolCode code = 0;
    for (const char digit : text) {
        code = code * 10 + static_cast<SymbolCode>(digit - '0');
    }
    return code;
}

} // namespace quandrel
