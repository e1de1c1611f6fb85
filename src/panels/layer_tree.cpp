// SPDX-License-Identifier: MIT

#include "panels/layer_tree.h"

#include "drawing/layer_list.h"
#include "drawing/layer_results.h"
#include "drawing/layer_rows.h"
#include "drawing/symbol_choice.h"

#include <algorithm>
#include <array>

namespace quandrel {

namespace {

constexpr std::array<const char*, kShowNet + 1> kWays = {"Symbols",
                                                         "Great circles",
                                                         "Poles",
                                                         "Intersections",
                                                         "Slip arrows",
                                                         "Symbols by density",
                                                         "Density symbols",
                                                         "Filled bands",
                                                         "Contours",
                                                         "Envelope and maxima",
                                                         "Values over the net",
                                                         "Contours of values",
                                                         "Mean arrow",
                                                         "Girdles by hand",
                                                         "Calculated girdles",
                                                         "Small circles",
                                                         "Confidence regions",
                                                         "Axes",
                                                         "Annotations",
                                                         "Net"};

bool IsOfRows(const FigureLayer& layer) {
    return layer.LayerOf < kLayerOfResults;
}

std::string NameOfData(const Plot& plot, const FigureLayer& data) {
    if (data.LayerOf != kLayerOfMainRows) {
        return NameOfLayerData(plot, data);
    }
    const std::string& file = plot.record.FileTitle;
    return file.empty() ? "Main rows" : file;
}

LayerLine LineOf(const Plot& plot, const Styles& styles, const FigureLayer& layer,
                 std::size_t place) {
    LayerLine line;
    line.layer = layer;
    line.place = place;
    line.isPossible = IsPossible(plot, layer);
    line.name = NameOfWay(layer.LayerShow);
    if (IsOfRows(layer)) {
        line.name += ": " + NameOfData(plot, layer);
        if (line.isPossible) {
            line.rows = RowsOfLayer(plot, styles, layer).count;
        }
    }
    if (!layer.LayerName.empty()) {
        line.name = layer.LayerName;
    }
    return line;
}

FigureLayer Data(std::int16_t of, std::int16_t index = 0) {
    FigureLayer data;
    data.LayerOf = of;
    data.LayerIndex = index;
    return data;
}

/// All data of rows that the plot has.
std::vector<FigureLayer> DataOf(const Plot& plot) {
    std::vector<FigureLayer> data = {Data(kLayerOfMainRows), Data(kLayerOfSecondaryRows)};
    for (std::int16_t overlay = 1; overlay <= plot.record.OverlayRows[kOverlayCount]; ++overlay) {
        data.push_back(Data(kLayerOfOverlay, overlay));
    }
    for (std::int16_t number = 1; number <= LastClassOf(plot.record); ++number) {
        data.push_back(Data(kLayerOfClass, number));
    }
    data.push_back(Data(kLayerOfSelection));
    std::erase_if(data, [&plot](const FigureLayer& one) {
        return one.LayerOf != kLayerOfMainRows && !IsPossible(plot, one);
    });
    return data;
}

} // namespace

LayerTree LayerTreeOf(const Plot& plot, const Styles& styles) {
    LayerTree tree;
    if (plot.record.PlotKind == kRose) {
        return tree;
    }
    const std::vector<FigureLayer> layers = LayersOf(plot);
    for (std::size_t place = layers.size(); place-- > 0;) {
        tree.layers.push_back(LineOf(plot, styles, layers[place], place));
    }
    const FigureLayer chosen = ChosenDataOf(plot);
    for (const FigureLayer& data : DataOf(plot)) {
        tree.data.push_back(
            {data, NameOfData(plot, data), RowsOfLayer(plot, styles, data).count,
             data.LayerOf == chosen.LayerOf && data.LayerIndex == chosen.LayerIndex});
    }
    return tree;
}

std::string NameOfWay(std::int16_t show) {
    return kWays.at(static_cast<std::size_t>(show));
}

std::vector<std::int16_t> WaysOfData(const Plot& plot, const FigureLayer& data) {
    std::vector<std::int16_t> ways;
    for (std::int16_t show = kShowSymbols; show <= kShowNet; ++show) {
        FigureLayer layer = Data(data.LayerOf, data.LayerIndex);
        layer.LayerShow = show;
        if (IsPossible(plot, layer)) {
            ways.push_back(show);
        }
    }
    return ways;
}

LayerProperties PropertiesOfLayer(const FigureLayer& layer) {
    LayerProperties has;
    switch (layer.LayerShow) {
    case kShowSymbols:
    case kShowPoles:
        has.symbol = has.colour = has.opacity = has.labels = true;
        break;
    case kShowIntersections:
    case kShowAxes:
        has.symbol = has.colour = has.opacity = true;
        break;
    case kShowGreatCircles:
    case kShowCalculatedGirdles:
    case kShowUserGirdles:
    case kShowSmallCircles:
    case kShowRegions:
    case kShowNet:
        has.colour = has.opacity = has.line = true;
        break;
    case kShowSlipArrows:
        has.colour = has.opacity = true;
        break;
    case kShowContours:
        has.colour = has.opacity = has.line = has.steps = has.labels = true;
        break;
    case kShowBands:
        has.opacity = has.bands = has.steps = true;
        break;
    default:
        break;
    }
    return has;
}

} // namespace quandrel
