// SPDX-License-Identifier: MIT

#include "edit/selection/readout.h"

#include "classify/classification.h"
#include "core/class_stats.h"
#include "core/plot_store.h"
#include "density/density_levels.h"
#include "density/grid_density.h"
#include "density/grid_geometry.h"
#include "density/plot_density.h"
#include "orientation/angles.h"
#include "orientation/notation.h"
#include "orientation/number_text.h"
#include "orientation/projection.h"
#include "rose/rose_plot.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "statistics/orientation_notation.h"
#include "stereo/row_positions.h"
#include "stereo/shown_layers.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr double kQuarterTurn = 90;
constexpr double kFullTurn = 360;

bool ShowsDensity(const PlotRecord& record) {
    return ShowsDensities(record)
           || (record.PlotSymbolMode >= kPointDensitySymbols
               && record.PlotSymbolMode <= kContoursAndGrid);
}

/// The value at the node nearest to a position, if a grid of appended numbers is shown.
std::optional<double> GridValueAt(const PlotRecord& record, double x, double y) {
    const auto slot = static_cast<std::size_t>(gActivePlot);
    if (record.ClassMode != kClassesByNumber || record.PlotSymbolMode < kGridDensitySymbols
        || gGridCount[slot] == 0 || gGridValues[slot] == nullptr
        || record.GridSize < kSmallestGridSize || record.GridSize > kLargestGridSize) {
        return std::nullopt;
    }
    const int step = GridStep(record.GridSize);
    const auto nodeAt = [&](double position) {
        const double node = std::round((position - NodePosition(0, step)) / step);
        return static_cast<std::size_t>(
            std::clamp(node, 0.0, static_cast<double>(GridNodes(record.GridSize) - 1)));
    };
    const GridLayer layer =
        GridValueShown(record) == ClassGridValue::Mean ? kMeanLayer : kCumulativeLayer;
    const double value = (*gGridValues[slot])[layer][nodeAt(x)][nodeAt(y)];
    return value == kUnsetValue ? std::nullopt : std::optional<double>(value);
}

std::string DensityText(const PlotRecord& record, const NetLine& line, double x, double y) {
    Plot& plot = ActivePlot();
    if (const PlotDensity* field = DensityOf(plot)) {
        return "  ["
               + TextInUnit(std::round(100 * field->ValueAt({line.plunge, line.trend})) / 100,
                            field->Unit())
               + "]";
    }
    const ConeDensity density = DensityAt(plot, line.plunge, line.trend);
    const std::string share = "  [" + FormatNumber(density.perCent, "0.00") + "% : ";
    if (const std::optional<double> value = GridValueAt(record, x, y)) {
        return share + FormatNumber(*value, "0.00") + "]";
    }
    return share + std::to_string(density.count) + " data]";
}

std::string NetReadout(const PlotRecord& record, double x, double y) {
    const std::optional<NetLine> line = LineUnder(record.PlotKind, x, y);
    if (!line) {
        return "";
    }
    const int decimals = DecimalsShown(record);
    std::string text = TextOfLine(line->plunge, line->trend, decimals);
    if (IsPlottedAsPole(record, 0)) {
        text += "  (Pole to Plane: " + TextOfPlaneOfPole(line->plunge, line->trend, decimals) + ")";
    }
    return ShowsDensity(record) ? text + DensityText(record, *line, x, y) : text;
}

/// The sector of a layout that is drawn at an azimuth, whether or not data are counted in it.
int SectorDrawnAt(SectorLayout layout, double azimuth) {
    layout.directional = true;
    layout.pairs = false;
    layout.bothEnds = false;
    return SectorOfAzimuth(layout, azimuth);
}

/// "40 to 50", clockwise.
std::string EdgesOfSector(const SectorLayout& layout, int sector) {
    const double before = (sector - 1) * layout.size;
    const double size = std::min(layout.size, kFullTurn - before);
    const double end = WrappedAzimuth(kQuarterTurn - layout.startMath - before);
    // A sector that ends at north ends at a full turn.
    const double shownEnd = end == 0 ? kFullTurn : end;
    const double start = WrappedAzimuth(shownEnd - size);
    return FormatNumber(start, "0.##") + " to " + FormatNumber(shownEnd, "0.##");
}

std::string RoseReadout(const PlotRecord& record, double x, double y) {
    if (!IsOnNet(x, y) || (x == 0 && y == 0)) {
        return "";
    }
    const double direction = AzimuthBetweenPoints(0, 0, x, y);
    const double azimuth = RadToDeg(direction);
    const std::string degrees = TextOfAzimuth(direction, DecimalsShown(record));
    const std::string text =
        gConventions < 0 ? AzimuthToQuadrant(std::string_view(degrees)) : PadAzimuth(degrees);
    const SectorLayout layout = LayoutOfRose(record);
    if (!ActiveRose().isCounted || gRoseSectors->Sectors() != layout.sectors) {
        return text;
    }
    const int drawn = SectorDrawnAt(layout, azimuth);
    const int counted = layout.pairs ? SectorOfAzimuth(layout, azimuth) : drawn;
    return text + "  [" + EdgesOfSector(layout, drawn) + ": "
           + FormatNumber(gRoseSectors(counted, 0, kRoseFrequencyLayer), "0.##") + " data]";
}

/// A coordinate in whole units; rounded towards the centre where rounding would leave the net.
std::int32_t WholeUnits(double coordinate, bool inward) {
    return static_cast<std::int32_t>(inward ? std::trunc(coordinate) : RoundToEven(coordinate));
}

} // namespace

std::optional<NetLine> LineUnder(int plotKind, double x, double y) {
    if (plotKind == kRose || !IsOnNet(x, y)) {
        return std::nullopt;
    }
    const bool leavesNet = !IsOnNet(RoundToEven(x), RoundToEven(y));
    NetLine line;
    UnprojectPoint(plotKind, WholeUnits(x, leavesNet), WholeUnits(y, leavesNet), line.plunge,
                   line.trend);
    return line;
}

std::string ReadoutText(double x, double y) {
    if (!IsOpenSlot(gActivePlot)) {
        return "";
    }
    const PlotRecord& record = ActiveRecord();
    return record.PlotKind == kRose ? RoseReadout(record, x, y) : NetReadout(record, x, y);
}

} // namespace quandrel
