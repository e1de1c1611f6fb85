// SPDX-License-Identifier: MIT

#include "core/layer_edits.h"

#include <algorithm>

namespace quandrel {

void AddInOrder(std::vector<FigureLayer>& layers, const FigureLayer& layer) {
    const auto isAbove = [&layer](const FigureLayer& other) {
        return layer.LayerOf != kLayerOfResults && other.LayerOf == kLayerOfResults;
    };
    layers.insert(std::ranges::find_if(layers, isAbove), layer);
}

void TakeOverlayIn(std::vector<FigureLayer>& layers, int overlay) {
    if (layers.empty() || layers.size() >= kMostLayers) {
        return;
    }
    FigureLayer layer;
    layer.LayerOf = kLayerOfOverlay;
    layer.LayerIndex = static_cast<std::int16_t>(overlay);
    AddInOrder(layers, layer);
}

void TakeOverlayOut(std::vector<FigureLayer>& layers, int overlay) {
    const auto isOf = [overlay](const FigureLayer& layer) {
        return layer.LayerOf == kLayerOfOverlay && layer.LayerIndex == overlay;
    };
    if (!layers.empty() && std::ranges::all_of(layers, isOf)) {
        layers.resize(1);
        layers.front().LayerHidden = kTrue;
        return;
    }
    std::erase_if(layers, isOf);
    for (FigureLayer& layer : layers) {
        if (layer.LayerOf == kLayerOfOverlay && layer.LayerIndex > overlay) {
            --layer.LayerIndex;
        }
    }
}

} // namespace quandrel
