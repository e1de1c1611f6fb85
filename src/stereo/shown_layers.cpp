// SPDX-License-Identifier: MIT

#include "stereo/shown_layers.h"

#include "core/data_format.h"
#include "stereo/row_drawing.h"

#include <algorithm>

namespace quandrel {

namespace {

bool IsOfDensities(std::int16_t show) {
    return show >= kShowBandSymbols && show <= kShowContours;
}

template <class Test>
bool AnyShown(const PlotRecord& record, Test test) {
    if (!record.Layers.empty()) {
        return std::ranges::any_of(record.Layers, [&test](const FigureLayer& layer) {
            return layer.LayerOf == kLayerOfMainRows && layer.LayerHidden == 0
                   && test(layer.LayerShow);
        });
    }
    return ShowsMainRows(record)
           && std::ranges::any_of(ShowsOfMode(record.PlotSymbolMode, record.ContourPicture), test);
}

} // namespace

std::vector<LayerShowCode> ShowsOfMode(std::int16_t mode, std::int16_t picture) {
    switch (mode) {
    case kGreatCircles:
        return {kShowGreatCircles};
    case kPointSymbols:
    case kPointSymbolsToo:
        return {kShowSymbols};
    case kBetaIntersections:
        return {kShowIntersections};
    case kPointDensitySymbols:
        return {kShowBandSymbols, kShowDensityMarks};
    case kGridDensitySymbols:
        return {kShowGridSymbols, kShowDensityMarks};
    case kContours:
    case kContoursAndGrid:
        break;
    default:
        return {};
    }
    std::vector<LayerShowCode> shows;
    if (picture != kContourLines) {
        shows.push_back(kShowBands);
    }
    if (mode == kContoursAndGrid) {
        shows.push_back(kShowGridSymbols);
    }
    if (picture != kFilledBands) {
        shows.push_back(kShowContours);
    }
    shows.push_back(kShowDensityMarks);
    return shows;
}

bool ShowsMainRowsAs(const PlotRecord& record, LayerShowCode show) {
    return AnyShown(record, [show](std::int16_t shown) { return shown == show; });
}

bool ShowsDataAs(const PlotRecord& record, const FigureLayer& data, LayerShowCode show) {
    if (data.LayerOf == kLayerOfMainRows) {
        return ShowsMainRowsAs(record, show);
    }
    return std::ranges::any_of(record.Layers, [&data, show](const FigureLayer& layer) {
        return layer.LayerOf == data.LayerOf && layer.LayerIndex == data.LayerIndex
               && layer.LayerHidden == 0 && layer.LayerShow == show;
    });
}

bool ShowsSelection(const PlotRecord& record) {
    return record.PlotKind != kRose
           && std::ranges::any_of(record.Layers, [](const FigureLayer& layer) {
                  return layer.LayerOf == kLayerOfSelection && layer.LayerHidden == 0;
              });
}

bool ShowsDensities(const PlotRecord& record) {
    return AnyShown(record, IsOfDensities);
}

} // namespace quandrel
