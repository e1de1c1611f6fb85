// SPDX-License-Identifier: MIT

#include "rose/petal_tip.h"

#include "classify/class_settings.h"
#include "classify/classification.h"
#include "core/data_format.h"
#include "core/plot_store.h"
#include "orientation/number_text.h"
#include "rose/rose_legend.h"
#include "rose/rose_radii.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"

#include <cmath>

namespace quandrel {

namespace {

double StatsOf(int sector, RoseStatsColumn column) {
    return gRoseSectorStats[static_cast<std::size_t>(sector)][column];
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

std::string CountLine(const RoseWedge& wedge) {
    const double count = StatsOf(wedge.sector, kRoseCount);
    return FormatNumber(count, "0.##") + " of " + FormatNumber(StatsOf(0, kRoseCount), "0.##")
           + " data" + ShareText(count, StatsOf(0, kRoseCount));
}

/// Sum and mean of the appended values, or speed and energy of winds.
std::string ValueLines(const PlotRecord& record, int sector) {
    const int kind = RoseKindOf(record.RoseType);
    const auto line = [sector](const std::string& what, RoseStatsColumn column) {
        return "\n" + what + FormatNumber(StatsOf(sector, column), "0.###");
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
    const std::string name = RoseValueLabel(record.AppNumName);
    return line(name + ", sum: ", kRoseValueSum) + line(name + ", mean: ", kRoseMean)
           + line(name + ", std. deviation: ", kRoseDeviation);
}

std::string ClassLine(const PlotRecord& record, const RoseWedge& wedge) {
    const std::optional<ClassColumn> column = RoseClassColumn(record);
    if (!column || wedge.classNumber == 0) {
        return {};
    }
    // The whole of a sector counts observations, its classes count rows.
    double all = 0;
    for (int c = 1; c <= gRoseSectors->Classes(); ++c) {
        all += gRoseSectors(wedge.sector, c, kRoseFrequencyLayer);
    }
    const double rows = gRoseSectors(wedge.sector, wedge.classNumber, kRoseFrequencyLayer);
    const LimitForm form = LimitFormOfActivePlot(*column);
    return "\n" + ClassLabel(record.ClassTable, *column, wedge.classNumber, form) + ": "
           + FormatNumber(rows, "0.##") + ShareText(rows, all);
}

} // namespace

std::string SectorBoundsText(int sector) {
    const PlotRecord& record = ActiveRecord();
    const bool isLast = sector == gRoseSectors->Sectors() && sector > 1;
    const double size = record.RoseSectorSize;
    const double oddSize = OddSectorOfRose(record, gRoseSectors->Sectors());
    const double width = isLast && oddSize > 0 ? oddSize : size;
    const double end = 90 - gRoseStartMath - (sector - 1) * size;
    const std::string bounds = Bounds(end - width, end);
    const bool isOneSided = gRoseDirectional || CountsBothEnds(record);
    return isOneSided ? bounds : bounds + ", " + Bounds(end - width + 180, end + 180);
}

std::string PetalTip(Point at) {
    if (!IsOpenSlot(gActivePlot) || !ActiveRose().isCounted || ActiveRecord().PlotKind != kRose) {
        return {};
    }
    const RoseWedge* const wedge = WedgeAt(ActiveRose().wedges, at);
    if (wedge == nullptr || wedge->sector > gRoseSectors->Sectors()) {
        return {};
    }
    const PlotRecord& record = ActiveRecord();
    return "Sector " + SectorBoundsText(wedge->sector) + "\n" + CountLine(*wedge)
           + ClassLine(record, *wedge) + ValueLines(record, wedge->sector);
}

} // namespace quandrel
