// SPDX-License-Identifier: MIT

#include "rose/petal_tip.h"

#include "classify/class_settings.h"
#include "classify/classification.h"
#include "core/data_format.h"
#include "orientation/number_text.h"
#include "rose/rose_legend.h"
#include "rose/rose_radii.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"

#include <cmath>

namespace quandrel {

namespace {

double StatsOf(const PlotRose& rose, int sector, RoseStatsColumn column) {
    return rose.sectorStats[static_cast<std::size_t>(sector)][column];
}

std::string Azimuth(double degrees) {
    const double wrapped = WrappedAzimuth(degrees);
    const bool isWhole = std::abs(wrapped - std::round(wrapped)) < 1e-6;
    return FormatNumber(wrapped, isWhole ? "000" : "000.0#");
}

std::string Bounds(double from, double to) {
    return Azimuth(from) + "-" + Azimuth(to);
}

std::string ShareText(double part, double whole) {
    return whole > 0 ? " (" + FormatNumber(100 * part / whole, "0.0") + "%)" : std::string();
}

std::string CountLine(const PlotRose& rose, const RoseWedge& wedge) {
    const double count = StatsOf(rose, wedge.sector, kRoseCount);
    const double all = StatsOf(rose, 0, kRoseCount);
    return FormatNumber(count, "0.##") + " of " + FormatNumber(all, "0.##") + " data"
           + ShareText(count, all);
}

/// Sum and mean of the appended values, or speed and energy of winds.
std::string ValueLines(const Plot& plot, int sector) {
    const int kind = RoseKindOf(plot.record.RoseType);
    const auto line = [&plot, sector](const std::string& what, RoseStatsColumn column) {
        return "\n" + what + FormatNumber(StatsOf(RoseOf(plot), sector, column), "0.###");
    };
    if (kind == kRoseFrequency) {
        return {};
    }
    if (kind >= kRoseWindSpeed && kind <= kRoseOverlaidWind) {
        std::string lines = line("Wind speeds: ", kRoseSpeedSum);
        if (kind != kRoseWindSpeed) {
            lines += line("Wind frequency: ", kRoseWindFrequencySum)
                     + line("Wind energy: ", kRoseEnergySum);
        }
        return lines;
    }
    const std::string name = RoseValueLabel(plot.record.AppNumName);
    return line(name + ", sum: ", kRoseValueSum) + line(name + ", mean: ", kRoseMean)
           + line(name + ", std. deviation: ", kRoseDeviation);
}

std::string ClassLine(const Plot& plot, const RoseWedge& wedge) {
    const PlotRecord& record = plot.record;
    const RoseSectorTable& sectors = RoseOf(plot).sectors;
    const std::optional<ClassColumn> column = RoseClassColumn(record);
    if (!column || wedge.classNumber == 0) {
        return {};
    }
    // A whole sector counts observations, its classes count rows.
    double all = 0;
    for (int c = 1; c <= sectors.Classes(); ++c) {
        all += sectors(wedge.sector, c, kRoseFrequencyLayer);
    }
    const double rows = sectors(wedge.sector, wedge.classNumber, kRoseFrequencyLayer);
    const LimitForm form = LimitFormOf(plot, *column);
    return "\n" + ClassLabel(record.ClassTable, *column, wedge.classNumber, form) + ": "
           + FormatNumber(rows, "0.##") + ShareText(rows, all);
}

} // namespace

std::string SectorBoundsText(const Plot& plot, int sector) {
    const PlotRecord& record = plot.record;
    const PlotRose& rose = RoseOf(plot);
    const int sectors = rose.sectors.Sectors();
    const bool isLast = sector == sectors && sector > 1;
    const double size = record.RoseSectorSize;
    const double oddSize = OddSectorOfRose(record, sectors);
    const double width = isLast && oddSize > 0 ? oddSize : size;
    const double end = 90 - rose.startMath - (sector - 1) * size;
    const std::string bounds = Bounds(end - width, end);
    const bool isOneSided = rose.isDirectional || CountsBothEnds(record);
    return isOneSided ? bounds : bounds + ", " + Bounds(end - width + 180, end + 180);
}

std::string PetalTip(const Plot& plot, Point at) {
    const PlotRose& rose = RoseOf(plot);
    if (plot.record.PlotKind != kRose || !rose.isCounted) {
        return {};
    }
    const RoseWedge* const wedge = WedgeAt(rose.wedges, at);
    if (wedge == nullptr || wedge->sector > rose.sectors.Sectors()) {
        return {};
    }
    return "Sector " + SectorBoundsText(plot, wedge->sector) + "\n" + CountLine(rose, *wedge)
           + ClassLine(plot, *wedge) + ValueLines(plot, wedge->sector);
}

} // namespace quandrel
