// SPDX-License-Identifier: MIT

#include "drawing/layer_hit.h"

#include "drawing/draw_layers.h"
#include "drawing/figure_legend.h"
#include "drawing/hit_surface.h"
#include "drawing/layer_list.h"
#include "drawing/legend.h"
#include "drawing/shown_legend.h"
#include "stereo/net.h"

#include <algorithm>
#include <vector>

namespace quandrel {

std::optional<std::size_t> LayerAt(const Plot& plot, const Drawing& drawing, Point at,
                                   double reach) {
    const std::vector<FigureLayer> layers = LayersOf(plot);
    for (std::size_t place = layers.size(); place-- > 0;) {
        HitSurface surface(drawing.plot, at, reach);
        Drawing own{surface,          drawing.legend,  drawing.styles,      drawing.purpose,
                    drawing.formulas, drawing.watcher, drawing.circleAbove, drawing.figure};
        SetPlotDrawMode(own);
        DrawOneLayer(plot, own, layers[place]);
        if (layers[place].LayerOf == kLayerOfNet && layers[place].LayerHidden == 0) {
            DrawNorthOfNet(own);
        }
        if (surface.IsHit()) {
            return place;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> LayerOfLegendAt(const Plot& plot, const Drawing& drawing, Point at) {
    const ShownLegend legend = LegendShown(plot, drawing);
    const std::optional<std::size_t> line = LegendLineAt(drawing, at);
    if (!line || *line >= legend.layers.size()) {
        return std::nullopt;
    }
    const FigureLayer& wanted = legend.layers[*line];
    const auto isWanted = [&wanted](const FigureLayer& layer) {
        return layer.LayerOf == wanted.LayerOf && layer.LayerIndex == wanted.LayerIndex
               && layer.LayerShow == wanted.LayerShow && layer.LayerName == wanted.LayerName;
    };
    const std::vector<FigureLayer> layers = LayersOf(plot);
    const auto found = std::ranges::find_if(layers, isWanted);
    return found != layers.end() ? std::optional(static_cast<std::size_t>(found - layers.begin()))
                                 : std::nullopt;
}

std::optional<RoseName> RoseEntryAt(const Plot& plot, const Drawing& drawing, Point at) {
    const std::optional<std::size_t> line = LegendLineAt(drawing, at);
    const bool isOfFigure = !LegendShown(plot, drawing).layers.empty();
    if (plot.record.PlotKind != kRose || !line || !isOfFigure) {
        return std::nullopt;
    }
    const std::vector<FigureEntry> entries = LegendOfFigure(plot, drawing).entries;
    return *line < entries.size() ? std::optional(entries[*line].rose) : std::nullopt;
}

} // namespace quandrel
