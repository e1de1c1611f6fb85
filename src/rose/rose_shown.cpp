// SPDX-License-Identifier: MIT

#include "rose/rose_shown.h"

#include "classify/class_rule.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"

#include <array>
#include <optional>
#include <string>

namespace quandrel {

namespace {

/// The weights against bias, as of the record.
struct BiasCounted {
    std::int16_t mode = 0;
    std::int16_t plunge = 0;
    std::int16_t trend = 0;
    std::int16_t leastAngle = 0;

    friend bool operator==(const BiasCounted&, const BiasCounted&) = default;
};

/// The input of the count.
struct CountedFrom {
    std::int16_t type = 0;
    double sectorSize = 0;
    double startAngle = 0;
    BiasCounted bias;
    ClassTableCells classTable;         ///< empty without classes
    std::array<std::int16_t, 5> data{}; ///< kind, primary format, secondary, grouped, decimals
    std::array<std::int32_t, 2> rows{}; ///< all, valid

    friend bool operator==(const CountedFrom&, const CountedFrom&) = default;
};

/// Settings that are restored to the record.
struct RoseSettingsShown {
    CountedFrom counted;
    Formulas formulas = Formulas::Own; ///< of its circular statistics
    ClassTableCells classTable;
    double oddSectorSize = 0;
    std::int16_t shape = 0;
    std::int16_t equalArea = 0;
    std::int16_t histStyle = 0;
    std::int16_t segShape = 0;
    std::int16_t sectorFraction = 0;
    std::int16_t zeroCircle = 0;
    std::string scaleType;
};

/// The stored state of the rose of a plot.
struct RoseKnown {
    std::optional<RoseSettingsShown> shown;
    std::optional<CountedFrom> refused;
};

CountedFrom CountOf(const PlotRecord& record) {
    CountedFrom counted;
    counted.type = record.RoseType;
    counted.sectorSize = record.RoseSectorSize;
    counted.startAngle = record.RoseStartAngle;
    counted.bias = {record.RoseBiasMode, record.RoseSamplePlunge, record.RoseSampleTrend,
                    record.RoseMinBiasAngle};
    if (RoseClassOf(record.RoseType) != kRoseUnclassified) {
        counted.classTable = record.ClassTable;
    }
    counted.data = {record.DataKind, record.PrimaryFormat, record.ShowSecondary,
                    record.HasFrequencyColumn, record.UseDecimals};
    counted.rows = {record.NumData, record.NumValidData};
    return counted;
}

} // namespace

void RememberRose(Plot& plot, Formulas formulas) {
    const PlotRecord& record = plot.record;
    auto& known = plot.attachments.Of<RoseKnown>();
    RoseSettingsShown& shown = known.shown.emplace();
    shown.counted = CountOf(record);
    shown.formulas = formulas;
    shown.classTable = record.ClassTable;
    shown.oddSectorSize = record.RoseOddSectorSize;
    shown.shape = record.RoseShape;
    shown.equalArea = record.RoseEqualArea;
    shown.histStyle = record.RoseHistStyle;
    shown.segShape = record.RoseSegShape;
    shown.sectorFraction = record.RoseSectorFraction;
    shown.zeroCircle = record.RoseZeroCircle;
    shown.scaleType = record.RoseScaleType;
    known.refused.reset();
}

bool IsRoseStale(const Plot& plot, Formulas formulas) {
    const auto* const known = plot.attachments.Find<RoseKnown>();
    return plot.record.RowsChanged != 0 || known == nullptr || !known->shown
           || known->shown->counted != CountOf(plot.record) || known->shown->formulas != formulas;
}

bool RestoreRose(Plot& plot, Formulas formulas) {
    PlotRecord& record = plot.record;
    std::optional<RoseSettingsShown>& known = plot.attachments.Of<RoseKnown>().shown;
    if (!known || record.RoseRangeA[kTopRoseLayer][kInPerCent] == 0) {
        return false;
    }
    RoseSettingsShown& shown = *known;
    CountedFrom& counted = shown.counted;
    record.RoseType = counted.type;
    record.RoseSectorSize = counted.sectorSize;
    record.RoseStartAngle = counted.startAngle;
    record.RoseBiasMode = counted.bias.mode;
    record.RoseSamplePlunge = counted.bias.plunge;
    record.RoseSampleTrend = counted.bias.trend;
    record.RoseMinBiasAngle = counted.bias.leastAngle;
    record.ClassTable = shown.classTable;
    record.RoseOddSectorSize = shown.oddSectorSize;
    record.RoseShape = shown.shape;
    record.RoseEqualArea = shown.equalArea;
    record.RoseHistStyle = shown.histStyle;
    record.RoseSegShape = shown.segShape;
    record.RoseSectorFraction = shown.sectorFraction;
    record.RoseZeroCircle = shown.zeroCircle;
    record.RoseScaleType = shown.scaleType;
    // The rose stays unchanged although the rows may have changed.
    counted = CountOf(record);
    shown.formulas = formulas;
    record.RowsChanged = 0;
    return true;
}

void RefuseRose(Plot& plot) {
    plot.attachments.Of<RoseKnown>() = {std::nullopt, CountOf(plot.record)};
}

bool IsRoseRefused(const Plot& plot) {
    const auto* const known = plot.attachments.Find<RoseKnown>();
    return known != nullptr && known->refused && *known->refused == CountOf(plot.record);
}

void ForgetRose(Plot& plot) {
    plot.attachments.Drop<RoseKnown>();
    plot.attachments.Drop<PlotRose>();
    ForgetAcceptedSectorSize(plot);
}

} // namespace quandrel
