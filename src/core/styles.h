// SPDX-License-Identifier: MIT
//
// The appearance of plots as a value: colours, styles of symbols and lines that refer to them,
// fonts, axes. Each drawing is given one (stereo/drawing.h); the current one is part of the
// settings.

#pragma once

#include "platform/surface.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace quandrel {

inline constexpr int kColourCount = 25;
inline constexpr int kSymbolRowCount = 51;

/// Indexes within a row of Styles::symbols.
enum SymbolPlace : int { kPlaceColour = 0, kPlaceSymbol = 1, kPlaceSize = 2 };

using SymbolRow = std::array<std::int16_t, 3>;

/// Rows of Styles::symbols.
inline constexpr int kRowSymbol = 0;
inline constexpr int kUpRowSymbol = 1;
inline constexpr int kFirstOverlaySymbol = 2;
inline constexpr int kOverlaySymbols = 7;
inline constexpr int kFirstBandSymbol = 10;
inline constexpr int kLastBandSymbol = 15;
inline constexpr int kRoseStyle = 16;           ///< wedges of a rose: colour and fill style
inline constexpr int kRoseBackgroundStyle = 17; ///< its blank parts; the symbol number is the
                                                ///< colour of outlines
inline constexpr int kFirstRoseClassStyle = 24; ///< fills of the classes of a rose
inline constexpr int kOverlaidRoseStyle = 38;   ///< fill of overlaid rose i is row 38 - i
inline constexpr int kDerivedSymbol = 19;
inline constexpr int kDerivedUpSymbol = 20;

/// Style of a computed axis, a girdle or a small circle: colour index, then draw style and draw
/// width of a line, or symbol code and size of a point.
using AxisStyle = std::array<std::int16_t, 3>;

/// Places of an AxisStyle.
enum AxisStylePlace : std::size_t {
    kStyleColour = 0, ///< colour index
    kStyleLine = 1,   ///< draw style of a line
    kStyleWidth = 2,  ///< draw width of a line
    kStyleSymbol = 1, ///< symbol code of a point
    kStyleSize = 2,   ///< size of a point
};

/// Rows of Styles::axes.
enum AxisStyleRow : int {
    kBetaAxisStyle = 0,
    kMeanGirdleStyle = 1,
    kUserGirdleStyle = 2,
    kCalculatedGirdleStyle = 3,
    kSmallCircleStyle = 4,
};

inline constexpr int kContourStyles = 6;

/// A font of the plot.
struct PlotFont {
    FontSpec font;
    std::int32_t weight = 8;
    std::int32_t colour = 0; ///< 24-bit value, red in the low byte
};

/// Rows of Styles::fonts, in the order of the preferences.
enum PlotFontPlace : int {
    kFabricFont = 0,
    kLegendFont = 1,
    kStatsFont = 2,
    kGeneralFont = 3,
    kInfoBarFont = 4,
    kDipAzFont = 5,
    kPrintFabricFont = 6,
    kPrintLegendFont = 7,
    kPrintStatsFont = 8,
    kPrintPlotFont = 9,
};

inline constexpr std::uint32_t kStartBackColour = 0xffffff;
inline constexpr std::uint32_t kStartAxesColour = 0;

/// Everything that decides how a plot looks, besides its rows and its record.
struct Styles {
    /// 24-bit colours, red in the low byte.
    std::array<std::uint32_t, kColourCount> colours{};

    /// [row][place]: colour index, symbol code, size. Row 0 is the symbol of a row, row 1 that of
    /// an upward line, rows 2 to 9 of overlays, 10 to 15 of density bands, 19 and 20 of derived
    /// axes, 39 to 50 of classes.
    std::array<SymbolRow, kSymbolRowCount> symbols{};

    std::array<AxisStyle, 5> axes{}; ///< indexed by AxisStyleRow

    /// Density contours by level: colour index, draw style, draw width. The last one is for the
    /// rest.
    std::array<AxisStyle, kContourStyles> contours{};

    std::array<PlotFont, 10> fonts{};                ///< indexed by PlotFontPlace
    std::uint32_t plotBackColour = kStartBackColour; ///< behind the net on the screen
    std::uint32_t plotAxesColour = kStartAxesColour; ///< of the primitive circle and the axes
    std::int16_t plotAxesStyle = 0;                  ///< of nets, 0 to 3
    bool showNorth = false;                          ///< nets show an "N" at the top
    std::int16_t roseAxesStyle = 0;                  ///< 0 to 3
    bool roseOuterCircle = true;
    bool showCompassPoints = false;   ///< roses show N, E, S and W
    std::int16_t showIsolatedPts = 0; ///< contours show the rows that are alone in their cone
};

/// The colours, symbols and lines of a first run; the rest as in a default Styles.
[[nodiscard]] Styles StartStyles();

/// The colour of an index 0 to 24. An index outside is an error of the caller and gives black.
[[nodiscard]] Colour TableColour(const Styles& styles, int index);

} // namespace quandrel
