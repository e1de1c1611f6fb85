// SPDX-License-Identifier: MIT
//
// The figure of a plot: its style (core/figure_style.h), and its layers.
//
// A layer is some data of the plot, shown in one way. The layers are drawn in the order of their
// list, the first one lowest, and the legend lists them. A plot without a list of its own has the
// layers that its mode makes (drawing/layer_list.h). A rose has no layers; the entries of its
// legend can have names.

#pragma once

#include "core/record_fields.h"
#include "platform/surface.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

/// FigureLayer::LayerOf.
enum LayerOfCode : std::int16_t {
    kLayerOfMainRows = 0,
    kLayerOfSecondaryRows = 1,
    kLayerOfOverlay = 2,   ///< LayerIndex is its number
    kLayerOfClass = 3,     ///< LayerIndex is its number
    kLayerOfSelection = 4, ///< the selected rows
    kLayerOfResults = 5,
    kLayerOfNet = 6,
};

/// FigureLayer::LayerShow: what rows are shown as, or which results.
enum LayerShowCode : std::int16_t {
    kShowSymbols = 0,
    kShowGreatCircles = 1,
    kShowPoles = 2, ///< of planes, and of the planes at right angles to lines
    kShowIntersections = 3,
    kShowSlipArrows = 4,
    kShowBandSymbols = 5, ///< symbols in the style of their density band
    kShowGridSymbols = 6, ///< density symbols of the grid
    kShowBands = 7,
    kShowContours = 8,
    kShowDensityMarks = 9, ///< envelope and maxima, as far as the plot wants them
    kShowGridValues = 10,  ///< appended numbers over the net
    kShowValueContours = 11,
    kShowMeanArrow = 12,
    kShowUserGirdles = 13,
    kShowCalculatedGirdles = 14,
    kShowSmallCircles = 15,
    kShowRegions = 16,
    kShowAxes = 17,
    kShowAnnotations = 18,
    kShowNet = 19,
};

/// FigureLayer::LayerColour of a layer in the colours of its style.
inline constexpr std::int32_t kColourOfStyle = -1;

/// The other properties of a layer that are as its style says.
inline constexpr std::int16_t kAsStyle = -1;

struct FigureLayer {
    std::int16_t LayerOf = kLayerOfMainRows;   ///< LayerOfCode
    std::int16_t LayerIndex = 0;               ///< of an overlay or a class from 1, else 0
    std::int16_t LayerShow = kShowSymbols;     ///< LayerShowCode
    std::int16_t LayerHidden = 0;              ///< truth value: kept in the list, but not drawn
    std::string LayerName;                     ///< in the legend; empty for the one that data have
    std::int32_t LayerColour = kColourOfStyle; ///< 24-bit value, red in the low byte
    double LayerOpacity = kAsStyle;            ///< 0 to 1
    std::int16_t LayerSymbol = kAsStyle;       ///< symbol code
    double LayerSize = kAsStyle;               ///< millimetres across
    double LayerHalo = kAsStyle;               ///< points
    double LayerWidth = kAsStyle;              ///< points
    std::int16_t LayerLine = kAsStyle;         ///< DrawStyle
    std::int16_t LayerFill = kAsStyle;         ///< FillStyle
    std::int16_t LayerPalette = kAsStyle;      ///< of bands: as RecordDensityView::BandPalette
    std::int16_t LayerSteps = kAsStyle;        ///< of densities: even steps up to the maximum
    std::int16_t LayerLabels = kAsStyle;       ///< 1 for numbers at rows and lines, 0 for none

    QUANDREL_FIELDS(LayerOf, LayerIndex, LayerShow, LayerHidden, LayerName, LayerColour,
                    LayerOpacity, LayerSymbol, LayerSize, LayerHalo, LayerWidth, LayerLine,
                    LayerFill, LayerPalette, LayerSteps, LayerLabels);

    friend bool operator==(const FigureLayer&, const FigureLayer&) = default;
};

/// The most layers of a plot, and the most names of entries.
inline constexpr std::size_t kMostLayers = 200;

/// RoseName::RoseEntry: what an entry in the legend of a rose is about.
enum RoseEntryCode : std::int16_t {
    kRosePetals = 0,  ///< of the layer RoseIndex; 0 is the top one
    kRoseClasses = 1, ///< the heading of the classes
    kRoseClass = 2,   ///< RoseIndex is its number
    kRoseMeanLine = 3,
    kRoseSectors = 4,
    kRoseCircles = 5,
    kRoseScales = 6, ///< that each layer has its own scale
    kRoseWeights = 7,
};

/// The words of an entry in the legend of a rose. Numbers that follow them are not part of it.
struct RoseName {
    std::int16_t RoseEntry = kRosePetals; ///< RoseEntryCode
    std::int16_t RoseIndex = 0;
    std::string RoseWords;

    QUANDREL_FIELDS(RoseEntry, RoseIndex, RoseWords);

    friend bool operator==(const RoseName&, const RoseName&) = default;
};

struct RecordFigure {
    std::string StyleName; ///< of a standard style, or of StyleText; empty for Classic
    std::string StyleText; ///< of a style that is not a standard one (core/figure_style_text.h)
    std::vector<FigureLayer> Layers; ///< lowest first; empty for those of the mode
    std::vector<RoseName> RoseNames; ///< entries that are not named by the program

    QUANDREL_FIELDS(StyleName, StyleText);
    QUANDREL_FURTHER_FIELDS(Layers, RoseNames);

    friend bool operator==(const RecordFigure&, const RecordFigure&) = default;
};

/// Whether all values are within their limits.
[[nodiscard]] bool IsValid(const FigureLayer& layer);
[[nodiscard]] bool IsValid(const RoseName& name);
[[nodiscard]] bool IsValid(const RecordFigure& figure);

/// Names an entry in the legend of a rose.
///
/// @param name  without words, the entry is named by the program again
void NameRoseEntry(RecordFigure& figure, const RoseName& name);

} // namespace quandrel
