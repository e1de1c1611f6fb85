// SPDX-License-Identifier: MIT

#include "drawing/draw_plot.h"

#include "classify/classification.h"
#include "classify/value_grid.h"
#include "core/data_format.h"
#include "core/item_style.h"
#include "core/overlay_names.h"
#include "core/plot_rows.h"
#include "density/contours.h"
#include "density/draw_density.h"
#include "density/grid_density.h"
#include "derive/slip_arrows.h"
#include "drawing/layer_list.h"
#include "drawing/legend.h"
#include "edit/marks/annotations.h"
#include "edit/marks/small_circles.h"
#include "orientation/projection.h"
#include "rose/draw_rose.h"
#include "rose/figure_rose.h"
#include "rose/figure_rose_fills.h"
#include "statistics/draw_regions.h"
#include "stereo/figure_lines.h"
#include "stereo/figure_symbols.h"
#include "stereo/great_circles.h"
#include "stereo/net.h"
#include "stereo/row_drawing.h"
#include "stereo/symbols.h"

#include <algorithm>
#include <optional>
#include <string>

namespace quandrel {

namespace {

constexpr int kWidestGirdle = 50;

/// A value as a whole number, clamped to 0 to `most`.
int WholeOf(const TaggedValue& value, int most) {
    const double number = NumberOf(value);
    return number > 0 ? static_cast<int>(std::min(number, static_cast<double>(most))) : 0;
}

RowRange MainRows(const PlotRecord& record) {
    return {1, record.NumData};
}

RowRange OverlayRange(const PlotRecord& record, int overlay) {
    const std::int32_t first = FirstRowOfOverlay(record, overlay);
    return {first, first + record.OverlayRows[static_cast<std::size_t>(overlay)] - 1};
}

/// The arrows of the rows, or none.
SlipArrows ArrowsOfPlot(const Plot& plot) {
    if (plot.record.DensityInvalid == 0 && plot.record.NumSymbolsInPlot <= 0) {
        return {};
    }
    return {[&plot](std::int32_t row) { return DrawnSlipArrowAngle(plot, row); },
            SlipArrowsTellSense(plot)};
}

/// Bands cover the net, which is drawn again on top.
void DrawBands(const Plot& plot, const Drawing& drawing) {
    if (const PlotDensity* density = DensityOf(plot)) {
        FillBands(plot.record, drawing, *density);
        const NamedGroup group(drawing.plot, "net-on-bands", "Net on the bands");
        DrawNet(plot.record.PlotKind, drawing);
    }
}

void DrawGridLayer(const Plot& plot, const Drawing& drawing) {
    if (const PlotDensity* density = DensityOf(plot)) {
        DrawFieldSymbols(plot.record, drawing, *density, plot.record.GridSize);
    } else {
        DrawGridSymbols(plot, drawing);
    }
}

void DrawContourLayer(const Plot& plot, const Drawing& drawing) {
    if (const PlotDensity* density = DensityOf(plot)) {
        DrawFieldContours(plot.record, drawing, *density);
    } else {
        DrawContours(plot, drawing);
    }
}

/// The rows of a layer: those of the main rows for all but overlays.
RowRange RowsOfLayer(const PlotRecord& record, const FigureLayer& layer) {
    if (layer.LayerOf != kLayerOfOverlay) {
        return MainRows(record);
    }
    return layer.LayerIndex <= record.OverlayRows[kOverlayCount]
               ? OverlayRange(record, layer.LayerIndex)
               : RowRange();
}

/// Rows, shown one by one.
void DrawRowLayer(const Plot& plot, const Drawing& drawing, const FigureLayer& layer) {
    const RowRange rows = RowsOfLayer(plot.record, layer);
    if (rows.last < rows.first) {
        return;
    }
    switch (layer.LayerShow) {
    case kShowGreatCircles:
        DrawRowGreatCircles(plot, drawing, rows);
        break;
    case kShowBandSymbols:
        DrawRowSymbols(plot, drawing, rows, RowStyle::DensityBand, ArrowsOfPlot(plot));
        break;
    case kShowIntersections:
        DrawBetaIntersections(plot, drawing);
        break;
    default:
        DrawRowSymbols(plot, drawing, rows, RowStyle::Own, ArrowsOfPlot(plot));
        break;
    }
}

/// Densities and values of the main rows.
void DrawFieldLayer(const Plot& plot, const Drawing& drawing, const FigureLayer& layer) {
    switch (layer.LayerShow) {
    case kShowGridSymbols:
        DrawGridLayer(plot, drawing);
        break;
    case kShowBands:
        DrawBands(plot, drawing);
        break;
    case kShowContours:
        DrawContourLayer(plot, drawing);
        break;
    case kShowDensityMarks:
        if (const PlotDensity* density = DensityOf(plot)) {
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

/// The id and the title of what a layer draws.
struct GroupName {
    std::string id;
    std::string title;
};

GroupName GroupOfResults(std::int16_t show) {
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

GroupName GroupOfMainRows(const PlotRecord& record, std::int16_t show) {
    switch (show) {
    case kShowGridSymbols:
        return {"grid-symbols", "Grid densities"};
    case kShowBands:
        return {"bands", "Filled bands"};
    case kShowContours:
        return {"contours", "Contours"};
    case kShowGridValues:
        return {"value-grid", "Grid of values"};
    case kShowValueContours:
        return {"value-contours", "Contours of values"};
    case kShowDensityMarks:
        return {};
    default:
        return {"rows", record.FileTitle.empty() ? record.PlotTitle : record.FileTitle};
    }
}

/// Empty for a layer that names its groups itself.
GroupName GroupOfLayer(const PlotRecord& record, const FigureLayer& layer) {
    GroupName group;
    switch (layer.LayerOf) {
    case kLayerOfMainRows:
        group = GroupOfMainRows(record, layer.LayerShow);
        break;
    case kLayerOfOverlay:
        group = {"overlay-" + std::to_string(layer.LayerIndex),
                 NameOfOverlay(record, layer.LayerIndex)};
        break;
    case kLayerOfResults:
        group = GroupOfResults(layer.LayerShow);
        break;
    default:
        break;
    }
    if (!layer.LayerName.empty() && !group.id.empty()) {
        group.title = layer.LayerName;
    }
    return group;
}

/// A layer of a net. The net itself is drawn at the beginning; on top of others it is drawn again.
void DrawLayer(const Plot& plot, const Drawing& whole, const FigureLayer& layer, bool isLowest) {
    if (layer.LayerHidden != 0 || !IsPossible(layer)) {
        return;
    }
    Drawing drawing = whole;
    drawing.layer = &layer;
    const GroupName name = GroupOfLayer(plot.record, layer);
    std::optional<NamedGroup> group;
    if (!name.id.empty()) {
        group.emplace(drawing.plot, name.id, name.title);
    }
    if (layer.LayerOf == kLayerOfNet) {
        if (!isLowest) {
            DrawNet(plot.record.PlotKind, drawing);
        }
    } else if (layer.LayerOf == kLayerOfResults) {
        DrawResultLayer(plot, drawing, layer);
    } else if (layer.LayerShow <= kShowBandSymbols) {
        DrawRowLayer(plot, drawing, layer);
    } else {
        DrawFieldLayer(plot, drawing, layer);
    }
}

void DrawLayers(const Plot& plot, const Drawing& drawing) {
    bool isLowest = true;
    for (const FigureLayer& layer : LayersOf(plot)) {
        DrawLayer(plot, drawing, layer, isLowest);
        isLowest = false;
    }
}

} // namespace

bool IsItemShown(const PlotRecord& record, int item) {
    const auto& values = record.AxisItems.at(static_cast<std::size_t>(item));
    return NumberOf(values[kItemShown]) != 0 && !IsEmpty(values[kItemTrend]);
}

void DrawPlot(const Plot& plot, const Drawing& drawing) {
    {
        const NamedGroup group(drawing.plot, "net", "Net");
        DrawPlotBase(plot.record, drawing);
    }
    if (plot.record.PlotKind == kRose) {
        DrawRose(plot, drawing);
        DrawLegend(plot, drawing);
    } else {
        DrawStereoPlot(plot, drawing);
    }
}

void DrawStereoPlot(const Plot& plot, const Drawing& drawing) {
    DrawLayers(plot, drawing);
    DrawLegend(plot, drawing);
}

void DrawNetOfFigure(const Plot& plot, const Drawing& drawing) {
    {
        const NamedGroup group(drawing.plot, "net", "Net");
        DrawPlotBase(plot.record, drawing, NetRoom::Beyond);
    }
    if (plot.record.PlotKind != kRose) {
        DrawLayers(plot, drawing);
    } else if (HasFigureRoses(drawing)) {
        DrawFigureRose(plot, drawing, LabelRoom::Beyond);
    } else {
        DrawRose(plot, drawing);
    }
}

LineLook LookOfGirdle(const PlotRecord& record, const Drawing& drawing, int item) {
    const auto& values = record.AxisItems.at(static_cast<std::size_t>(item));
    const AxisStyle style = {
        static_cast<std::int16_t>(WholeOf(values[kItemColour], kColourCount - 1)),
        static_cast<std::int16_t>(WholeOf(values[kItemDrawStyle], kNoLine)),
        static_cast<std::int16_t>(WholeOf(values[kItemDrawWidth], kWidestGirdle))};
    const LineStyle& lines = FigureOf(drawing).lines;
    LineLook look =
        LookOfLine(drawing.plot, drawing, style, StartStyles().axes[StyleRowOfItem(item)],
                   lines.girdleWidth, lines.accent);
    look.state.fillStyle = kNoFill;
    return look;
}

void DrawGirdle(const PlotRecord& record, const Drawing& drawing, int item) {
    if (record.PlotKind >= kRose || item == static_cast<int>(kMeanItem)) {
        return;
    }
    const auto& values = record.AxisItems.at(static_cast<std::size_t>(item));
    const LineLook look = LookOfGirdle(record, drawing, item);
    const SavedState saved(drawing.plot);
    drawing.plot.SetState(look.state);
    DrawPlane(drawing, record.PlotKind, NumberOf(values[kItemPlunge]), NumberOf(values[kItemTrend]),
              look.colour);
}

void DrawAxisItemSymbol(const PlotRecord& record, const Drawing& drawing, int item) {
    const auto& values = record.AxisItems.at(static_cast<std::size_t>(item));
    std::int16_t x = 0;
    std::int16_t y = 0;
    ProjectPointInt(record.PlotKind, NumberOf(values[kItemPlunge]), NumberOf(values[kItemTrend]), x,
                    y);
    DrawAxisMarker(drawing.plot, drawing, {static_cast<double>(x), static_cast<double>(y)},
                   item == kGirdleItem ? FigureAxis::Fold : FigureAxis::Principal);
}

} // namespace quandrel
