// SPDX-License-Identifier: MIT

#include "drawing/layer_results.h"

#include "core/data_format.h"
#include "core/plot_style.h"
#include "density/density_look.h"
#include "drawing/layer_list.h"
#include "stereo/lines_of_rows.h"
#include "stereo/shown_layers.h"

#include <cstdint>
#include <map>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

using DataKey = std::pair<std::int16_t, std::int16_t>; ///< LayerOf, LayerIndex

DataKey KeyOf(const FigureLayer& layer) {
    return {layer.LayerOf, layer.LayerIndex};
}

/// The results of the rows of one kind of data.
struct KeptData {
    std::uint64_t version = 0; ///< of the plot's table
    std::int16_t plotKind = 0;
    bool areMeasured = false;
    LayerRows rows;
    LineSense sense = LineSense::Axes;
    std::unique_ptr<LinesDensity> density;
    std::shared_ptr<const BetaIntersections> intersections;
};

struct KeptLayers {
    std::map<DataKey, KeptData> data;
    int gridSize = 0;
};

bool IsDensity(std::int16_t show) {
    return show == kShowGridSymbols || show == kShowBands || show == kShowContours;
}

/// Whether rows are the same, at the same places, as those that results were computed from.
bool HasSameLines(const KeptData& kept, const KeptData& next) {
    if (kept.plotKind != next.plotKind || kept.areMeasured != next.areMeasured) {
        return false;
    }
    const LayerRows& a = kept.rows;
    const LayerRows& b = next.rows;
    if (!a.own || !b.own) {
        return a.own == b.own && kept.version == next.version && a.range.first == b.range.first
               && a.range.last == b.range.last;
    }
    return a.own->index == b.own->index && a.own->plunge == b.own->plunge
           && a.own->trend == b.own->trend;
}

void WorkOutData(const Plot& plot, const FigureLayer& layer, KeptData& data, StatusLine* watcher) {
    if (layer.LayerShow == kShowIntersections && !data.intersections) {
        data.intersections = std::make_shared<const BetaIntersections>(
            IntersectionsOfRows(plot, SetOf(plot, data.rows), watcher));
    }
    const LineSense sense = SenseOfLayer(plot.record, data.rows);
    if (!IsDensity(layer.LayerShow)
        || (data.density && data.density->IsOf(plot.record) && data.sense == sense)) {
        return;
    }
    data.density.reset();
    data.sense = sense;
    if (const RowLines lines = LinesOfRows(plot, SetOf(plot, data.rows)); !lines.empty()) {
        data.density = std::make_unique<LinesDensity>(lines, sense, plot.record);
    }
}

/// The density of the data of a layer, to keep further contours in; null without one.
PlotDensity* ChangingDensity(Plot& plot, const FigureLayer& layer) {
    if (layer.LayerOf == kLayerOfMainRows) {
        return ChangingDensityOf(plot);
    }
    auto* const kept = plot.attachments.Find<KeptLayers>();
    if (kept == nullptr) {
        return nullptr;
    }
    const auto found = kept->data.find(KeyOf(layer));
    return found != kept->data.end() && found->second.density ? &found->second.density->Density()
                                                              : nullptr;
}

/// Traces the contours at the levels of layers and of the plot's style, so that drawings need not.
void KeepContours(Plot& plot) {
    std::shared_ptr<const FigureStyle> style;
    for (const FigureLayer& layer : LayersOf(plot)) {
        const bool hasContours = layer.LayerShow == kShowBands || layer.LayerShow == kShowContours;
        if (!hasContours || layer.LayerHidden != 0) {
            continue;
        }
        if (PlotDensity* const density = ChangingDensity(plot, layer)) {
            style = style ? style : StyleOfPlot(plot.record);
            const std::vector<double> own = OwnLevelsOf(plot.record, *style, layer, *density);
            if (!own.empty()) {
                density->KeepContoursAt(own);
            }
        }
    }
}

const KeptData* FindData(const Plot& plot, const FigureLayer& layer) {
    const auto* const kept = plot.attachments.Find<KeptLayers>();
    if (kept == nullptr) {
        return nullptr;
    }
    const auto found = kept->data.find(KeyOf(layer));
    return found != kept->data.end() && found->second.version == plot.table.version ? &found->second
                                                                                    : nullptr;
}

} // namespace

void WorkOutLayers(Plot& plot, const Styles& styles, int gridSize, StatusLine* watcher) {
    KeptLayers former;
    if (auto* const kept = plot.attachments.Find<KeptLayers>()) {
        former = std::move(*kept);
    }
    KeptLayers next;
    next.gridSize = gridSize;
    for (const FigureLayer& layer : plot.record.Layers) {
        const bool isOfRows = layer.LayerOf > kLayerOfMainRows && layer.LayerOf < kLayerOfResults;
        if (!isOfRows || layer.LayerHidden != 0 || !IsPossible(plot, layer)) {
            continue;
        }
        const auto [place, isNew] = next.data.try_emplace(KeyOf(layer));
        KeptData& data = place->second;
        if (isNew) {
            data.version = plot.table.version;
            data.plotKind = plot.record.PlotKind;
            data.areMeasured = plot.record.UseDecimals != 0;
            data.rows = GatherLayerRows(plot, styles, layer);
            const auto known = former.data.find(KeyOf(layer));
            if (known != former.data.end() && HasSameLines(known->second, data)) {
                data.density = std::move(known->second.density);
                data.sense = known->second.sense;
                data.intersections = std::move(known->second.intersections);
            }
        }
        WorkOutData(plot, layer, data, watcher);
    }
    if (next.data.empty()) {
        plot.attachments.Drop<KeptLayers>();
    } else {
        plot.attachments.Of<KeptLayers>() = std::move(next);
    }
    KeepContours(plot);
}

LayerRows RowsOfLayer(const Plot& plot, const Styles& styles, const FigureLayer& layer) {
    const KeptData* const kept = FindData(plot, layer);
    return kept != nullptr ? kept->rows : GatherLayerRows(plot, styles, layer);
}

const PlotDensity* DensityOfLayer(const Plot& plot, const FigureLayer& layer) {
    if (layer.LayerOf == kLayerOfMainRows) {
        return DensityOf(plot);
    }
    const KeptData* const kept = FindData(plot, layer);
    return kept != nullptr && kept->density ? &kept->density->Density() : nullptr;
}

int GridSizeOfLayers(const Plot& plot) {
    const auto* const kept = plot.attachments.Find<KeptLayers>();
    return plot.record.GridSize > 0 || kept == nullptr ? plot.record.GridSize : kept->gridSize;
}

std::shared_ptr<const BetaIntersections> IntersectionsOfLayer(const Plot& plot,
                                                              const Styles& styles,
                                                              const FigureLayer& layer,
                                                              StatusLine* watcher) {
    const KeptData* const kept = FindData(plot, layer);
    if (kept != nullptr && kept->intersections) {
        return kept->intersections;
    }
    const LayerRows rows = GatherLayerRows(plot, styles, layer);
    return std::make_shared<const BetaIntersections>(
        IntersectionsOfRows(plot, SetOf(plot, rows), watcher));
}

} // namespace quandrel
