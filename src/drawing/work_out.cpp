// SPDX-License-Identifier: MIT

#include "drawing/work_out.h"

#include "classify/classification.h"
#include "core/data_format.h"
#include "core/plot_formulas.h"
#include "core/plot_store.h"
#include "core/selection.h"
#include "core/settings_value.h"
#include "density/contours.h"
#include "density/grid_density.h"
#include "density/plot_density.h"
#include "density/point_density.h"
#include "drawing/layer_results.h"
#include "drawing/row_classes.h"
#include "edit/marks/small_circles.h"
#include "rose/rose_plot.h"
#include "statistics/fabric_statistics.h"
#include "statistics/plot_regions.h"
#include "stereo/axis_rows.h"
#include "stereo/cell_rows.h"
#include "stereo/row_drawing.h"
#include "stereo/row_positions.h"
#include "stereo/shown_layers.h"
#include "stereo/window_drawing.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace quandrel {

namespace {

bool ShowsDensityGrid(const PlotRecord& record) {
    return ShowsMainRowsAs(record, kShowGridSymbols) || ShowsMainRowsAs(record, kShowContours)
           || ShowsMainRowsAs(record, kShowBands);
}

bool GridIsStale(const Plot& plot, int gridSize) {
    const PlotRecord& record = plot.record;
    const bool wantsValues = record.ClassMode == kClassesByNumber && record.HasAppendedNumeric != 0;
    return gridSize != record.GridSize || record.DensityCount != record.NumValidData
           || record.RowsChanged != 0 || record.DensityGridFromFile
           || (plot.gridCount != 0) != wantsValues;
}

/// The grid of a plot that shows it, as symbols, contours or classes, and its contours.
void WorkOutGrid(Plot& plot, const WorkingOut& how) {
    const PlotRecord& record = plot.record;
    const bool showsValues = record.NumClasses >= 1 || ShowsMainRowsAs(record, kShowGridValues)
                             || ShowsMainRowsAs(record, kShowValueContours);
    const bool showsClasses = record.ClassMode == kClassesByNumber && showsValues;
    const bool showsDensities = ShowsDensityGrid(record);
    if ((showsClasses || showsDensities) && GridIsStale(plot, how.gridSize)) {
        ComputeGridDensity(plot, how.gridSize, how.watcher);
    }
    if (ShowsMainRowsAs(record, kShowContours) || ShowsMainRowsAs(record, kShowBands)) {
        FindContourLevels(plot);
    }
}

/// The classes of a plot that shows their regions; else none.
RowClasses ClassesOfRegions(const Plot& plot) {
    const PlotRecord& record = plot.record;
    const bool showsThem = record.RegionsAbout != 0 && (record.RegionsOf & kRegionsOfClasses) != 0;
    return showsThem ? RowClassesOf(plot) : RowClasses();
}

void WorkOutIntersections(Plot& plot, const WorkingOut& how) {
    PlotRecord& record = plot.record;
    if (ShowsMainRowsAs(record, kShowIntersections)) {
        record.BetaCount = WorkOutBetaIntersections(plot, how.watcher).count;
    } else {
        record.BetaCount = 0;
        DropBetaIntersections(plot);
    }
}

/// Undoing an edit may have turned a plot's lines back into axes: drawings that count over both
/// kinds of axes are not drawn.
void KeepAxesApart(Plot& plot) {
    const std::int16_t formerKind = plot.record.PlotKind;
    MendMixedAxes(plot.record);
    if (plot.record.PlotKind != formerKind) {
        RebuildRowTable(plot);
    }
}

} // namespace

WorkingOut WorkingOutOf(int slot, ReplotCause cause) {
    const PlotRecord& record = RecordOf(slot);
    const int ownGrid = record.GridSize;
    const bool keepsGrid =
        cause == ReplotCause::Picture || cause == ReplotCause::Repaint || slot != gActivePlot;
    return {cause,
            gSettings.styles,
            FormulasInForce(record),
            keepsGrid && ownGrid > 0 ? ownGrid : gSettings.gridSize,
            WatcherInForce(),
            Selection::now.slot == slot ? Selection::now.rows : std::vector<std::int32_t>()};
}

void WorkOutPlot(Plot& plot, const WorkingOut& how) {
    PlotRecord& record = plot.record;
    if (how.cause == ReplotCause::Rows) {
        record.RowsChanged = kTrue;
    }
    KeepAxesApart(plot);
    if (record.PlotKind == kRose) {
        WorkOutRose(plot, how.cause, how.formulas, how.watcher);
        return;
    }
    // A change of the main rows of a plot with overlays also affects its statistics.
    if (record.RowsChanged != 0) {
        ComputeRowStatistics(plot, how);
    }
    if (record.NumSymbolsInPlot > 0) {
        record.DensityInvalid = kTrue;
    }
    WorkOutGrid(plot, how);
    WorkOutDensity(plot, how.watcher);
    WorkOutRegions(plot, how.styles, ClassesOfRegions(plot), how.watcher);
    WorkOutIntersections(plot, how);
    plot.attachments.Of<ShownSelection>().rows = how.selection;
    WorkOutLayers(plot, how.styles, how.gridSize, how.watcher);
    NoteSmallCircles(record);
    record.RowsChanged = 0;
}

void WorkOutUnseen(Plot& plot) {
    if (plot.record.PlotKind == kRose) {
        WorkOutRoseUnseen(plot, FormulasInForce(plot.record));
    }
}

void ComputeRowStatistics(Plot& plot, const WorkingOut& how) {
    SortRowTable(plot.table,
                 std::min(plot.table.size(), static_cast<std::size_t>(plot.record.NumData)));
    CountMeasurements(plot);
    ComputePointDensities(plot, how.watcher);
    ComputeFabricStatistics(plot, how.styles, how.formulas);
    if (plot.record.RowsChanged != 0) {
        RefreshClassification(plot, how.styles);
    }
}

void ComputeRowStatistics() {
    ComputeRowStatistics(ActivePlot(), WorkingOutOf(gActivePlot, ReplotCause::Settings));
}

} // namespace quandrel
