// SPDX-License-Identifier: MIT

#include "drawing/layer_list.h"

#include "classify/classification.h"
#include "core/data_format.h"
#include "core/layer_edits.h"
#include "drawing/layer_rows.h"
#include "stereo/axis_rows.h"
#include "stereo/row_drawing.h"
#include "stereo/shown_layers.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quandrel {

namespace {

constexpr std::array<std::string_view, kShowNet + 1> kShowWords = {
    "symbols",      "greatcircles",  "poles",     "intersections", "sliparrows",
    "bandsymbols",  "gridsymbols",   "bands",     "contours",      "densitymarks",
    "gridvalues",   "valuecontours", "meanarrow", "usergirdles",   "girdles",
    "smallcircles", "regions",       "axes",      "annotations",   "net"};

constexpr std::array<std::string_view, kLayerOfNet + 1> kDataWords = {
    "main", "secondary", "overlay", "class", "selection", "results", "net"};

bool HasIndex(std::int16_t data) {
    return data == kLayerOfOverlay || data == kLayerOfClass;
}

FigureLayer Layer(std::int16_t of, std::int16_t show, std::int16_t index = 0) {
    FigureLayer layer;
    layer.LayerOf = of;
    layer.LayerShow = show;
    layer.LayerIndex = index;
    return layer;
}

class LayersOfPlot {
public:
    explicit LayersOfPlot(const PlotRecord& record)
        : record_(record) {}

    [[nodiscard]] std::vector<FigureLayer> Layers() && {
        Add(kLayerOfNet, kShowNet);
        AddValues();
        if (ShowsMainRows(record_)) {
            AddMainRows();
        }
        for (std::int16_t overlay = 1; overlay <= record_.OverlayRows[kOverlayCount]; ++overlay) {
            const bool areCircles =
                record_.OverlayKind[static_cast<std::size_t>(overlay)] == kOverlayGreatCircles;
            layers_.push_back(
                Layer(kLayerOfOverlay, areCircles ? kShowGreatCircles : kShowSymbols, overlay));
        }
        for (const LayerShowCode show :
             {kShowAnnotations, kShowMeanArrow, kShowUserGirdles, kShowCalculatedGirdles,
              kShowSmallCircles, kShowRegions, kShowAxes}) {
            Add(kLayerOfResults, show);
        }
        return std::move(layers_);
    }

private:
    void Add(std::int16_t of, std::int16_t show) { layers_.push_back(Layer(of, show)); }

    /// Grid symbols and contours of a plot that is classified by a number.
    void AddValues() {
        if (record_.ClassMode != kClassesByNumber) {
            return;
        }
        if (record_.NumClasses == 1 || record_.NumClasses == 3) {
            Add(kLayerOfMainRows, kShowGridValues);
        }
        if (record_.NumClasses > 1) {
            Add(kLayerOfMainRows, kShowValueContours);
        }
    }

    void AddMainRows() {
        for (const LayerShowCode show :
             ShowsOfMode(record_.PlotSymbolMode, record_.ContourPicture)) {
            Add(kLayerOfMainRows, show);
        }
    }

    const PlotRecord& record_;
    std::vector<FigureLayer> layers_;
};

/// Whether the rows of a layer are among those of a plot.
bool HasData(const PlotRecord& record, const FigureLayer& layer) {
    switch (layer.LayerOf) {
    case kLayerOfMainRows:
    case kLayerOfSelection:
        return true;
    case kLayerOfSecondaryRows:
        return record.SecondaryFormat != kNoSecondary;
    case kLayerOfOverlay:
        return layer.LayerIndex >= 1 && layer.LayerIndex <= record.OverlayRows[kOverlayCount];
    case kLayerOfClass:
        return layer.LayerIndex >= 1 && layer.LayerIndex <= LastClassOf(record);
    default:
        return false;
    }
}

bool CanShowRows(const PlotRecord& record, const FigureLayer& layer) {
    const bool isMain = layer.LayerOf == kLayerOfMainRows;
    switch (layer.LayerShow) {
    case kShowSymbols:
    case kShowGreatCircles:
    case kShowPoles:
    case kShowIntersections:
        return true;
    case kShowSlipArrows:
        return record.SecondaryFormat != kNoSecondary;
    case kShowGridSymbols:
    case kShowBands:
    case kShowContours:
        return !HoldsBothAxes(record) || layer.LayerOf == kLayerOfOverlay;
    case kShowBandSymbols:
    case kShowDensityMarks:
        return isMain && !HoldsBothAxes(record);
    case kShowGridValues:
    case kShowValueContours:
        return isMain && record.ClassMode == kClassesByNumber;
    default:
        return false;
    }
}

bool IsSame(const FigureLayer& a, const FigureLayer& b) {
    return a.LayerOf == b.LayerOf && a.LayerIndex == b.LayerIndex && a.LayerShow == b.LayerShow;
}

} // namespace

std::vector<FigureLayer> LayersOfMode(const Plot& plot) {
    if (plot.record.PlotKind == kRose) {
        return {};
    }
    return LayersOfPlot(plot.record).Layers();
}

std::vector<FigureLayer> LayersOf(const Plot& plot) {
    const std::vector<FigureLayer>& own = plot.record.Layers;
    return own.empty() || plot.record.PlotKind == kRose ? LayersOfMode(plot) : own;
}

bool IsPossible(const Plot& plot, const FigureLayer& layer) {
    if (plot.record.PlotKind == kRose) {
        return false;
    }
    switch (layer.LayerOf) {
    case kLayerOfResults:
        return layer.LayerShow >= kShowMeanArrow && layer.LayerShow <= kShowAnnotations;
    case kLayerOfNet:
        return layer.LayerShow == kShowNet;
    default:
        return HasData(plot.record, layer) && CanShowRows(plot.record, layer);
    }
}

std::vector<FigureLayer> WithToggledLayer(const Plot& plot, const FigureLayer& layer) {
    std::vector<FigureLayer> layers = LayersOf(plot);
    if (std::erase_if(layers, [&layer](const FigureLayer& other) { return IsSame(other, layer); })
        == 0) {
        AddInOrder(layers, layer);
    }
    return layers;
}

std::string_view WordOfShow(std::int16_t show) {
    return kShowWords.at(static_cast<std::size_t>(show));
}

std::string WordOfData(const FigureLayer& layer) {
    std::string word(kDataWords.at(static_cast<std::size_t>(layer.LayerOf)));
    return HasIndex(layer.LayerOf) ? word + std::to_string(layer.LayerIndex) : word;
}

std::optional<std::int16_t> ShowOfWord(std::string_view word) {
    const auto found = std::find(kShowWords.begin(), kShowWords.end(), word);
    return found == kShowWords.end()
               ? std::nullopt
               : std::optional(static_cast<std::int16_t>(found - kShowWords.begin()));
}

std::optional<FigureLayer> DataOfWord(std::string_view word) {
    for (std::size_t of = 0; of < kDataWords.size(); ++of) {
        const auto data = static_cast<std::int16_t>(of);
        if (!HasIndex(data)) {
            if (word == kDataWords[of]) {
                return Layer(data, kShowSymbols);
            }
        } else if (word.starts_with(kDataWords[of])) {
            const std::string_view digits = word.substr(kDataWords[of].size());
            std::int16_t index = 0;
            const auto [end, error] =
                std::from_chars(digits.data(), digits.data() + digits.size(), index);
            const bool isWhole = error == std::errc() && end == digits.data() + digits.size();
            return isWhole && index >= 1 ? std::optional(Layer(data, kShowSymbols, index))
                                         : std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace quandrel
