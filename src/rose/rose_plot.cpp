// SPDX-License-Identifier: MIT

#include "rose/rose_plot.h"

#include "classify/classification.h"
#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/plot_texts.h"
#include "platform/platform.h"
#include "rose/circular_statistics.h"
#include "rose/draw_rose.h"
#include "rose/rose_confidence.h"
#include "rose/rose_radii.h"
#include "rose/rose_scale.h"
#include "rose/rose_sectors.h"
#include "rose/rose_shown.h"
#include "rose/rose_statistics_texts.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"
#include "stereo/window_drawing.h"

#include <string>
#include <utility>

namespace quandrel {

constinit RoseWarnings RoseWarnings::now;

namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kFrequenciesAlone =
    "\nThese data will only be plotted as Frequency-Azimuth roses.";
constexpr const char* kSetClasses = "Set them under Classification of sectors in the rose dialog, "
                                    "or by classify in a script.";

void Stop(const std::string& text) {
    (void)gPlatform.prompts->Ask({gCaption, text, Icon::Stop, Buttons::Ok});
}

/// True for a fault of the appended texts, false for a fault of the numbers.
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

/// Whether a classified rose has a class table without any class for a row.
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

/// Fills the tables from rows and settings that were accepted before.
void CountAccepted(Plot& plot, MayAsk mayAsk) {
    RoseOf(plot).isOddAsked = true;
    (void)CountRose(plot, mayAsk);
    RoseOf(plot).isOddAsked = false;
}

/// Replaces a rose that the data cannot show by one of frequencies.
void MendFault(Plot& plot) {
    PlotRecord& record = plot.record;
    const double classed = RoseOf(plot).sectors(0, 0, kRoseValueLayer);
    const int fault = FaultOfTotals(record, record.RoseStats, classed);
    if (fault == kNoRoseFault) {
        return;
    }
    Stop(FaultText(record, fault));
    record.RoseType = kRoseFrequency;
    RoseOf(plot).fault = fault;
    CountAccepted(plot, MayAsk::Yes);
}

/// Warns once when hardly any number of a classified rose could be read.
void CheckClasses(Plot& plot) {
    PlotRecord& record = plot.record;
    if (record.ClassifyCheckPending == 0 || gRoseClassWarned) {
        return;
    }
    const std::optional<ClassColumn> column = RoseClassColumn(record);
    if (!column || *column == kNameClasses) {
        return;
    }
    record.ClassifyCheckPending = 0;
    if (DecimalWarningNeeded(plot, *column)) {
        gRoseClassWarned = true;
        Stop(DecimalWarningText(record));
    }
}

/// Computes the statistics of rows that were counted, and records what they are of.
void KeepStatistics(Plot& plot, Formulas formulas) {
    WorkOutCircularStats(plot, MeasureOfRose(plot.record.RoseType), formulas);
    plot.record.RowsChanged = 0;
    RememberRose(plot, formulas);
}

/// Shows that rows are being counted, for the scope of a block.
class CountingText {
public:
    explicit CountingText(StatusLine* watcher)
        : watcher_(watcher) {
        Show("Please wait - calculating rose diagram sectors");
    }

    ~CountingText() { Show({}); }

    CountingText(const CountingText&) = delete;
    CountingText& operator=(const CountingText&) = delete;

private:
    void Show(const std::string& text) {
        if (watcher_ != nullptr) {
            watcher_->SetText(text);
        }
    }

    StatusLine* watcher_;
};

/// Counts rows and computes statistics after a change. False when the user cancels.
bool CountAnew(Plot& plot, Formulas formulas, StatusLine* watcher) {
    const CountingText text(watcher);
    if (!CountRose(plot, MayAsk::Yes)) {
        return false;
    }
    MendFault(plot);
    CheckClasses(plot);
    KeepStatistics(plot, formulas);
    return true;
}

/// Fills the tables to match the statistics in the record.
void CountAgain(Plot& plot, Formulas formulas, MayAsk mayAsk) {
    CountAccepted(plot, mayAsk);
    RoseOf(plot).confidence = RoseConfidenceOf(plot, formulas);
}

/// Updates the tables of the plot. False when there is nothing to draw.
bool PrepareTables(Plot& plot, ReplotCause cause, Formulas formulas, StatusLine* watcher) {
    const bool recalculate = cause == ReplotCause::Rows;
    if (!recalculate && IsRoseRefused(plot)) {
        return false;
    }
    const bool isStale = IsRoseStale(plot, formulas);
    if (cause == ReplotCause::Repaint) {
        if (isStale) {
            return false; // the command that changed the plot counts and asks its questions
        }
    } else if (recalculate || plot.record.RoseRangeA[kTopRoseLayer][kInPerCent] == 0 || isStale) {
        if (CountAnew(plot, formulas, watcher)) {
            return true;
        }
        if (!RestoreRose(plot, formulas)) {
            RefuseRose(plot);
            return false;
        }
    }
    if (!RoseOf(plot).isCounted) {
        CountAgain(plot, formulas, cause == ReplotCause::Repaint ? MayAsk::No : MayAsk::Yes);
    }
    return true;
}

/// Stores scale and largest sector of the last layer computed.
void StoreLayerScale(PlotRecord& record, const PlotRose& rose, std::size_t layer) {
    const double largest = rose.radii(0, 0);
    const double scale = rose.radii(0, 1);
    record.RoseRangeB[layer] = {rose.total != 0 ? largest * 100 / rose.total : 0, largest};
    record.RoseRangeA[layer] = {rose.total * scale / 100, scale};
}

void WorkOutLayer(Plot& plot, int measure, int layer) {
    WorkOutRadii(plot, measure, layer);
    StoreLayerScale(plot.record, RoseOf(plot), static_cast<std::size_t>(layer));
    AddRoseWedges(plot, layer);
}

void WorkOutLayers(Plot& plot) {
    const int kind = RoseKindOf(plot.record.RoseType);
    switch (kind) {
    case kRoseOverlaidWind:
        WorkOutLayer(plot, kRoseOverlaidWind, 2);
        WorkOutLayer(plot, kRoseWindSpeed, 1);
        WorkOutLayer(plot, kRoseWindEnergy, 0);
        break;
    case kRoseValueOverFrequency:
    case kRoseValueOverMean:
        WorkOutLayer(plot, kind == kRoseValueOverMean ? kRoseMeanValue : kRoseFrequency, 1);
        WorkOutLayer(plot, kRoseValue, 0);
        break;
    default:
        WorkOutLayer(plot, MeasureOfRose(plot.record.RoseType), 0);
        break;
    }
}

/// Makes the petals of a rose whose tables are ready, or none.
void WorkOutPetals(Plot& plot, bool isReady) {
    PlotRose& rose = RoseOf(plot);
    rose.wedges.clear();
    rose.isShown = isReady;
    if (isReady) {
        WorkOutLayers(plot);
    }
}

void WriteTexts(Plot& plot, const std::string& normal, const std::string& advanced) {
    KeepNormalStatistics(plot, normal);
    KeepAdvancedStatistics(plot, advanced);
}

/// The texts of a plot without a rose.
void WriteNumberAlone(Plot& plot) {
    const std::string number =
        "No. of Data = " + std::to_string(plot.record.NumValidData) + kLineEnd;
    WriteTexts(plot, number, number);
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

int TakeRoseFault(Plot& plot) {
    return std::exchange(RoseOf(plot).fault, kNoRoseFault);
}

void WorkOutRose(Plot& plot, ReplotCause cause, Formulas formulas, StatusLine* watcher) {
    WorkOutPetals(plot,
                  plot.record.NumValidData != 0 && PrepareTables(plot, cause, formulas, watcher));
    if (RoseOf(plot).isShown) {
        StoreRoseInterval(plot.record);
        WriteTexts(plot, RoseStatsShort(plot, formulas), RoseStatsFull(plot, formulas));
    } else if (cause != ReplotCause::Repaint) {
        WriteNumberAlone(plot);
    }
}

void WorkOutRoseUnseen(Plot& plot, Formulas formulas) {
    const bool isReady = plot.record.NumValidData != 0 && !IsRoseRefused(plot);
    if (isReady && (!RoseOf(plot).isCounted || IsRoseStale(plot, formulas))) {
        CountAgain(plot, formulas, MayAsk::No);
    }
    WorkOutPetals(plot, isReady);
}

void WorkOutRoseUnasked(Plot& plot, Formulas formulas) {
    const bool isReady = plot.record.NumValidData != 0;
    if (isReady) {
        (void)CountRose(plot, MayAsk::No);
        KeepStatistics(plot, formulas);
    }
    WorkOutPetals(plot, isReady);
    StoreRoseInterval(plot.record);
}

void RosePlot(bool recalculate) {
    const Drawing drawing = WindowDrawing(gActivePlot);
    WorkOutRose(ActivePlot(), recalculate ? ReplotCause::Rows : ReplotCause::Settings,
                drawing.formulas, drawing.watcher);
    DrawRose(ActivePlot(), drawing);
}

} // namespace quandrel
