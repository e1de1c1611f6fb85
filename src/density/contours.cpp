// SPDX-License-Identifier: MIT

#include "density/contours.h"

#include "core/plot_store.h"
#include "core/told_step.h"
#include "density/cone_counts.h"
#include "density/contour_levels.h"
#include "density/density_look.h"
#include "density/grid_density.h"
#include "density/grid_geometry.h"
#include "density/point_density.h"
#include "orientation/number_text.h"
#include "stereo/distinct_lines.h"
#include "stereo/figure_text.h"
#include "stereo/symbols.h"
#include "stereo/window_drawing.h"

#include <algorithm>

namespace quandrel {

namespace {

/// Closed parts of a contour with fewer cells than this are artefacts of the counting.
constexpr double kLeastCells = 4;

/// Counts at the nodes of a plot's grid.
std::vector<double> CountsOfGrid(const PlotRecord& record, int nodes) {
    std::vector<double> counts;
    const auto side = static_cast<std::size_t>(nodes);
    counts.reserve(side * side);
    for (std::size_t i = 0; i < side; ++i) {
        for (std::size_t j = 0; j < side; ++j) {
            counts.push_back((*record.DensityGrid)[i][j]);
        }
    }
    return counts;
}

void DrawIsolatedRows(const Plot& plot, const Drawing& drawing) {
    const RowTable& table = plot.table;
    std::vector<Point> places;
    for (std::size_t place = 0; place < table.size(); ++place) {
        const std::int32_t row = table.index[place];
        if (row <= plot.record.NumData && !IsErrorRow(table.plunge[place])
            && plot.rows.pointDensity(row) == kIsolatedBand
            && CodeSymbol(plot.rows.symbol(row)) != kNoSymbol) {
            places.push_back(
                {static_cast<double>(table.x[place]), static_cast<double>(table.y[place])});
        }
    }
    if (!places.empty()) {
        DrawSymbols(drawing.plot, drawing.styles, places,
                    CodeOfStyleRow(drawing.styles, kFirstBandSymbol));
    }
}

} // namespace

void DrawContourLine(const Drawing& drawing, const std::vector<ContourSegment>& segments,
                     const AxisStyle& style) {
    LineLook look{drawing.plot.State(), TableColour(drawing.styles, style[kStyleColour])};
    look.state.drawStyle = style[kStyleLine];
    look.state.drawWidth = style[kStyleWidth];
    look.state.widthInPoints = FigureOf(drawing).lines.contourWidth;
    TakeLayer(drawing.layer, look);
    drawing.plot.SetState(look.state);
    for (const std::vector<Point>& line : ChainSegments(segments)) {
        drawing.plot.Polyline(line, look.colour);
    }
}

void DrawContourAs(const Drawing& drawing, const LineLook& look, std::span<const Point> line,
                   double level) {
    drawing.plot.SetState(look.state);
    if (HasLabels(drawing)) {
        DrawLabelledLine(drawing.plot, drawing, line, FormatNumber(level, "0.####"), look.colour);
    } else {
        drawing.plot.Polyline(line, look.colour);
    }
}

AxisStyle ContourStyleOf(const Styles& styles, int level) {
    return styles.contours[static_cast<std::size_t>(std::min(level, kContourStyles - 1))];
}

std::vector<ContourSegment> ContourOfCounts(const NodeValues& counts, double level,
                                            std::int32_t rows) {
    return WithoutSpecks(TraceContour(counts, CountOfLevel(level, rows)),
                         kLeastCells * counts.step * counts.step);
}

std::vector<LevelContour> ContoursOf(const Plot& plot, StatusLine* watcher) {
    const PlotRecord& record = plot.record;
    const std::int32_t rows = CountOfMainRows(plot);
    std::vector<LevelContour> contours;
    if (rows < 1 || !HasDensityGrid(record)) {
        return contours;
    }
    const int nodes = GridNodes(record.GridSize);
    const int step = GridStep(record.GridSize);
    const std::vector<double> counts = CountsOfGrid(record, nodes);
    const NodeValues grid = {counts, nodes, static_cast<double>(NodePosition(0, step)),
                             static_cast<double>(step)};
    ToldStep told(" Please wait - calculating contours", record.NumContours, watcher);
    for (std::int16_t k = 0; k < record.NumContours; ++k) {
        told.Reach(k);
        const std::int16_t level = record.ContourLevels.at(static_cast<std::size_t>(k));
        contours.push_back({level, ContourOfCounts(grid, level, rows)});
    }
    return contours;
}

void FindContourLevels(Plot& plot) {
    const ContourLevelSet set = ContourLevelsOf(CountOfMainRows(plot), plot.record.GridDensityMax);
    plot.record.ContourLevels = set.levels;
    plot.record.NumContours = set.count;
}

void DrawContours(const Plot& plot, const Drawing& drawing) {
    {
        const SavedState saved(drawing.plot);
        int number = 0;
        for (const LevelContour& contour : ContoursOf(plot, drawing.watcher)) {
            const LineLook look = LookOfCountContour(drawing.plot, drawing, plot.record, number++,
                                                     plot.record.NumContours);
            for (const std::vector<Point>& line : ChainSegments(contour.segments)) {
                DrawContourAs(drawing, look, line, contour.level);
            }
        }
    }
    if (drawing.styles.showIsolatedPts != 0) {
        DrawIsolatedRows(plot, drawing);
    }
}

void TraceContours() {
    FindContourLevels(ActivePlot());
    DrawContours(ActivePlot(), WindowDrawing(gActivePlot));
}

} // namespace quandrel
