// SPDX-License-Identifier: MIT

#include "rose/rose_go.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "rose/rose_count.h"
#include "rose/rose_plot.h"
#include "rose/rose_radii.h"
#include "rose/rose_scale.h"
#include "rose/rose_sectors.h"
#include "stereo/axis_rows.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quandrel {

namespace {

constexpr int kClassDigit = 10;

std::int16_t Truth(bool value) {
    return value ? kTrue : std::int16_t{0};
}

bool IsWithin(double value, double least, double most) {
    return value >= least && value <= most;
}

/// A setting that must be between two limits.
struct Bounds {
    RoseField field;
    double value;
    double least;
    double most;
    const char* reason;
};

std::optional<RoseRefusal> CheckBounds(const RoseSettings& settings) {
    const bool ownLine = settings.ownLines;
    const Bounds bounds[] = {
        {RoseField::Kind, static_cast<double>(settings.kind), 0, 8,
         "There is no such kind of rose."},
        {RoseField::Classes, static_cast<double>(settings.classes), 0, 2,
         "There is no such classification of a rose."},
        {RoseField::Shape, static_cast<double>(settings.shape), 0, 4,
         "There is no such shape of a rose."},
        {RoseField::SectorSize, settings.sectorSize, 1, 360,
         "The sector size must be between 1 and 360 degrees."},
        {RoseField::StartAngle, settings.startAngle, 0, 360,
         "The starting azimuth must be between 0 and 360 degrees."},
        {RoseField::SectorFraction, static_cast<double>(settings.sectorFraction), 1, 100,
         "The sector width must be between 1 and 100 %."},
        {RoseField::ZeroCircle, static_cast<double>(settings.zeroCircle), 0, 90,
         "The zero circle must be between 0 and 90 %."},
        {RoseField::BiasMode, static_cast<double>(settings.biasMode), 0, 3,
         "There is no such bias correction."},
        {RoseField::SamplePlunge, ownLine ? 0.0 : settings.samplePlunge, 0, 90,
         "The plunge of the sampling line must be between 0 and 90 degrees."},
        {RoseField::SampleTrend, ownLine ? 0.0 : settings.sampleTrend, 0, 360,
         "The trend of the sampling line must be between 0 and 360 degrees."},
        {RoseField::MinBiasAngle, static_cast<double>(settings.minBiasAngle), 1, 90,
         "The minimum angle used must be between 1 and 90 degrees."},
    };
    for (const Bounds& bound : bounds) {
        if (!IsWithin(bound.value, bound.least, bound.most)) {
            return RoseRefusal{bound.field, bound.reason};
        }
    }
    return std::nullopt;
}

std::string TextOfScale(const RoseSettings& settings) {
    return (settings.circles ? "circ" : "tick")
           + (settings.interval ? FormatNumber(*settings.interval, "General Number")
                                : std::string("auto"));
}

int TypeOf(const RoseSettings& settings) {
    const int type = settings.kind + settings.classes * kClassDigit;
    // Means and deviations do not have classes.
    return HasRoseClasses(type) ? type : settings.kind;
}

void WriteBias(const RoseSettings& settings, PlotRecord& record) {
    record.RoseBiasMode = static_cast<std::int16_t>(settings.biasMode);
    record.RoseSamplePlunge =
        settings.ownLines ? kOwnSampleLine : static_cast<std::int16_t>(settings.samplePlunge);
    record.RoseSampleTrend = static_cast<std::int16_t>(settings.sampleTrend);
    record.RoseMinBiasAngle = static_cast<std::int16_t>(settings.minBiasAngle);
}

void Write(const RoseSettings& settings, PlotRecord& record) {
    record.RoseShape = static_cast<std::int16_t>(settings.shape);
    record.RoseEqualArea = Truth(settings.equalArea);
    record.RoseStartAngle = settings.startAngle;
    record.RoseSectorSize = settings.sectorSize;
    record.RoseOddSectorSize = DivideCircle(settings.sectorSize).oddSize;
    record.RoseSectorFraction = static_cast<std::int16_t>(settings.sectorFraction);
    record.RoseZeroCircle = static_cast<std::int16_t>(settings.zeroCircle);
    record.RoseType = static_cast<std::int16_t>(TypeOf(settings));
    if (settings.table) {
        record.ClassTable = *settings.table;
    }
    record.RoseScaleType = TextOfScale(settings);
    record.RoseHistStyle = static_cast<std::int16_t>(settings.histStyle);
    record.RoseSegShape = static_cast<std::int16_t>(settings.segShape);
    WriteBias(settings, record);
}

/// The scale of new plots after a Go. An interval that the plot already had, for instance from a
/// file, was not typed and does not become the default.
std::string DefaultScale(const RoseSettings& settings, const RoseSettings& former) {
    const bool isTyped = !settings.interval || settings.interval != former.interval;
    return isTyped ? TextOfScale(settings)
                   : ScaleTypeWithForm(gSettings.newPlots.rose.scaleType, settings.circles);
}

/// The largest sector of the requested rose, per cent of the total.
double LargestPerCentOf(const RoseSettings& settings, const Plot& plot) {
    const PlotRecord& record = plot.record;
    PlotRecord asked;
    asked.DataKind = record.DataKind;
    asked.PrimaryFormat = record.PrimaryFormat;
    asked.ShowSecondary = record.ShowSecondary;
    asked.HasFrequencyColumn = record.HasFrequencyColumn;
    asked.HasAppendedLine = record.HasAppendedLine;
    asked.HasAppendedNumeric = record.HasAppendedNumeric;
    asked.HasAppendedText = record.HasAppendedText;
    SetCounts(asked, CountsOf(record));
    asked.ClassTable = record.ClassTable;
    Write(settings, asked);
    RoseTables tables = TablesOfRose(plot, asked);
    if (FaultOfTotals(asked, tables.totals, tables.sectors(0, 0, kRoseValueLayer))
        != kNoRoseFault) {
        asked.RoseType = kRoseFrequency; // as the drawing does
        tables = TablesOfRose(plot, asked);
    }
    return LargestPerCent(tables.totals, MeasureOfRose(asked.RoseType));
}

std::optional<RoseRefusal> CheckInterval(const RoseSettings& settings, const Plot& plot) {
    if (!settings.interval) {
        return std::nullopt;
    }
    const double interval = *settings.interval;
    if (!(interval >= 0) || !std::isfinite(interval)) {
        return RoseRefusal{RoseField::ScaleInterval,
                           "The scale interval must be a number above 0, or auto."};
    }
    const double largest = interval * kMostRoseMarks * (1 + 1e-9);
    // Frequencies are at most 100 %; sums of values of both signs may be larger.
    const bool fitsAny = settings.kind == kRoseFrequency && largest >= 100;
    if (interval > 0 && !fitsAny && LargestPerCentOf(settings, plot) > largest) {
        return RoseRefusal{RoseField::ScaleInterval,
                           "The scale interval is too small: it would give more than "
                               + std::to_string(kMostRoseMarks) + " marks."};
    }
    return std::nullopt;
}

} // namespace

RoseSettings RoseSettingsOf(const PlotRecord& record) {
    RoseSettings settings;
    settings.kind = IsRoseKind(RoseKindOf(record.RoseType)) ? RoseKindOf(record.RoseType)
                                                            : static_cast<int>(kRoseFrequency);
    settings.classes = std::min<int>(RoseClassOf(record.RoseType), kRoseByType);
    settings.shape = record.RoseShape;
    settings.equalArea = record.RoseEqualArea != 0;
    settings.sectorSize = record.RoseSectorSize;
    settings.startAngle = record.RoseStartAngle;
    settings.sectorFraction = record.RoseSectorFraction;
    settings.zeroCircle = record.RoseZeroCircle;
    settings.histStyle = record.RoseHistStyle;
    settings.segShape = record.RoseSegShape;
    settings.circles = HasScaleCircles(record.RoseScaleType);
    if (!HasAutomaticInterval(record.RoseScaleType)) {
        settings.interval = RoseScaleInterval(record);
    }
    settings.outerCircle = gRoseOuterCircle;
    settings.biasMode = record.RoseBiasMode;
    settings.ownLines = record.RoseSamplePlunge == kOwnSampleLine;
    settings.samplePlunge = settings.ownLines ? 0 : record.RoseSamplePlunge;
    settings.sampleTrend = record.RoseSampleTrend;
    settings.minBiasAngle = record.RoseMinBiasAngle;
    return settings;
}

std::optional<RoseRefusal> CheckRoseSettings(const Plot& plot, const RoseSettings& settings) {
    const PlotRecord& record = plot.record;
    if (HoldsBothAxes(record)) {
        return RoseRefusal{RoseField::Kind, kMixedRoseRefusal};
    }
    if (std::optional<RoseRefusal> refusal = CheckBounds(settings)) {
        return refusal;
    }
    if (settings.ownLines && settings.biasMode != 0 && record.HasAppendedLine == 0) {
        return RoseRefusal{RoseField::OwnLines,
                           "These data have no appended lines to correct their bias with."};
    }
    return CheckInterval(settings, plot);
}

RoseOutcome TryRoseSettings(const RoseSettings& settings) {
    if (std::optional<RoseRefusal> refusal = CheckRoseSettings(ActivePlot(), settings)) {
        return {RoseVerdict::Refused, std::move(refusal)};
    }
    if (!AskForSectorSize(ActivePlot(), settings.sectorSize)) {
        return {RoseVerdict::Cancelled, std::nullopt};
    }
    return {};
}

void PlotRoseSettings(const RoseSettings& settings) {
    PlotRecord& record = ActiveRecord();
    if (record.PlotKind != kRose) {
        record.PlotKind = kRose;
        RebuildRowTable(gActivePlot);
    }
    // Showing a net as a rose does not need saving; other settings do.
    const RoseSettings former = RoseSettingsOf(record);
    const ClassTableCells formerTable = record.ClassTable;
    Write(settings, record);
    if (!(RoseSettingsOf(record) == former) || record.ClassTable != formerTable) {
        record.Modified = kTrue;
    }
    gRoseOuterCircle = settings.outerCircle;
    gRoseSectorSize = record.RoseSectorSize;
    gRoseSectorFraction = record.RoseSectorFraction;
    gSettings.newPlots.rose.scaleType = DefaultScale(settings, former);
    ReplotActivePlot(true);
}

RoseOutcome ApplyRoseSettings(const RoseSettings& settings) {
    RoseOutcome outcome = TryRoseSettings(settings);
    if (outcome.verdict == RoseVerdict::Done) {
        PlotRoseSettings(settings);
    }
    return outcome;
}

int CorrectedBiasValue(BiasBox box, double typed) {
    const double least = box == BiasBox::MinAngle ? 1 : 0;
    const double most = box == BiasBox::Trend ? 360 : 90;
    return static_cast<int>(
        RoundToEven(std::clamp(std::isnan(typed) ? least : typed, least, most)));
}

std::optional<double> NumberOfRoseBox(std::string_view text) {
    const std::string_view typed = WithoutBlanks(text);
    if (typed.empty()) {
        return 0.0;
    }
    const bool isNumber = ReadNumber(typed).has_value();
    return isNumber ? std::optional(NumberFromText(typed, gDecimalIsComma)) : std::nullopt;
}

double SizeOfSectors(int sectors) {
    return 360.0 / std::max(sectors, 1);
}

bool DividesCircle(double sectorSize) {
    return DivideCircle(sectorSize).oddSize == 0;
}

} // namespace quandrel
