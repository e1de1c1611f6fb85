// SPDX-License-Identifier: MIT

#include "drawing/draw_plot.h"

#include "core/data_format.h"
#include "core/item_style.h"
#include "drawing/draw_layers.h"
#include "drawing/layer_list.h"
#include "drawing/legend.h"
#include "orientation/projection.h"
#include "rose/draw_rose.h"
#include "rose/figure_rose.h"
#include "rose/figure_rose_fills.h"
#include "stereo/figure_lines.h"
#include "stereo/figure_symbols.h"
#include "stereo/great_circles.h"
#include "stereo/net.h"

#include <algorithm>
#include <vector>

namespace quandrel {

namespace {

constexpr int kWidestGirdle = 50;

/// A value as a whole number, clamped to 0 to `most`.
int WholeOf(const TaggedValue& value, int most) {
    const double number = NumberOf(value);
    return number > 0 ? static_cast<int>(std::min(number, static_cast<double>(most))) : 0;
}

/// The base of a net or a rose. The lowest layer gives the net its properties.
void DrawBase(const Plot& plot, const Drawing& drawing, NetRoom room) {
    const NamedGroup group(drawing.plot, "net", "Net");
    const std::vector<FigureLayer> layers = LayersOf(plot);
    Drawing own = drawing;
    if (!layers.empty() && layers.front().LayerOf == kLayerOfNet) {
        own.layer = &layers.front();
    }
    DrawPlotBase(plot.record, own, room);
}

} // namespace

bool IsItemShown(const PlotRecord& record, int item) {
    const auto& values = record.AxisItems.at(static_cast<std::size_t>(item));
    return NumberOf(values[kItemShown]) != 0 && !IsEmpty(values[kItemTrend]);
}

void DrawPlot(const Plot& plot, const Drawing& drawing) {
    DrawBase(plot, drawing, NetRoom::Within);
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
    DrawBase(plot, drawing, NetRoom::Beyond);
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
    const bool isOfStyle =
        lines.girdleWidth > 0 && style == StartStyles().axes[StyleRowOfItem(item)];
    if (isOfStyle && item >= kFirstStatisticalItem) {
        const bool isGirdle = item == static_cast<int>(kGirdleItem);
        look.state.drawStyle = isGirdle ? kSolidLine : kDashDotLine;
        TakeLayer(drawing.layer, look);
    }
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
