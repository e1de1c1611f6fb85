// SPDX-License-Identifier: MIT

#include "drawing/draw_plot.h"

#include "classify/classification.h"
#include "classify/value_grid.h"
#include "core/data_format.h"
#include "core/overlay_names.h"
#include "core/plot_rows.h"
#include "density/contours.h"
#include "density/draw_density.h"
#include "density/grid_density.h"
#include "derive/slip_arrows.h"
#include "drawing/legend.h"
#include "edit/marks/annotations.h"
#include "edit/marks/small_circles.h"
#include "orientation/projection.h"
#include "rose/draw_rose.h"
#include "statistics/draw_regions.h"
#include "stereo/great_circles.h"
#include "stereo/net.h"
#include "stereo/row_drawing.h"
#include "stereo/symbols.h"

#include <algorithm>
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

/// The title of the group of the main rows: their file.
const std::string& TitleOfRows(const PlotRecord& record) {
    return record.FileTitle.empty() ? record.PlotTitle : record.FileTitle;
}

/// Grid symbols and contours of a plot that is classified by a number.
void DrawClassifiedGrid(const Plot& plot, const Drawing& drawing) {
    const NamedGroup group(drawing.plot, "value-grid", "Grid of values");
    if (plot.record.NumClasses == 1 || plot.record.NumClasses == 3) {
        DrawValueGrid(plot, drawing);
    }
    if (plot.record.NumClasses > 1) {
        DrawValueContours(plot, drawing);
    }
}

/// Densities of the grid, as symbols, as contours, or both.
void DrawDensities(const Plot& plot, const Drawing& drawing) {
    if (const PlotDensity* density = DensityOf(plot)) {
        DrawFieldDensities(plot, drawing, *density);
        return;
    }
    if (plot.record.PlotSymbolMode != kContours) {
        const NamedGroup group(drawing.plot, "grid-symbols", "Grid densities");
        DrawGridSymbols(plot, drawing);
    }
    if (plot.record.PlotSymbolMode != kGridDensitySymbols) {
        const NamedGroup group(drawing.plot, "contours", "Contours");
        DrawContours(plot, drawing);
    }
}

/// The arrows of the rows, or none.
SlipArrows ArrowsOfPlot(const Plot& plot) {
    if (plot.record.DensityInvalid == 0 && plot.record.NumSymbolsInPlot <= 0) {
        return {};
    }
    return {[&plot](std::int32_t row) { return DrawnSlipArrowAngle(plot, row); },
            SlipArrowsTellSense(plot)};
}

/// The main rows, in the plot's mode.
void DrawMainRows(const Plot& plot, const Drawing& drawing) {
    const NamedGroup group(drawing.plot, "rows", TitleOfRows(plot.record));
    switch (plot.record.PlotSymbolMode) {
    case kGreatCircles:
        DrawRowGreatCircles(plot, drawing, MainRows(plot.record));
        break;
    case kPointSymbols:
    case kPointSymbolsToo:
        DrawRowSymbols(plot, drawing, MainRows(plot.record), RowStyle::Own, ArrowsOfPlot(plot));
        break;
    case kBetaIntersections:
        DrawBetaIntersections(plot, drawing);
        break;
    case kPointDensitySymbols:
        DrawRowSymbols(plot, drawing, MainRows(plot.record), RowStyle::DensityBand,
                       ArrowsOfPlot(plot));
        if (const PlotDensity* density = DensityOf(plot)) {
            DrawFieldDensities(plot, drawing, *density);
        }
        break;
    case kGridDensitySymbols:
    case kContours:
    case kContoursAndGrid:
        DrawDensities(plot, drawing);
        break;
    default:
        break;
    }
}

void DrawOverlays(const Plot& plot, const Drawing& drawing) {
    const PlotRecord& record = plot.record;
    for (int overlay = 1; overlay <= record.OverlayRows[kOverlayCount]; ++overlay) {
        const NamedGroup group(drawing.plot, "overlay-" + std::to_string(overlay),
                               NameOfOverlay(record, overlay));
        const RowRange rows = OverlayRange(record, overlay);
        if (record.OverlayKind[static_cast<std::size_t>(overlay)] == kOverlayGreatCircles) {
            DrawRowGreatCircles(plot, drawing, rows);
        } else {
            DrawRowSymbols(plot, drawing, rows, RowStyle::Own, ArrowsOfPlot(plot));
        }
    }
}

/// A girdle or axis that the statistics leave undetermined does not have a pole, and is not drawn.
bool IsItemShown(const PlotRecord& record, int item) {
    const auto& values = record.AxisItems[static_cast<std::size_t>(item)];
    return NumberOf(values[kItemShown]) != 0 && !IsEmpty(values[kItemTrend]);
}

void DrawAxisItems(const Plot& plot, const Drawing& drawing) {
    const PlotRecord& record = plot.record;
    {
        const NamedGroup group(drawing.plot, "girdles", "Girdles");
        for (int item = 0; item < kAxisItems; ++item) {
            if (IsItemShown(record, item)) {
                DrawGirdle(record, drawing, item);
            }
        }
    }
    {
        const NamedGroup group(drawing.plot, "small-circles", "Small circles");
        DrawSmallCircles(record, drawing);
    }
    DrawRegions(plot, drawing);
    const NamedGroup group(drawing.plot, "axes", "Axes");
    for (int item = kFirstStatisticalItem; item < kAxisItems; ++item) {
        if (IsItemShown(record, item)) {
            DrawAxisItemSymbol(record, drawing, item);
        }
    }
}

} // namespace

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
    const PlotRecord& record = plot.record;
    if (record.ClassMode == kClassesByNumber && record.NumClasses >= 1) {
        DrawClassifiedGrid(plot, drawing);
    }
    if (ShowsMainRows(record)) {
        DrawMainRows(plot, drawing);
    }
    DrawOverlays(plot, drawing);
    {
        const NamedGroup group(drawing.plot, "annotations", "Annotations");
        DrawAnnotations(record, drawing);
    }
    DrawLegend(plot, drawing);
    {
        const NamedGroup group(drawing.plot, "mean-direction", "Mean direction");
        DrawPlotFurniture(record, drawing);
    }
    DrawAxisItems(plot, drawing);
}

void DrawGirdle(const PlotRecord& record, const Drawing& drawing, int item) {
    if (record.PlotKind >= kRose || item == static_cast<int>(kMeanItem)) {
        return;
    }
    const auto& values = record.AxisItems.at(static_cast<std::size_t>(item));
    DrawGreatCircleOfPole(
        drawing.plot, drawing.styles, record.PlotKind, NumberOf(values[kItemPlunge]),
        NumberOf(values[kItemTrend]), WholeOf(values[kItemColour], kColourCount - 1),
        WholeOf(values[kItemDrawStyle], kNoLine), WholeOf(values[kItemDrawWidth], kWidestGirdle));
}

void DrawAxisItemSymbol(const PlotRecord& record, const Drawing& drawing, int item) {
    const auto& values = record.AxisItems.at(static_cast<std::size_t>(item));
    std::int16_t x = 0;
    std::int16_t y = 0;
    ProjectPointInt(record.PlotKind, NumberOf(values[kItemPlunge]), NumberOf(values[kItemTrend]), x,
                    y);
    const AxisStyle& style = drawing.styles.axes[kBetaAxisStyle];
    DrawSymbol(drawing.plot, drawing.styles, x, y, style[kStyleColour], style[kStyleSymbol],
               style[kStyleSize], 0);
}

} // namespace quandrel
