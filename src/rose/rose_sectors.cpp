// SPDX-License-Identifier: MIT

#include "rose/rose_sectors.h"

#include "classify/class_rule.h"
#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "rose/azimuth_tests.h"
#include "rose/gathered_rows.h"
#include "rose/rose_count.h"
#include "rose/rose_shown.h"
#include "rose/rose_tables.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

constexpr double kFullTurn = 360;
constexpr double kHalfTurn = 180;

// Sizes such as 360 / 7 meet their edges only approximately: an azimuth this close is on the edge.
constexpr double kEdgeTolerance = 1e-9;

constexpr const char* kOddSizeQuestion =
    "Because you have chosen an odd sector size\n"
    "one sector will be smaller than the others.Continue anyway?";
constexpr const char* kNoLinesText =
    "These data have no appended lines to be used as sample lines.\n"
    "The rose is drawn without a bias correction.";

/// The sector size for which the user accepted a smaller last sector of a plot.
struct AcceptedSectorSize {
    double size = 0;
};

void KeepAcceptedSize(Plot& plot, double size) {
    plot.attachments.Of<AcceptedSectorSize>().size = size;
}

/// The value, rounded if it is a whole number except for rounding errors.
double Snapped(double value) {
    const double whole = RoundToEven(value);
    return std::abs(value - whole) < kEdgeTolerance ? whole : value;
}

double StartMath(double startAzimuth, double size) {
    const double start = (startAzimuth <= 90 ? 90 : 450) - startAzimuth - size;
    return start < 0 ? start + kFullTurn : start;
}

/// The common bin of a sector and its opposite.
int SectorOfPair(const SectorLayout& layout, int sector) {
    const int half = layout.sectors / 2;
    const int lower = sector > half ? sector - half : sector;
    // Sector 1 ends one size clockwise from the start.
    const double end = layout.startAzimuth + (2 - lower) * layout.size;
    const double turns = Snapped(end / kHalfTurn);
    // The sector that ends above 0 and at 180 at most, after whole turns: the first half and its
    // end.
    const auto halfTurns = static_cast<long>(std::ceil(turns));
    return halfTurns % 2 != 0 ? lower : lower + half;
}

/// True when the user has accepted a smaller last sector, or no question is needed.
bool AcceptsDivision(Plot& plot, const SectorDivision& division) {
    bool& isAsked = RoseOf(plot).isOddAsked;
    if (division.oddSize == 0 || isAsked) {
        return true;
    }
    const auto* accepted = plot.attachments.Find<AcceptedSectorSize>();
    if (accepted != nullptr && accepted->size == division.size
        && plot.record.RoseOddSectorSize == division.oddSize) {
        return true;
    }
    isAsked = AskToGoOn(kOddSizeQuestion);
    if (isAsked) {
        KeepAcceptedSize(plot, division.size);
    }
    return isAsked;
}

/// Removes a bias correction that the rows do not allow. False when none is left.
[[nodiscard]] bool MendBias(PlotRecord& record) {
    if (!IsRoseBiasCorrected(record)) {
        return true;
    }
    if (record.RoseSamplePlunge == kOwnSampleLine && record.HasAppendedLine == 0) {
        record.RoseBiasMode = kNoBias;
        return false;
    }
    if (record.ShowSecondary == 0 && record.PrimaryFormat <= kDirections) {
        record.RoseBiasMode = kHorizontalAngle; // there is no dip for an angle in space
    }
    return true;
}

RoseCountSettings SettingsOf(const PlotRecord& record, const SectorLayout& layout) {
    RoseCountSettings settings;
    settings.kind = RoseKindOf(record.RoseType);
    settings.layout = layout;
    settings.strikes = record.DataKind == kPlanes;
    // The sign of the plunge marks a T axis, even a horizontal one: all keep the lower end's trend.
    settings.polar =
        record.DataKind == kPolarLines && !ShowsPlaneData(record) && record.AxesTitle.empty();
    settings.grouped = record.HasFrequencyColumn != 0;
    if (const std::optional<ClassColumn> column = RoseClassColumn(record)) {
        settings.classes = LastClass(RuleOfClassTable(record.ClassTable, *column));
    }
    settings.bias = {record.RoseBiasMode, settings.strikes, record.RoseMinBiasAngle,
                     record.RoseSamplePlunge == kOwnSampleLine};
    settings.sampleLine = {record.RoseSamplePlunge, record.RoseSampleTrend};
    return settings;
}

void Store(RoseTables tables, const SectorLayout& layout, Plot& plot) {
    PlotRecord& record = plot.record;
    PlotRose& rose = RoseOf(plot);
    rose.isCounted = true;
    rose.sectors = std::move(tables.sectors);
    rose.sectorStats = std::move(tables.stats);
    rose.trigSums = tables.trigSums;
    rose.angles = std::move(tables.angles);
    rose.azimuths = std::move(tables.azimuths);
    rose.isDirectional = layout.directional;
    rose.startMath = layout.startMath;
    rose.leftOut = tables.leftOut;
    record.RoseStats = tables.totals;
    if (RoseClassOf(record.RoseType) != kRoseUnclassified) {
        record.NumClassified = tables.rowsCounted;
    }
}

} // namespace

SectorDivision DivideCircle(double size) {
    SectorDivision division;
    division.size = size >= 1 ? std::min(size, kFullTurn) : 1.0;
    division.sectors = static_cast<int>(Snapped(kFullTurn / division.size));
    division.oddSize = RoundToEven(kFullTurn - division.sectors * division.size);
    if (division.oddSize != 0) {
        ++division.sectors;
    }
    return division;
}

SectorLayout LayOutSectors(const SectorDivision& division, double startAzimuth, bool directional) {
    SectorLayout layout;
    layout.size = division.size;
    layout.sectors = division.sectors;
    layout.startAzimuth = std::isfinite(startAzimuth) ? WrappedAzimuth(startAzimuth) : 0;
    layout.startMath = StartMath(layout.startAzimuth, layout.size);
    layout.directional = directional;
    layout.pairs = !directional && division.oddSize == 0 && division.sectors % 2 == 0;
    layout.bothEnds = !directional && !layout.pairs && division.sectors > 1;
    return layout;
}

SectorLayout LayoutOfRose(const PlotRecord& record) {
    return LayOutSectors(DivideCircle(record.RoseSectorSize), record.RoseStartAngle,
                         record.DataKind == kPolarLines);
}

bool CountsBothEnds(const PlotRecord& record) {
    return LayoutOfRose(record).bothEnds;
}

double FoldedAzimuth(double azimuth, bool directional) {
    const double wrapped = WrappedAzimuth(azimuth);
    return directional ? wrapped : std::fmod(wrapped, kHalfTurn);
}

int SectorOfAzimuth(const SectorLayout& layout, double azimuth) {
    const double folded = FoldedAzimuth(azimuth, layout.directional || layout.bothEnds);
    double beyondStart = (folded <= 90 ? 90 : 450) - folded - layout.startMath;
    if (beyondStart < -kEdgeTolerance) {
        beyondStart += kFullTurn;
    }
    const int sector = static_cast<int>(Snapped(beyondStart / layout.size)) + 1;
    const int counted = std::clamp(sector, 1, layout.sectors);
    return layout.pairs ? SectorOfPair(layout, counted) : counted;
}

CountedSectors SectorsOfAxis(const SectorLayout& layout, double azimuth) {
    CountedSectors counted;
    counted.first = SectorOfAzimuth(layout, azimuth);
    if (layout.bothEnds) {
        const int opposite = SectorOfAzimuth(layout, azimuth + kHalfTurn);
        counted.second = opposite == counted.first ? 0 : opposite;
    }
    return counted;
}

bool IsRoseBiasCorrected(const PlotRecord& record) {
    return record.RoseBiasMode != kNoBias && RoseKindOf(record.RoseType) <= kRoseMeanValue;
}

std::optional<ClassColumn> RoseClassColumn(const PlotRecord& record) {
    switch (RoseClassOf(record.RoseType)) {
    case kRoseByLength:
        return kNumberClasses;
    case kRoseByType:
        return NumberOf(record.ClassTable[kBaseRow][kNameClasses]) == 1 ? kTextNumberClasses
                                                                        : kNameClasses;
    default:
        return std::nullopt;
    }
}

bool CountRose(Plot& plot, MayAsk mayAsk) {
    PlotRecord& record = plot.record;
    if (record.NumValidData <= 0) {
        return true;
    }
    const SectorDivision division = DivideCircle(record.RoseSectorSize);
    if (mayAsk == MayAsk::Yes && !AcceptsDivision(plot, division)) {
        return false;
    }
    record.RoseSectorSize = division.size;
    if (division.oddSize != 0) {
        record.RoseOddSectorSize = division.oddSize; // Kept: not cleared when all are equal
    }
    if (!MendBias(record) && mayAsk == MayAsk::Yes) {
        Tell(kNoLinesText);
    }
    const SectorLayout layout = LayoutOfRose(record);
    const GatheredRows rows(plot, record);
    Store(CountRoseRows(SettingsOf(record, layout), rows.Rows()), layout, plot);
    RoseOf(plot).isOddAsked = false;
    return true;
}

bool RoseCountSectors() {
    return CountRose(ActivePlot(), MayAsk::Yes);
}

RoseTables TablesOfRose(const Plot& plot, PlotRecord& asked) {
    asked.RoseSectorSize = DivideCircle(asked.RoseSectorSize).size;
    (void)MendBias(asked);
    const GatheredRows rows(plot, asked);
    return CountRoseRows(SettingsOf(asked, LayoutOfRose(asked)), rows.Rows());
}

RoseTables MeasuredTablesOfRose(const Plot& plot) {
    const GatheredRows rows(plot, plot.record, RosePrecision::Measured);
    return CountRoseRows(SettingsOf(plot.record, LayoutOfRose(plot.record)), rows.Rows());
}

std::vector<RoseObservation> RowsOfRose(const Plot& plot) {
    const PlotRecord& record = plot.record;
    const GatheredRows rows(plot, record);
    return CountRoseRows(SettingsOf(record, LayoutOfRose(record)), rows.Rows()).rows;
}

AzimuthSample AnglesOfRose(const Plot& plot, int classNumber) {
    const PlotRecord& record = plot.record;
    const RoseCountSettings settings = SettingsOf(record, LayoutOfRose(record));
    const GatheredRows gathered(plot, record);
    RoseRows rows = gathered.Rows();
    std::vector<std::int16_t> classes(rows.classes.begin(), rows.classes.end());
    if (classNumber > 0) {
        for (std::int16_t& one : classes) {
            const int own = std::min(static_cast<int>(one), settings.classes);
            one = own == classNumber ? one : std::int16_t{0};
        }
        rows.classes = classes;
    }
    AzimuthSample found;
    found.areAxes = !settings.layout.directional;
    if (rows.measured.empty()) {
        found.steps = found.areAxes ? kStepsOfAxes : kStepsOfDirections;
    }
    const std::vector<double> listed = CountRoseRows(settings, rows).angles;
    const double factor = found.areAxes ? 2 : 1;
    for (std::size_t i = 1; i < listed.size(); ++i) { // index 0 is unused
        found.angles.push_back(factor * listed[i]);
    }
    return found;
}

bool AskForSectorSize(Plot& plot, double size) {
    const SectorDivision division = DivideCircle(size);
    if (division.oddSize == 0 || plot.record.NumValidData <= 0) {
        ForgetAcceptedSectorSize(plot);
        return true;
    }
    if (!AskToGoOn(kOddSizeQuestion)) {
        return false;
    }
    KeepAcceptedSize(plot, division.size);
    return true;
}

void AcceptSectorSize(Plot& plot) {
    ForgetRose(plot);
    const SectorDivision division = DivideCircle(plot.record.RoseSectorSize);
    KeepAcceptedSize(plot, division.size);
    if (division.oddSize != 0) {
        plot.record.RoseOddSectorSize = division.oddSize;
    }
}

void ForgetAcceptedSectorSize(Plot& plot) {
    plot.attachments.Drop<AcceptedSectorSize>();
}

} // namespace quandrel
