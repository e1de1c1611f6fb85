// SPDX-License-Identifier: MIT

#include "rose/rose_plot.h"

#include "classify/classification.h"
#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/plot_texts.h"
#include "core/settings.h"
#include "platform/platform.h"
#include "rose/circular_statistics.h"
#include "rose/rose_furniture.h"
#include "rose/rose_legend.h"
#include "rose/rose_mean.h"
#include "rose/rose_radii.h"
#include "rose/rose_scale.h"
#include "rose/rose_sectors.h"
#include "rose/rose_shown.h"
#include "rose/rose_statistics_texts.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"
#include "stereo/draw_target.h"

#include <string>

namespace quandrel {

std::function<void(int fault)> gRoseFaultHook;
bool gRoseClassWarned = false;

namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kFrequenciesAlone =
    "\nThese data will only be plotted as Frequency-Azimuth roses.";
constexpr const char* kSetClasses = "Set them under Classification of sectors in the rose dialog, "
                                    "or by classify in a script.";
constexpr const char* kCountingText = "Please wait - calculating rose diagram sectors";

void Stop(const std::string& text) {
    (void)gPlatform.prompts->Ask({gCaption, text, Icon::Stop, Buttons::Ok});
}

/// True for a fault of the appended texts, false for one of the numbers.
bool IsFaultOfTexts(const PlotRecord& record, int fault) {
    switch (MeasureOfRose(record.RoseType)) {
    case kRoseWindSpeed:
        return fault != kNoRoseLengths;
    case kRoseWindEnergy: // needs both
        return fault == kNoRoseClasses
               || (record.HasAppendedNumeric != 0 && record.HasAppendedText == 0);
    default:
        return fault == kNoRoseClasses;
    }
}

/// True for a classified rose whose class table has no class that a row could fall in.
bool HasNoClassSet(const PlotRecord& record) {
    const std::optional<ClassColumn> column = RoseClassColumn(record);
    if (!column) {
        return false;
    }
    const ClassRule rule = RuleOfClassTable(record.ClassTable, *column);
    for (int number = 1; number <= LastClass(rule); ++number) {
        if (CanHoldValues(rule, number)) {
            return false;
        }
    }
    return true;
}

std::string FaultText(const PlotRecord& record, int fault) {
    const bool isOfTexts = IsFaultOfTexts(record, fault);
    const std::string& name = isOfTexts ? record.AppNonNumName : record.AppNumName;
    const bool hasColumn = (isOfTexts ? record.HasAppendedText : record.HasAppendedNumeric) != 0;
    if (hasColumn && fault != kNoRoseValues && HasNoClassSet(record)) {
        return "No classes of " + name + " are set.\n" + kSetClasses + kFrequenciesAlone;
    }
    const bool isOfClasses = fault == kNoRoseLengths || fault == kNoRoseClasses;
    std::string text = isOfClasses && hasColumn
                           ? "No row of this data set falls in a class of " + name + "."
                           : "No appended " + name + " data were found in this data set.";
    if (RoseClassOf(record.RoseType) != kRoseUnclassified && hasColumn) {
        text += "\n(Try checking your classification range settings)";
    }
    return text + kFrequenciesAlone;
}

/// Turns a rose that the data cannot show into one of frequencies.
void MendFault(PlotRecord& record) {
    const int fault = FaultOfRose();
    if (fault == kNoRoseFault) {
        return;
    }
    Stop(FaultText(record, fault));
    record.RoseType = kRoseFrequency;
    if (gRoseFaultHook) {
        gRoseFaultHook(fault);
    }
    gRoseOddAsked = true; // the size has been accepted a moment ago
    (void)RoseCountSectors();
}

/// Warns once when hardly any number of a classified rose could be read.
void CheckClasses(PlotRecord& record) {
    if (record.ClassifyCheckPending == 0 || gRoseClassWarned) {
        return;
    }
    const std::optional<ClassColumn> column = RoseClassColumn(record);
    if (!column || *column == kNameClasses) {
        return;
    }
    record.ClassifyCheckPending = 0;
    if (DecimalWarningNeeded(*column)) {
        gRoseClassWarned = true;
        Stop(DecimalWarningText());
    }
}

/// Counts rows and works out statistics after a change. False when the user wants none of it.
bool CountAnew(PlotRecord& record) {
    gPlatform.status->SetText(kCountingText);
    if (!RoseCountSectors()) {
        gPlatform.status->SetText({});
        return false;
    }
    MendFault(record);
    CheckClasses(record);
    RoseCircularStats(MeasureOfRose(record.RoseType));
    gPlatform.status->SetText({});
    record.RowsChanged = 0;
    RememberRose();
    return true;
}

/// Fills the tables from rows and settings that have not changed.
void CountAgain() {
    gRoseOddAsked = true;
    (void)RoseCountSectors();
    gRoseOddAsked = false;
}

/// Brings the tables up to date with the plot. False when there is nothing to draw.
bool PrepareTables(PlotRecord& record, bool recalculate) {
    if (IsDrawingElsewhere()) {
        if (IsRoseRefused()) {
            return false;
        }
        if (!ActiveRose().isCounted || IsRoseStale()) {
            CountAgain();
        }
        return true;
    }
    if (!recalculate && IsRoseRefused()) {
        return false;
    }
    if (IsRepainting()) {
        if (IsRoseStale()) {
            return false; // the command that changed the plot counts, and asks what it has to
        }
    } else if (recalculate || record.RoseRangeA[0][kInPerCent] == 0 || IsRoseStale()) {
        if (CountAnew(record)) {
            return true;
        }
        if (!RestoreRose()) {
            RefuseRose();
            return false;
        }
    }
    if (!ActiveRose().isCounted) {
        CountAgain();
    }
    return true;
}

/// Keeps scale and largest sector of the layer in gRoseRadii.
void StoreLayerScale(PlotRecord& record, std::size_t layer) {
    const double largest = gRoseRadii(0, 0);
    const double scale = gRoseRadii(0, 1);
    record.RoseRangeB[layer] = {gRoseTotal != 0 ? largest * 100 / gRoseTotal : 0, largest};
    record.RoseRangeA[layer] = {gRoseTotal * scale / 100, scale};
}

void DrawLayer(PlotRecord& record, int measure, int layer) {
    RoseRadii(measure, layer);
    StoreLayerScale(record, static_cast<std::size_t>(layer));
    DrawRoseWedges(record.RoseHistStyle, layer);
}

void DrawLayers(PlotRecord& record) {
    const int kind = RoseKindOf(record.RoseType);
    switch (kind) {
    case kRoseOverlaidWind:
        DrawLayer(record, kRoseOverlaidWind, 2);
        DrawLayer(record, kRoseWindSpeed, 1);
        DrawLayer(record, kRoseWindEnergy, 0);
        break;
    case kRoseValueOverFrequency:
    case kRoseValueOverMean:
        DrawLayer(record, kind == kRoseValueOverMean ? kRoseMeanValue : kRoseFrequency, 1);
        DrawLayer(record, kRoseValue, 0);
        break;
    default:
        DrawLayer(record, MeasureOfRose(record.RoseType), 0);
        break;
    }
}

void WriteTexts(const std::string& normal, const std::string& advanced) {
    KeepNormalStatistics(gActivePlot, normal);
    KeepAdvancedStatistics(gActivePlot, advanced);
}

/// The texts of a plot that shows no rose.
void WriteNumberAlone(const PlotRecord& record) {
    const std::string number = "No. of Data = " + std::to_string(record.NumValidData) + kLineEnd;
    WriteTexts(number, number);
}

} // namespace

int FaultOfTotals(const PlotRecord& record, const Table<double, 7, 3>& totals, double classed) {
    const int roseType = record.RoseType;
    const int measure = MeasureOfRose(roseType);
    const bool isByLength = RoseClassOf(roseType) == kRoseByLength;
    const bool hasNumbers = record.HasAppendedNumeric != 0;
    if (!hasNumbers && measure != kRoseFrequency && measure != kRoseWindSpeed) {
        return kNoRoseValues;
    }
    if (isByLength
        && (!hasNumbers || (measure == kRoseFrequency && totals[kRoseCount][kRawTotal] == 0))) {
        return kNoRoseLengths;
    }
    if (RoseClassOf(roseType) == kRoseByType && record.HasAppendedText == 0) {
        return kNoRoseClasses;
    }
    const bool needsRows = measure == kRoseMeanValue || measure == kRoseVariance;
    const std::size_t row = needsRows ? kRoseCount : static_cast<std::size_t>(measure);
    if (totals[row][kRawTotal] != 0) {
        return kNoRoseFault;
    }
    if (RoseClassOf(roseType) == kRoseByType && classed == 0) {
        return kNoRoseClasses;
    }
    return measure != kRoseFrequency ? kNoRoseValues : kNoRoseFault;
}

int FaultOfRose() {
    const PlotRecord& record = ActiveRecord();
    return FaultOfTotals(record, record.RoseStats, gRoseSectors(0, 0, kRoseValueLayer));
}

void RosePlot(bool recalculate) {
    PlotRecord& record = ActiveRecord();
    ActiveRose().wedges.clear();
    if (record.NumValidData == 0 || !PrepareTables(record, recalculate)) {
        if (MayAskWhileDrawing()) {
            WriteNumberAlone(record);
        }
        return;
    }
    DrawLayers(record);
    DrawRoseScale();
    DrawRoseMean();
    if (!IsDrawingElsewhere()) {
        WriteTexts(RoseStatsShort(), RoseStatsFull());
    }
}

} // namespace quandrel
