// SPDX-License-Identifier: MIT

#include "drawing/draw_layers.h"

#include "classify/value_grid.h"
#include "core/data_format.h"
#include "core/plot_rows.h"
#include "density/contours.h"
#include "density/draw_density.h"
#include "density/grid_density.h"
#include "derive/slip_arrows.h"
#include "drawing/draw_plot.h"
#include "drawing/layer_list.h"
#include "drawing/layer_results.h"
#include "drawing/row_labels.h"
#include "edit/marks/annotations.h"
#include "edit/marks/small_circles.h"
#include "statistics/draw_regions.h"
#include "stereo/figure_symbols.h"
#include "stereo/figure_text.h"
#include "stereo/net.h"
#include "stereo/row_drawing.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace quandrel {

namespace {

/// The arrows of the rows in a mode with slip arrows, or none.
SlipArrows ArrowsOfMode(const Plot& plot) {
    if (plot.record.DensityInvalid == 0 && plot.record.NumSymbolsInPlot <= 0) {
        return {};
    }
    return {[&plot](std::int32_t row) { return DrawnSlipArrowAngle(plot, row); },
            SlipArrowsTellSense(plot)};
}

/// Bands cover the net, which is drawn again on top.
///
/// @param id  of the group of the bands
void DrawBands(const Plot& plot, const Drawing& drawing, const PlotDensity& density,
               const std::string& id) {
    FillBands(plot.record, drawing, density);
    const NamedGroup group(drawing.plot, "net-on-" + id, "Net on the bands");
    DrawNet(plot.record.PlotKind, drawing);
}

void DrawLayerIntersections(const Plot& plot, const Drawing& drawing, const FigureLayer& layer) {
    if (layer.LayerOf == kLayerOfMainRows) {
        DrawBetaIntersections(plot, drawing);
        return;
    }
    const auto found = IntersectionsOfLayer(plot, drawing.styles, layer, drawing.watcher);
    const LayerRows rows = RowsOfLayer(plot, drawing.styles, layer);
    const SymbolCode code = DrawnRowsOf(plot, drawing.styles, layer, rows).All().code;
    DrawRowMarkers(drawing.plot, drawing, found->places, code, found->count);
}

/// Rows, shown one by one.
void DrawRowLayer(const Plot& plot, const Drawing& drawing, const FigureLayer& layer) {
    const LayerRows rows = RowsOfLayer(plot, drawing.styles, layer);
    if (rows.count < 1) {
        return;
    }
    const RowSet set = SetOf(plot, rows);
    const bool isSecondary = layer.LayerOf == kLayerOfSecondaryRows;
    switch (layer.LayerShow) {
    case kShowGreatCircles:
        DrawRowGreatCircles(plot, drawing, set);
        break;
    case kShowBandSymbols:
        DrawRowSymbols(plot, drawing, set, RowStyle::DensityBand, ArrowsOfMode(plot));
        break;
    case kShowIntersections:
        DrawLayerIntersections(plot, drawing, layer);
        break;
    case kShowSlipArrows:
        DrawRowArrows(plot, drawing, set, ArrowsOfLayer(plot, layer));
        break;
    case kShowPoles:
        DrawRowSymbols(plot, drawing, set);
        break;
    default:
        DrawRowSymbols(plot, drawing, set, RowStyle::Own,
                       isSecondary ? SlipArrows() : ArrowsOfMode(plot));
        break;
    }
    if (HasLabels(drawing) && (layer.LayerShow == kShowSymbols || layer.LayerShow == kShowPoles)) {
        DrawRowLabels(plot, drawing, set);
    }
}

/// Densities and values.
///
/// @param id  of the group of the layer
void DrawFieldLayer(const Plot& plot, const Drawing& drawing, const FigureLayer& layer,
                    const std::string& id) {
    const PlotDensity* const density = DensityOfLayer(plot, layer);
    const bool isMain = layer.LayerOf == kLayerOfMainRows;
    switch (layer.LayerShow) {
    case kShowGridSymbols:
        if (density != nullptr) {
            DrawFieldSymbols(plot.record, drawing, *density, GridSizeOfLayers(plot));
        } else if (isMain) {
            DrawGridSymbols(plot, drawing);
        }
        break;
    case kShowBands:
        if (density != nullptr) {
            DrawBands(plot, drawing, *density, id);
        }
        break;
    case kShowContours:
        if (density != nullptr) {
            DrawFieldContours(plot.record, drawing, *density);
        } else if (isMain) {
            DrawContours(plot, drawing);
        }
        break;
    case kShowDensityMarks:
        if (density != nullptr) {
            DrawDensityMarks(plot, drawing, *density);
        }
        break;
    case kShowGridValues:
        DrawValueGrid(plot, drawing);
        break;
    case kShowValueContours:
        DrawValueContours(plot, drawing);
        break;
    default:
        break;
    }
}

void DrawGirdles(const PlotRecord& record, const Drawing& drawing, int first, int last) {
    for (int item = first; item <= last; ++item) {
        if (IsItemShown(record, item)) {
            DrawGirdle(record, drawing, item);
        }
    }
}

void DrawResultLayer(const Plot& plot, const Drawing& drawing, const FigureLayer& layer) {
    const PlotRecord& record = plot.record;
    switch (layer.LayerShow) {
    case kShowMeanArrow:
        DrawPlotFurniture(record, drawing);
        break;
    case kShowUserGirdles:
        DrawGirdles(record, drawing, kFirstUserGirdle, kLastUserGirdle);
        break;
    case kShowCalculatedGirdles:
        DrawGirdles(record, drawing, kFirstStatisticalItem, kAxisItems - 1);
        break;
    case kShowSmallCircles:
        DrawSmallCircles(record, drawing);
        break;
    case kShowRegions:
        DrawRegions(plot, drawing);
        break;
    case kShowAxes:
        for (int item = kFirstStatisticalItem; item < kAxisItems; ++item) {
            if (IsItemShown(record, item)) {
                DrawAxisItemSymbol(record, drawing, item);
            }
        }
        break;
    case kShowAnnotations:
        DrawAnnotations(record, drawing);
        break;
    default:
        break;
    }
}

LayerGroup GroupOfResults(std::int16_t show) {
    switch (show) {
    case kShowMeanArrow:
        return {"mean-direction", "Mean direction"};
    case kShowUserGirdles:
        return {"user-girdles", "User girdles"};
    case kShowCalculatedGirdles:
        return {"girdles", "Girdles"};
    case kShowSmallCircles:
        return {"small-circles", "Small circles"};
    case kShowAxes:
        return {"axes", "Axes"};
    case kShowAnnotations:
        return {"annotations", "Annotations"};
    default:
        return {};
    }
}

/// The ids and titles of the ways to show densities and values, by LayerShow from kShowGridSymbols.
constexpr std::array<std::array<std::string_view, 2>, 6> kFieldGroups = {{
    {"grid-symbols", "Grid densities"},
    {"bands", "Filled bands"},
    {"contours", "Contours"},
    {"", ""},
    {"value-grid", "Grid of values"},
    {"value-contours", "Contours of values"},
}};

/// What follows the id and the title of rows that are shown one by one.
LayerGroup AdditionOfShow(std::int16_t show) {
    switch (show) {
    case kShowPoles:
        return {"-poles", ", poles"};
    case kShowIntersections:
        return {"-intersections", ", intersections"};
    case kShowSlipArrows:
        return {"-slip-arrows", ", slip arrows"};
    default:
        return {};
    }
}

LayerGroup GroupOfMainRows(const PlotRecord& record, std::int16_t show) {
    if (show >= kShowGridSymbols) {
        const auto& [id, title] =
            kFieldGroups.at(static_cast<std::size_t>(show - kShowGridSymbols));
        return {std::string(id), std::string(title)};
    }
    // The group of the mode's symbols, circles or intersections has one id.
    const LayerGroup more = show == kShowIntersections ? LayerGroup() : AdditionOfShow(show);
    return {"rows" + more.id,
            (record.FileTitle.empty() ? record.PlotTitle : record.FileTitle) + more.title};
}

LayerGroup GroupOfRows(const Plot& plot, const FigureLayer& layer) {
    const std::int16_t show = layer.LayerShow;
    std::string id = WordOfData(layer);
    const std::size_t digits = id.find_first_of("0123456789");
    if (digits != std::string::npos) {
        id.insert(digits, "-");
    }
    const std::string name = NameOfLayerData(plot, layer);
    if (show >= kShowGridSymbols) {
        const auto& [fieldId, title] =
            kFieldGroups.at(static_cast<std::size_t>(show - kShowGridSymbols));
        return {id + "-" + std::string(fieldId), name + ": " + std::string(title)};
    }
    const LayerGroup more = AdditionOfShow(show);
    return {id + more.id, name + more.title};
}

} // namespace

void DrawOneLayer(const Plot& plot, const Drawing& whole, const FigureLayer& layer) {
    if (layer.LayerHidden != 0 || !IsPossible(plot, layer)) {
        return;
    }
    const FigureLayer drawn = LayerAsDrawn(layer, whole);
    Drawing drawing = whole;
    drawing.layer = &drawn;
    const LayerGroup name = GroupOfLayer(plot, layer);
    std::optional<NamedGroup> group;
    if (!name.id.empty()) {
        group.emplace(drawing.plot, name.id, name.title);
    }
    if (layer.LayerOf == kLayerOfNet) {
        DrawNet(plot.record.PlotKind, drawing);
    } else if (layer.LayerOf == kLayerOfResults) {
        DrawResultLayer(plot, drawing, drawn);
    } else if (layer.LayerShow <= kShowBandSymbols) {
        DrawRowLayer(plot, drawing, drawn);
    } else {
        DrawFieldLayer(plot, drawing, drawn, name.id);
    }
}

FigureLayer LayerAsDrawn(const FigureLayer& layer, const Drawing& drawing) {
    FigureLayer drawn = layer;
    const FigureStyle& figure = FigureOf(drawing);
    if (layer.LayerOf == kLayerOfSelection && layer.LayerColour == kColourOfStyle
        && figure.symbols.size > 0) {
        const Colour accent = figure.lines.accent;
        drawn.LayerColour = accent.red | accent.green << 8 | accent.blue << 16;
    }
    return drawn;
}

LayerGroup GroupOfLayer(const Plot& plot, const FigureLayer& layer) {
    LayerGroup group;
    switch (layer.LayerOf) {
    case kLayerOfMainRows:
        group = GroupOfMainRows(plot.record, layer.LayerShow);
        break;
    case kLayerOfResults:
        group = GroupOfResults(layer.LayerShow);
        break;
    case kLayerOfNet:
        break;
    default:
        group = GroupOfRows(plot, layer);
        break;
    }
    if (!layer.LayerName.empty() && !group.id.empty()) {
        group.title = layer.LayerName;
    }
    return group;
}

void DrawLayers(const Plot& plot, const Drawing& drawing) {
    bool isLowest = true;
    for (const FigureLayer& layer : LayersOf(plot)) {
        // On top of others, the net is drawn again.
        if (!std::exchange(isLowest, false) || layer.LayerOf != kLayerOfNet) {
            DrawOneLayer(plot, drawing, layer);
        }
    }
}

} // namespace quandrel
