// SPDX-License-Identifier: MIT

#include "core/figure_style.h"

#include "core/letter_case.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quandrel {

namespace {

constexpr double kLargestSize = 100;
constexpr std::int32_t kLastShape = 17;
constexpr std::int32_t kMostBandSteps = 9;
constexpr std::int32_t kLastPalette = 4;
constexpr std::size_t kMostSetLooks = 50;

constexpr std::array<Colour, 8> kColoursOfSets = {{{0, 0, 0},
                                                   {230, 159, 0},
                                                   {86, 180, 233},
                                                   {0, 158, 115},
                                                   {240, 228, 66},
                                                   {0, 114, 178},
                                                   {213, 94, 0},
                                                   {204, 121, 167}}};

// Disc, square, triangle, diamond, inverted triangle, star, plus, ring: told apart without colour.
constexpr std::array<std::int32_t, 8> kShapesOfSets = {2, 3, 10, 12, 11, 13, 4, 7};

constexpr std::array<Colour, 8> kGreysOfSets = {{{0, 0, 0},
                                                 {110, 110, 110},
                                                 {170, 170, 170},
                                                 {60, 60, 60},
                                                 {140, 140, 140},
                                                 {85, 85, 85},
                                                 {195, 195, 195},
                                                 {30, 30, 30}}};

constexpr std::int32_t kCoolPalette = 2; ///< RecordDensityView::BandPalette
constexpr std::int32_t kGreyPalette = 4;

FigureStyle MakeJournal() {
    FigureStyle style;
    style.name = kJournalStyle;
    style.net = {0.75, 10, 0.02, 0.04, 0.5, 0.04, true, 8};
    style.text = {7, 6, "Arial, Helvetica, Liberation Sans, sans-serif"};
    style.symbols.size = 1.1;
    style.symbols.leastSize = 0.6;
    style.symbols.rowsOfSize = 100;
    style.symbols.rowsOfLeast = 1000;
    style.symbols.haloWidth = 0.25;
    style.symbols.setColours.assign(kColoursOfSets.begin(), kColoursOfSets.end());
    style.symbols.setShapes.assign(kShapesOfSets.begin(), kShapesOfSets.end());
    style.symbols.crowd = 20000;
    style.symbols.crowdInk = 150;
    style.lines = {true, 0.5, 50, 0.35, 0.4, 1, 0.4, 0.75, {176, 32, 48}, {60, 75, 95}};
    style.bands = {kCoolPalette, 5};
    style.roses = {0.4, {150, 170, 190}, 30, true, true, true};
    return style;
}

/// Journal at the distance of a screen: larger symbols and texts.
FigureStyle MakeScreen() {
    FigureStyle style = MakeJournal();
    style.name = kScreenStyle;
    style.net.rimWidth = 1;
    style.net.northSize = 11;
    style.text.size = 0; // the fonts of the preferences
    style.symbols.size = 1.8;
    style.symbols.leastSize = 1;
    style.symbols.haloWidth = 0.5;
    style.lines.circleWidth = 0.75;
    style.lines.girdleWidth = 1.5;
    style.lines.contourWidth = 0.6;
    style.lines.regionWidth = 1;
    return style;
}

FigureStyle MakeGrey() {
    FigureStyle style = MakeJournal();
    style.name = kGreyStyle;
    style.symbols.setColours.assign(kGreysOfSets.begin(), kGreysOfSets.end());
    style.lines.accent = kBlack;
    style.lines.contour = {70, 70, 70};
    style.bands.palette = kGreyPalette;
    style.roses.fill = {190, 190, 190};
    return style;
}

std::array<FigureStyle, 4> MakeStandardStyles() {
    FigureStyle classic;
    classic.name = kClassicStyle;
    return {classic, MakeScreen(), MakeJournal(), MakeGrey()};
}

bool IsSize(double value) {
    return value >= 0 && value <= kLargestSize;
}

bool IsShare(double value) {
    return value >= 0 && value <= 1;
}

bool IsValidNet(const NetStyle& net) {
    return IsSize(net.rimWidth) && net.tickStep >= 0 && net.tickStep <= 90
           && (net.tickStep == 0 || net.tickStep >= 1) && IsShare(net.tickLength)
           && IsShare(net.quadrantLength) && IsSize(net.tickWidth) && IsShare(net.crossSpan)
           && IsSize(net.northSize);
}

bool IsValidSymbols(const SymbolStyle& symbols) {
    return IsSize(symbols.size) && IsSize(symbols.leastSize) && symbols.rowsOfSize >= 0
           && symbols.rowsOfLeast >= symbols.rowsOfSize && IsSize(symbols.haloWidth)
           && symbols.crowd >= 0 && std::isfinite(symbols.crowdInk)
           && (symbols.crowd == 0 ? symbols.crowdInk >= 0 : symbols.crowdInk > 0)
           && symbols.setColours.size() <= kMostSetLooks
           && symbols.setShapes.size() <= kMostSetLooks
           && std::all_of(symbols.setShapes.begin(), symbols.setShapes.end(),
                          [](std::int32_t shape) { return shape >= 1 && shape <= kLastShape; });
}

bool IsValidLines(const LineStyle& lines) {
    return IsSize(lines.circleWidth) && lines.manyCircles >= 0 && IsSize(lines.manyCirclesWidth)
           && IsShare(lines.manyCirclesOpacity) && IsSize(lines.girdleWidth)
           && IsSize(lines.contourWidth) && IsSize(lines.regionWidth);
}

} // namespace

std::span<const Colour> ColoursOfSets() {
    return kColoursOfSets;
}

std::span<const FigureStyle> StandardStyles() {
    static const std::array<FigureStyle, 4> styles = MakeStandardStyles();
    return styles;
}

const FigureStyle& ClassicStyle() {
    return StandardStyles().front();
}

const FigureStyle* StandardStyle(std::string_view name) {
    for (const FigureStyle& style : StandardStyles()) {
        if (LowerCase(style.name) == LowerCase(std::string(name))) {
            return &style;
        }
    }
    return nullptr;
}

bool IsValid(const FigureStyle& style) {
    return IsValidNet(style.net) && IsSize(style.text.size) && IsSize(style.text.leastSize)
           && IsValidSymbols(style.symbols) && IsValidLines(style.lines) && style.bands.palette >= 0
           && style.bands.palette <= kLastPalette && style.bands.steps >= 0
           && style.bands.steps <= kMostBandSteps && IsSize(style.roses.outlineWidth)
           && style.roses.tickStep >= 0 && style.roses.tickStep <= 90;
}

double SymbolSizeOf(const SymbolStyle& style, std::int64_t rows) {
    if (rows <= style.rowsOfSize) {
        return style.size;
    }
    if (rows >= style.rowsOfLeast) {
        return style.leastSize;
    }
    const double few = std::max(1, style.rowsOfSize);
    const double part =
        std::log(static_cast<double>(rows) / few) / std::log(style.rowsOfLeast / few);
    return style.size + part * (style.leastSize - style.size);
}

double SymbolOpacityOf(const SymbolStyle& style, std::int64_t symbols) {
    if (style.crowd == 0 || symbols <= style.crowd) {
        return 1;
    }
    return std::min(1.0, style.crowdInk / std::sqrt(static_cast<double>(symbols)));
}

} // namespace quandrel
