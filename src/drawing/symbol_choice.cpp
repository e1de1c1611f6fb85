// SPDX-License-Identifier: MIT

#include "drawing/symbol_choice.h"

#include "core/data_format.h"
#include "drawing/layer_list.h"
#include "drawing/layer_rows.h"
#include "stereo/shown_layers.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace quandrel {

namespace {

struct ChosenData {
    std::int16_t of = kLayerOfMainRows;
    std::int16_t index = 0;
};

FigureLayer DataLayer(std::int16_t of, std::int16_t index) {
    FigureLayer layer;
    layer.LayerOf = of;
    layer.LayerIndex = index;
    return layer;
}

bool AreSameData(const FigureLayer& a, const FigureLayer& b) {
    return a.LayerOf == b.LayerOf && a.LayerIndex == b.LayerIndex;
}

/// Layers that show rows or their densities; values of classes stay as they are.
bool IsOfButtons(const FigureLayer& layer) {
    return layer.LayerShow <= kShowDensityMarks && layer.LayerShow != kShowSlipArrows;
}

/// The layers that a button makes of some data.
std::vector<FigureLayer> LayersOfButton(const Plot& plot, const FigureLayer& data, int button) {
    std::vector<FigureLayer> layers;
    for (const LayerShowCode show : ShowsOfMode(ModeOfButton(button), plot.record.ContourPicture)) {
        FigureLayer layer = DataLayer(data.LayerOf, data.LayerIndex);
        layer.LayerShow = show;
        if (IsPossible(plot, layer)) {
            layers.push_back(layer);
        }
    }
    return layers;
}

/// The layers of the data that buttons make, as codes in order.
std::vector<std::int16_t> ShownWays(const std::vector<FigureLayer>& layers,
                                    const FigureLayer& data) {
    std::vector<std::int16_t> ways;
    for (const FigureLayer& layer : layers) {
        if (AreSameData(layer, data) && IsOfButtons(layer) && layer.LayerHidden == 0) {
            ways.push_back(layer.LayerShow);
        }
    }
    std::ranges::sort(ways);
    return ways;
}

bool Holds(const std::vector<FigureLayer>& layers, const FigureLayer& wanted) {
    return std::ranges::any_of(layers, [&wanted](const FigureLayer& layer) {
        return AreSameData(layer, wanted) && layer.LayerShow == wanted.LayerShow;
    });
}

bool IsDensity(std::int16_t show) {
    return show == kShowGridSymbols || show == kShowBands || show == kShowContours;
}

/// Rows lie on top of densities and below results.
std::vector<FigureLayer>::iterator PlaceOfNew(std::vector<FigureLayer>& layers, std::int16_t show) {
    return std::ranges::find_if(layers, [show](const FigureLayer& layer) {
        const bool areRows = layer.LayerOf < kLayerOfResults && layer.LayerShow < kShowGridSymbols;
        return layer.LayerOf == kLayerOfResults || (IsDensity(show) && areRows);
    });
}

} // namespace

std::int16_t ModeOfButton(int button) {
    return static_cast<std::int16_t>(button < 2 ? button : button + 1);
}

FigureLayer ChosenDataOf(const Plot& plot) {
    const auto* const chosen = plot.attachments.Find<ChosenData>();
    FigureLayer data = chosen == nullptr ? FigureLayer() : DataLayer(chosen->of, chosen->index);
    return IsPossible(plot, data) ? data : FigureLayer();
}

void ChooseData(Plot& plot, const FigureLayer& data) {
    plot.attachments.Of<ChosenData>() = {data.LayerOf, data.LayerIndex};
}

bool CanShowDataBy(const Plot& plot, const FigureLayer& data, int button) {
    return data.LayerOf == kLayerOfMainRows || !LayersOfButton(plot, data, button).empty();
}

bool AreDataShownBy(const Plot& plot, const FigureLayer& data, int button) {
    if (data.LayerOf == kLayerOfMainRows && plot.record.Layers.empty()) {
        const int mode = plot.record.PlotSymbolMode;
        return ModeOfButton(button) == (mode == kPointSymbolsToo ? int{kPointSymbols} : mode);
    }
    std::vector<std::int16_t> ways = ShownWays(LayersOf(plot), data);
    return !ways.empty() && ways == ShownWays(LayersOfButton(plot, data, button), data);
}

std::vector<FigureLayer> LayersByButton(const Plot& plot, const FigureLayer& data, int button) {
    std::vector<FigureLayer> layers = LayersOf(plot);
    const auto isReplaced = [&data](const FigureLayer& layer) {
        return AreSameData(layer, data) && IsOfButtons(layer);
    };
    const auto first = std::ranges::find_if(layers, isReplaced);
    const std::ptrdiff_t place =
        (first == layers.end() ? PlaceOfNew(layers, kShowSymbols) : first) - layers.begin();
    std::vector<FigureLayer> made = LayersOfButton(plot, data, button);
    for (FigureLayer& layer : made) {
        // A way that stays keeps its properties.
        const auto former = std::ranges::find_if(layers, [&layer](const FigureLayer& other) {
            return AreSameData(other, layer) && other.LayerShow == layer.LayerShow;
        });
        if (former != layers.end()) {
            layer = *former;
            layer.LayerHidden = 0;
        }
    }
    std::erase_if(layers, isReplaced);
    layers.insert(layers.begin() + std::min(place, std::ssize(layers)), made.begin(), made.end());
    return layers;
}

std::vector<FigureLayer> LayersWithButton(const Plot& plot, const FigureLayer& data, int button) {
    std::vector<FigureLayer> layers = LayersOf(plot);
    const std::vector<FigureLayer> made = LayersOfButton(plot, data, button);
    const bool hasAll = std::ranges::all_of(
        made, [&layers](const FigureLayer& layer) { return Holds(layers, layer); });
    if (hasAll) {
        std::erase_if(layers, [&made](const FigureLayer& layer) { return Holds(made, layer); });
        return layers;
    }
    for (const FigureLayer& layer : made) {
        if (!Holds(layers, layer)) {
            layers.insert(PlaceOfNew(layers, layer.LayerShow), layer);
        }
    }
    return layers;
}

} // namespace quandrel
