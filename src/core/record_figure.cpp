// SPDX-License-Identifier: MIT

#include "core/record_figure.h"

#include "core/figure_style_text.h"
#include "core/record_density_view.h"

#include <algorithm>

namespace quandrel {

namespace {

constexpr std::int16_t kMostLayerIndexes = 99;
constexpr std::int32_t kGreatestColour = 0xffffff;
constexpr std::int16_t kLastSymbol = 99;
constexpr double kLargestSize = 100;
constexpr std::size_t kLongestName = 1000;

template <class T>
bool IsWithin(T value, T lowest, T highest) {
    return value >= lowest && value <= highest;
}

/// Whether a number is that of the style, or from 0 to a limit.
template <class T>
bool IsStyleOr(T value, T highest) {
    return value == T{kAsStyle} || IsWithin(value, T{0}, highest);
}

} // namespace

bool IsValid(const FigureLayer& layer) {
    return IsWithin<std::int16_t>(layer.LayerOf, kLayerOfMainRows, kLayerOfNet)
           && IsWithin<std::int16_t>(layer.LayerIndex, 0, kMostLayerIndexes)
           && IsWithin<std::int16_t>(layer.LayerShow, kShowSymbols, kShowNet)
           && (layer.LayerHidden == 0 || layer.LayerHidden == kTrue)
           && layer.LayerName.size() <= kLongestName
           && IsStyleOr(layer.LayerColour, kGreatestColour) && IsStyleOr(layer.LayerOpacity, 1.0)
           && IsStyleOr(layer.LayerSymbol, kLastSymbol) && IsStyleOr(layer.LayerSize, kLargestSize)
           && IsStyleOr(layer.LayerHalo, kLargestSize) && IsStyleOr(layer.LayerWidth, kLargestSize)
           && IsStyleOr<std::int16_t>(layer.LayerLine, kNoLine)
           && IsStyleOr<std::int16_t>(layer.LayerFill, kDiagonalCrossHatch)
           && IsStyleOr<std::int16_t>(layer.LayerPalette, kBandPalettes - 1)
           && layer.LayerSteps != 0 && IsStyleOr<std::int16_t>(layer.LayerSteps, kMostLevels)
           && IsStyleOr<std::int16_t>(layer.LayerLabels, 1);
}

bool IsValid(const RoseName& name) {
    return IsWithin<std::int16_t>(name.RoseEntry, kRosePetals, kRoseWeights)
           && IsWithin<std::int16_t>(name.RoseIndex, 0, kMostLayerIndexes)
           && !name.RoseWords.empty() && name.RoseWords.size() <= kLongestName;
}

bool IsValid(const RecordFigure& figure) {
    const auto isValid = [](const auto& part) { return IsValid(part); };
    return figure.StyleName.size() <= kLongestName && figure.StyleText.size() <= kLongestStyleText
           && figure.Layers.size() <= kMostLayers && figure.RoseNames.size() <= kMostLayers
           && std::ranges::all_of(figure.Layers, isValid)
           && std::ranges::all_of(figure.RoseNames, isValid);
}

void NameRoseEntry(RecordFigure& figure, const RoseName& name) {
    std::erase_if(figure.RoseNames, [&name](const RoseName& former) {
        return former.RoseEntry == name.RoseEntry && former.RoseIndex == name.RoseIndex;
    });
    if (!name.RoseWords.empty()) {
        figure.RoseNames.push_back(name);
    }
}

} // namespace quandrel
