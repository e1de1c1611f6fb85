// SPDX-License-Identifier: MIT
//
// The style of a figure: how large, how thick and in which colours a plot is drawn, in the units of
// print. Lengths are millimetres, widths of lines and sizes of text points (1/72 inch), whatever
// the size of the picture.
//
// A style fills what the plot leaves at its default. What the user has chosen for a plot, a class
// or a row is kept: shapes and colours as they are, sizes in proportion. The tables of the
// preferences (core/styles.h) hold those choices; their start values count as defaults.
//
// In a style of sizes 0, Classic, the tables alone decide, in logical pixels.

#pragma once

#include "core/record_fields.h"
#include "platform/surface.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// The primitive and what stands around it. Shares are of its radius.
struct NetStyle {
    double rimWidth = 0;       ///< points; 0 draws the net of the tables, without what follows
    double tickStep = 0;       ///< degrees between ticks on the rim; 0 for none
    double tickLength = 0;     ///< share, outward
    double quadrantLength = 0; ///< share, of the ticks in the north, east, south and west
    double tickWidth = 0;      ///< points
    double crossSpan = 0;      ///< share, of the cross in the centre, from end to end; 0 for none
    bool showNorth = false;
    double northSize = 0; ///< points, of the bold "N"

    QUANDREL_FIELDS(rimWidth, tickStep, tickLength, quadrantLength, tickWidth, crossSpan, showNorth,
                    northSize);

    friend bool operator==(const NetStyle&, const NetStyle&) = default;
};

struct TextStyle {
    double size = 0;      ///< points; 0 keeps the fonts of the tables
    double leastSize = 0; ///< points; no text is smaller
    std::string families; ///< in order of preference, separated by ", "

    QUANDREL_FIELDS(size, leastSize, families);

    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

/// Symbols of rows.
struct SymbolStyle {
    double size = 0;                ///< millimetres across; 0 keeps the sizes of the tables
    double leastSize = 0;           ///< millimetres, for many rows
    std::int32_t rowsOfSize = 0;    ///< up to so many rows have `size`;
    std::int32_t rowsOfLeast = 0;   ///< from so many on `leastSize`, between them in proportion to
                                    ///< the logarithm of the rows
    double haloWidth = 0;           ///< points, of the white rim around a symbol
    std::vector<Colour> setColours; ///< of main rows, then of overlays or classes in their order
    std::vector<std::int32_t> setShapes; ///< symbol codes, in the same order
    std::int32_t crowd = 0;              ///< above so many symbols they are see-through; 0 never
    double crowdInk = 0; ///< their opacity is this over the square root of their number

    QUANDREL_FIELDS(size, leastSize, rowsOfSize, rowsOfLeast, haloWidth, setColours, setShapes,
                    crowd, crowdInk);

    friend bool operator==(const SymbolStyle&, const SymbolStyle&) = default;
};

/// Lines on the net. Widths are points; 0 keeps that of the tables.
struct LineStyle {
    bool trueCircles = false;     ///< great circles are true in the equal area net, no arcs
    double circleWidth = 0;       ///< of the great circles of rows
    std::int32_t manyCircles = 0; ///< above so many circles they have the next two
    double manyCirclesWidth = 0;
    double manyCirclesOpacity = 1;
    double girdleWidth = 0;
    double contourWidth = 0;
    double regionWidth = 0; ///< of confidence cones and regions, which are dashed
    Colour accent;          ///< of girdles, axes and regions
    Colour contour;         ///< of contours over bands

    QUANDREL_FIELDS(trueCircles, circleWidth, manyCircles, manyCirclesWidth, manyCirclesOpacity,
                    girdleWidth, contourWidth, regionWidth, accent, contour);

    friend bool operator==(const LineStyle&, const LineStyle&) = default;
};

/// Bands of densities.
struct BandStyle {
    std::int32_t palette = 0; ///< as RecordDensityView::BandPalette; 0 keeps that of the plot
    std::int32_t steps = 0;   ///< even steps up to the maximum; 0 keeps the levels of the plot

    QUANDREL_FIELDS(palette, steps);

    friend bool operator==(const BandStyle&, const BandStyle&) = default;
};

struct RoseStyle {
    double outlineWidth = 0;   ///< points, of petals and circles; 0 keeps the roses of the tables
    Colour fill;               ///< of petals
    double tickStep = 0;       ///< degrees between labels on the rim; 0 for N, E, S and W
    bool circleValues = false; ///< each circle has its value
    bool equalArea = false;    ///< areas of petals in proportion: preset for new plots
    bool meanIfSignificant = false; ///< the mean only where Rayleigh's test rejects at 5%

    QUANDREL_FIELDS(outlineWidth, fill, tickStep, circleValues, equalArea, meanIfSignificant);

    friend bool operator==(const RoseStyle&, const RoseStyle&) = default;
};

struct FigureStyle {
    std::string name;
    NetStyle net;
    TextStyle text;
    SymbolStyle symbols;
    LineStyle lines;
    BandStyle bands;
    RoseStyle roses;

    /// The parts with their names, in the order of files.
    QUANDREL_FIELDS(net, text, symbols, lines, bands, roses);

    friend bool operator==(const FigureStyle&, const FigureStyle&) = default;
};

/// The style of pictures as they were before there were styles.
inline constexpr std::string_view kClassicStyle = "Classic";
inline constexpr std::string_view kScreenStyle = "Screen";
inline constexpr std::string_view kJournalStyle = "Journal";
inline constexpr std::string_view kGreyStyle = "Grey"; ///< Journal without colour

/// Colours that are told apart without red and green, black first.
///
/// M. Okabe, K. Ito, Color Universal Design (2002).
[[nodiscard]] std::span<const Colour> ColoursOfSets();

/// Classic, Screen, Journal, Grey.
[[nodiscard]] std::span<const FigureStyle> StandardStyles();

[[nodiscard]] const FigureStyle& ClassicStyle();

/// A standard style by its name, in any case; null for another name.
[[nodiscard]] const FigureStyle* StandardStyle(std::string_view name);

/// Whether all values are within their limits: sizes to 100, shares and opacities to 1, symbol
/// codes of the table.
[[nodiscard]] bool IsValid(const FigureStyle& style);

/// The size of the symbols of so many rows, millimetres.
[[nodiscard]] double SymbolSizeOf(const SymbolStyle& style, std::int64_t rows);

/// The opacity of so many symbols, above 0 to 1.
[[nodiscard]] double SymbolOpacityOf(const SymbolStyle& style, std::int64_t symbols);

} // namespace quandrel
