// SPDX-License-Identifier: MIT

#include "drawing/plot_driver.h"

#include "classify/classification.h"
#include "classify/value_grid.h"
#include "core/data_format.h"
#include "core/grid_slider.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings.h"
#include "density/contours.h"
#include "density/grid_density.h"
#include "density/point_density.h"
#include "derive/slip_arrows.h"
#include "drawing/legend.h"
#include "drawing/plot_status.h"
#include "edit/marks/annotations.h"
#include "edit/marks/small_circles.h"
#include "orientation/number_text.h"
#include "orientation/projection.h"
#include "platform/platform.h"
#include "rose/rose_plot.h"
#include "rose/rose_sectors.h"
#include "statistics/fabric_statistics.h"
#include "statistics/statistics_texts.h"
#include "stereo/axis_rows.h"
#include "stereo/draw_target.h"
#include "stereo/great_circles.h"
#include "stereo/net.h"
#include "stereo/plot_title.h"
#include "stereo/row_drawing.h"
#include "stereo/row_positions.h"
#include "stereo/symbols.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quandrel {

namespace {

constexpr int kFirstStatisticalItem = 9;

constexpr int kWidestGirdle = 50;

/// A value as a whole number from 0 to `most`.
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

bool IsClassifiedByNumber(const PlotRecord& record) {
    return record.ClassMode == 1;
}

bool GridIsStale(const PlotRecord& record) {
    const bool hasValues = gGridCount[static_cast<std::size_t>(gActivePlot)] != 0;
    return gGridDensitySlider != record.GridSize || record.DensityCount != record.NumValidData
           || record.RowsChanged != 0 || record.DensityGridFromFile
           || hasValues != (IsClassifiedByNumber(record) && record.HasAppendedNumeric != 0);
}

void ComputeGridIfStale(const PlotRecord& record) {
    if (!IsDrawingElsewhere() && GridIsStale(record)) {
        ComputeGridDensity();
    }
}

/// Grid symbols and contours of a plot that is classified by a number.
void DrawClassifiedGrid(const PlotRecord& record) {
    ComputeGridIfStale(record);
    if (record.NumClasses == 1 || record.NumClasses == 3) {
        DrawValueGrid();
    }
    if (record.NumClasses > 1) {
        TraceContoursClassified();
    }
}

/// Densities of the grid, as symbols, as contours, or both.
void DrawDensities(const PlotRecord& record) {
    ComputeGridIfStale(record);
    if (record.PlotSymbolMode != kContours) {
        DrawGridSymbols();
    }
    if (record.PlotSymbolMode != kGridDensitySymbols) {
        TraceContours();
    }
}

/// The arrows that go with the rows, or none.
SlipArrows ArrowsOfPlot(const PlotRecord& record) {
    if (record.DensityInvalid == 0) {
        return {};
    }
    return {DrawnSlipArrowAngle, SlipArrowsTellSense(gActivePlot)};
}

/// The main rows, as the plot's mode tells. Gives the number of beta intersections drawn.
std::int64_t DrawMainRows(const PlotRecord& record) {
    switch (record.PlotSymbolMode) {
    case kGreatCircles:
        DrawRowGreatCircles(MainRows(record));
        break;
    case kPointSymbols:
    case kPointSymbolsToo:
        DrawRowSymbols(MainRows(record), RowStyle::Own, ArrowsOfPlot(record));
        break;
    case kBetaIntersections:
        return DrawBetaIntersections();
    case kPointDensitySymbols:
        DrawRowSymbols(MainRows(record), RowStyle::DensityBand, ArrowsOfPlot(record));
        break;
    case kGridDensitySymbols:
    case kContours:
    case kContoursAndGrid:
        DrawDensities(record);
        break;
    default:
        break;
    }
    return 0;
}

void DrawOverlays(const PlotRecord& record) {
    for (int overlay = 1; overlay <= record.OverlayRows[kOverlayCount]; ++overlay) {
        if (record.OverlayKind[static_cast<std::size_t>(overlay)] == kOverlayGreatCircles) {
            DrawRowGreatCircles(OverlayRange(record, overlay));
        } else {
            DrawRowSymbols(OverlayRange(record, overlay), RowStyle::Own, ArrowsOfPlot(record));
        }
    }
}

/// What the statistics leave open has no pole, and is not drawn.
bool IsItemShown(const PlotRecord& record, int item) {
    const auto& values = record.AxisItems[static_cast<std::size_t>(item)];
    return NumberOf(values[kItemShown]) != 0 && !IsEmpty(values[kItemTrend]);
}

void DrawAxisItems(const PlotRecord& record) {
    for (int item = 0; item < kAxisItems; ++item) {
        if (IsItemShown(record, item)) {
            DrawGirdle(item);
        }
    }
    DrawSmallCircles();
    for (int item = kFirstStatisticalItem; item < kAxisItems; ++item) {
        if (IsItemShown(record, item)) {
            DrawAxisItemSymbol(item);
        }
    }
}

/// An edit that was taken back may have made axes of a plot's lines again: what counts over both
/// kinds of axes is not drawn.
void KeepAxesApart() {
    PlotRecord& record = ActiveRecord();
    const std::int16_t formerKind = record.PlotKind;
    MendMixedAxes(record);
    if (record.PlotKind != formerKind) {
        RebuildRowTable(gActivePlot);
    }
}

/// Draws everything of the active plot.
void DrawPlot(bool recalculate) {
    KeepAxesApart();
    DrawPlotBase();
    if (ActiveRecord().PlotKind == kRose) {
        RosePlot(recalculate);
        DrawLegend();
    } else {
        DrawStereoPlot(recalculate);
    }
}

/// The slider shows the grid of the plot in focus. Another plot that is drawn meanwhile keeps its
/// own.
class GridOfPlotInWork {
public:
    explicit GridOfPlotInWork(int gridSize)
        : former_(gGridDensitySlider) {
        if (gridSize > 0) {
            gGridDensitySlider = gridSize;
        }
    }

    ~GridOfPlotInWork() { gGridDensitySlider = former_; }

    GridOfPlotInWork(const GridOfPlotInWork&) = delete;
    GridOfPlotInWork& operator=(const GridOfPlotInWork&) = delete;

private:
    int former_;
};

constexpr std::int16_t kFirstClassedRose = 10; ///< RoseType; below it are the kinds without classes

/// What all petals of a rose without classes make up: observations, or the sum of its values.
double TotalOfRose(const PlotRecord& record) {
    constexpr std::array<std::size_t, 10> kMeasureOfKind = {0, 1, 2, 3, 4, 5, 5, 1, 1, 0};
    return record
        .RoseStats[kMeasureOfKind[static_cast<std::size_t>(std::clamp<int>(record.RoseType, 0, 9))]]
                  [kRawTotal];
}

/// Everything of the active plot and of its window.
void DrawActivePlot(bool recalculate) {
    const BusyPointer busy(*gPlatform.status);
    if (recalculate) {
        ActiveRecord().RowsChanged = kTrue;
    }
    DrawPlot(recalculate);
    PlotForm& form = FormOf(gActivePlot);
    form.SetBoxText(PlotBox::NumberOfData, NumberBoxText());
    WriteStatisticsBoxes();
    UpdateTitle();
    form.Show();
    gPlatform.status->SetText(StatusOfPlot(ActiveRecord()));
}

void DrawPicture(int slot) {
    const PlotInWork work(slot);
    const GridOfPlotInWork grid(RecordOf(slot).GridSize);
    DrawPlot(false);
    FormOf(slot).Show();
}

} // namespace

std::string StatusOfPlot(const PlotRecord& record) {
    if (record.NumValidData == 0) {
        return gHintText;
    }
    return std::to_string(record.NumValidData) + " data in " + record.PlotTitle;
}

void ConnectDrawing() {
    ConnectPlotDrawer(DrawForCause);
}

void DrawForCause(int slot, ReplotCause cause) {
    if (cause == ReplotCause::Picture) {
        DrawPicture(slot);
        return;
    }
    if (cause == ReplotCause::Repaint) {
        const Repainting repainting;
        DrawPicture(slot);
        return;
    }
    const PlotInWork work(slot);
    if (cause == ReplotCause::File && ActiveRecord().PlotKind == kRose) {
        AcceptSectorSize();
    }
    DrawActivePlot(cause == ReplotCause::Rows);
}

void DrawActivePlotOn(Surface& plot, Surface& legend) {
    const DrawElsewhere elsewhere(plot, legend);
    DrawPlot(false);
}

void DrawStereoPlot(bool recalculate) {
    PlotRecord& record = ActiveRecord();
    // A change of the main rows of a plot with overlays shows in its statistics too.
    if (!IsDrawingElsewhere() && (recalculate || record.RowsChanged != 0)) {
        ComputeRowStatistics();
    }
    if (record.NumSymbolsInPlot > 0) {
        record.DensityInvalid = kTrue;
    }
    if (IsClassifiedByNumber(record) && record.NumClasses >= 1) {
        DrawClassifiedGrid(record);
    }
    record.BetaCount = 0;
    if (ShowsMainRows(record)) {
        record.BetaCount = DrawMainRows(record);
    }
    if (!IsDrawingElsewhere()) {
        record.RowsChanged = 0;
    }
    DrawOverlays(record);
    DrawAnnotations();
    DrawLegend();
    DrawPlotFurniture();
    DrawAxisItems(record);
}

void ComputeRowStatistics() {
    const PlotRecord& record = ActiveRecord();
    RowTable& table = TableOf(gActivePlot);
    SortRowTable(table, std::min(table.size(), static_cast<std::size_t>(record.NumData)));
    ComputePointDensities();
    ComputeFabricStatistics();
    if (record.RowsChanged != 0) {
        RefreshClassification();
    }
}

void DrawGirdle(int item) {
    const PlotRecord& record = ActiveRecord();
    if (record.PlotKind >= kRose || item == static_cast<int>(kMeanItem)) {
        return;
    }
    const auto& values = record.AxisItems.at(static_cast<std::size_t>(item));
    DrawGreatCircleOfPole(
        PlotSurface(), record.PlotKind, NumberOf(values[kItemPlunge]), NumberOf(values[kItemTrend]),
        WholeOf(values[kItemColour], kColourCount - 1), WholeOf(values[kItemDrawStyle], kNoLine),
        WholeOf(values[kItemDrawWidth], kWidestGirdle));
}

void DrawAxisItemSymbol(int item) {
    const auto& values = ActiveRecord().AxisItems.at(static_cast<std::size_t>(item));
    std::int16_t x = 0;
    std::int16_t y = 0;
    ProjectPointInt(ActiveRecord().PlotKind, NumberOf(values[kItemPlunge]),
                    NumberOf(values[kItemTrend]), x, y);
    const AxisStyle& style = gAxisStyleTable[kBetaAxisStyle];
    DrawSymbol(PlotSurface(), x, y, style[0], style[1], style[2], 0);
}

std::string NumberBoxText() {
    const PlotRecord& record = ActiveRecord();
    const bool isRose = record.PlotKind == kRose;
    const std::string rows = std::to_string(record.NumValidData);
    if (isRose ? record.RoseType >= kFirstClassedRose : record.ClassMode > 0) {
        return std::to_string(record.NumClassified) + " (/" + rows + ")";
    }
    const std::string total = isRose ? FormatNumber(TotalOfRose(record), "0.##") : rows;
    return total == rows ? rows : total + " (" + rows + ")";
}

} // namespace quandrel
