// SPDX-License-Identifier: MIT

#include "rose/rose_shown.h"

#include "classify/class_rule.h"
#include "core/formulas.h"
#include "core/plot_store.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"

#include <array>
#include <string>
#include <unordered_map>

namespace quandrel {

namespace {

/// What the count depends on.
struct CountedFrom {
    std::int16_t type = 0;
    double sectorSize = 0;
    double startAngle = 0;
    std::array<std::int16_t, 4> bias{}; ///< mode, plunge, trend, least angle
    ClassTableCells classTable;         ///< empty without classes
    std::array<std::int16_t, 4> data{}; ///< kind, primary format, secondary shown, grouped
    std::array<std::int32_t, 2> rows{}; ///< all, valid

    friend bool operator==(const CountedFrom&, const CountedFrom&) = default;
};

/// Settings that go back into the record.
struct RoseSettingsShown {
    std::string file; ///< of the plot, as a slot may have held another one
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

struct RoseRefused {
    std::string file; ///< likewise
    CountedFrom counted;
};

std::unordered_map<int, RoseSettingsShown> shownRoses;
std::unordered_map<int, RoseRefused> refusedRoses;

std::string FileOf(const PlotRecord& record) {
    return record.FileNames[1] + "\n" + record.FileTitle;
}

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
                    record.HasFrequencyColumn};
    counted.rows = {record.NumData, record.NumValidData};
    return counted;
}

} // namespace

void RememberRose() {
    const PlotRecord& record = ActiveRecord();
    RoseSettingsShown& shown = shownRoses[gActivePlot];
    shown.file = FileOf(record);
    shown.counted = CountOf(record);
    shown.formulas = gFormulas;
    shown.classTable = record.ClassTable;
    shown.oddSectorSize = record.RoseOddSectorSize;
    shown.shape = record.RoseShape;
    shown.equalArea = record.RoseEqualArea;
    shown.histStyle = record.RoseHistStyle;
    shown.segShape = record.RoseSegShape;
    shown.sectorFraction = record.RoseSectorFraction;
    shown.zeroCircle = record.RoseZeroCircle;
    shown.scaleType = record.RoseScaleType;
    refusedRoses.erase(gActivePlot);
}

bool IsRoseStale() {
    const PlotRecord& record = ActiveRecord();
    const auto shown = shownRoses.find(gActivePlot);
    return record.RowsChanged != 0 || shown == shownRoses.end()
           || shown->second.counted != CountOf(record) || shown->second.formulas != gFormulas;
}

bool RestoreRose() {
    PlotRecord& record = ActiveRecord();
    const auto found = shownRoses.find(gActivePlot);
    if (found == shownRoses.end() || record.RoseRangeA[0][0] == 0
        || found->second.file != FileOf(record)) {
        return false;
    }
    RoseSettingsShown& shown = found->second;
    CountedFrom& counted = shown.counted;
    record.RoseType = counted.type;
    record.RoseSectorSize = counted.sectorSize;
    record.RoseStartAngle = counted.startAngle;
    record.RoseBiasMode = counted.bias[0];
    record.RoseSamplePlunge = counted.bias[1];
    record.RoseSampleTrend = counted.bias[2];
    record.RoseMinBiasAngle = counted.bias[3];
    record.ClassTable = shown.classTable;
    record.RoseOddSectorSize = shown.oddSectorSize;
    record.RoseShape = shown.shape;
    record.RoseEqualArea = shown.equalArea;
    record.RoseHistStyle = shown.histStyle;
    record.RoseSegShape = shown.segShape;
    record.RoseSectorFraction = shown.sectorFraction;
    record.RoseZeroCircle = shown.zeroCircle;
    record.RoseScaleType = shown.scaleType;
    // The rose stays as it is although the rows may have changed.
    counted = CountOf(record);
    shown.formulas = gFormulas;
    record.RowsChanged = 0;
    return true;
}

void RefuseRose() {
    const PlotRecord& record = ActiveRecord();
    refusedRoses[gActivePlot] = {FileOf(record), CountOf(record)};
    shownRoses.erase(gActivePlot);
}

bool IsRoseRefused() {
    const PlotRecord& record = ActiveRecord();
    const auto refused = refusedRoses.find(gActivePlot);
    return refused != refusedRoses.end() && refused->second.file == FileOf(record)
           && refused->second.counted == CountOf(record);
}

void ForgetRoseOfPlot(int slot) {
    shownRoses.erase(slot);
    refusedRoses.erase(slot);
    ForgetAcceptedSectorSize(slot);
    if (gRoseTablesSlot == slot) {
        gRoseTablesSlot = 0;
        gRoseWedges.clear();
    }
}

} // namespace quandrel
