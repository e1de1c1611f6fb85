// SPDX-License-Identifier: MIT

#include "density/point_density.h"

#include "core/plot_store.h"
#include "core/told_step.h"
#include "density/axis_cells.h"
#include "density/cone_counts.h"
#include "density/count_classes.h"
#include "platform/platform.h"
#include "stereo/distinct_lines.h"
#include "stereo/window_drawing.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace quandrel {

namespace {

constexpr const char* kStepText = " Please wait - calculating point densities ";
constexpr int kFirstDoublingBand = 3;

// Kept: here the density of one row is rounded down; grids and contours round it up.
int BaseOf(std::int32_t rows) {
    const float unit = 100.0F / static_cast<float>(rows);
    return unit < 1 ? 1 : static_cast<int>(unit);
}

/// The band of each line that has rows, by the number of the line.
std::vector<std::int32_t> BandsByLine(std::span<const DistinctLine> lines,
                                      std::span<const std::int32_t> counts, std::int32_t rows) {
    std::vector<std::int32_t> bands(kLineKeys, 0);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const int key = LineKeyOfDegrees(lines[i].plunge, lines[i].trend);
        bands[static_cast<std::size_t>(key)] = PointDensityBand(counts[i], rows);
    }
    return bands;
}

/// Writes the bands of the main rows of a plot.
void StoreBands(Plot& plot, const std::vector<std::int32_t>& bandsByLine, StatusLine* watcher) {
    constexpr std::size_t kRowsAtOnce = 0x10000;
    const RowTable& table = plot.table;
    const std::span<const std::int32_t> indices = table.index;
    const std::span<const double> plunges = table.plunge;
    const std::span<const double> trends = table.trend;
    const std::span<std::int32_t> bands = plot.rows.pointDensity.Rows();
    const std::int32_t last =
        std::min(plot.record.NumData, static_cast<std::int32_t>(bands.size()) - 1);
    if (last < 1) {
        return;
    }
    ToldStep step(kStepText, static_cast<std::int64_t>(indices.size()), watcher);
    for (std::size_t place = 0; place < indices.size(); ++place) {
        if (place % kRowsAtOnce == 0) {
            step.Reach(static_cast<std::int64_t>(place));
        }
        const std::int32_t index = indices[place];
        if (index < 1 || index > last) {
            continue;
        }
        const double plunge = plunges[place];
        bands[static_cast<std::size_t>(index)] =
            IsErrorRow(plunge)
                ? 0
                : bandsByLine[static_cast<std::size_t>(LineKey(plunge, trends[place]))];
    }
}

/// Counts measured rows, and writes the bands of the main rows of their plot.
void ComputeMeasured(Plot& plot, const AxisCells& axes) {
    const std::int32_t rows = axes.Count();
    const CountClasses bands = ClassesOfCounts(
        axes, kCountCone, [rows](std::int32_t count) { return PointDensityBand(count, rows); },
        ThreadsToUse());
    plot.record.PointDensityMax = PointDensity(bands.greatest, rows);
    const std::span<std::int32_t> column = plot.rows.pointDensity.Rows();
    const auto end =
        std::min(static_cast<std::size_t>(std::max(plot.record.NumData, 0)) + 1, column.size());
    for (std::size_t row = 1; row < end; ++row) {
        column[row] = 0;
    }
    const std::vector<std::int32_t>& indexes = LinesOf(plot).rows;
    for (std::size_t i = 0; i < indexes.size(); ++i) {
        if (const auto row = static_cast<std::size_t>(indexes[i]); row < end) {
            column[row] = bands.ofAxis[i];
        }
    }
}

} // namespace

float PointDensity(std::int32_t count, std::int32_t rows) {
    return static_cast<float>(100.0 * count / rows);
}

int PointDensityBand(std::int32_t count, std::int32_t rows) {
    if (count <= 1) {
        return kIsolatedBand;
    }
    const int base = BaseOf(rows);
    const float density = PointDensity(count, rows);
    if (density < static_cast<float>(base)) {
        return kFirstDoublingBand - 1;
    }
    // The exponent of a floating-point number is the integer part of its base-2 logarithm.
    return std::ilogb(static_cast<double>(density) / base) + kFirstDoublingBand;
}

void ComputePointDensities(Plot& plot, StatusLine* watcher) {
    if (const AxisCells* const measured = MeasuredCellsOf(plot)) {
        ComputeMeasured(plot, *measured);
        return;
    }
    const std::vector<DistinctLine>& lines = LinesOf(plot).whole;
    const std::vector<std::int32_t> counts = CountsOfLines(lines);
    const std::int32_t rows = RowsOf(lines);
    const auto greatest = std::max_element(counts.begin(), counts.end());
    plot.record.PointDensityMax = counts.empty() ? 0 : PointDensity(*greatest, rows);
    StoreBands(plot, BandsByLine(lines, counts, rows), watcher);
}

void ComputePointDensities() {
    ComputePointDensities(ActivePlot(), WatcherInForce());
}

} // namespace quandrel
