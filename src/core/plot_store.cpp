// SPDX-License-Identifier: MIT

#include "core/plot_store.h"

#include "core/item_style.h"
#include "core/letter_case.h"
#include "core/new_record.h"
#include "core/plot_style.h"
#include "core/row_links.h"
#include "core/settings.h"
#include "core/style_preset.h"
#include "platform/platform.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <algorithm>

namespace quandrel {

constinit StoreState StoreState::now;
constinit Selection Selection::now;

namespace {

/// Returns memory that the allocator keeps of released rows to the system, where it supports this.
void GiveFreeMemoryBack() {
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}

constexpr double kTopOfDefaultClasses = 999999;

void SetDefaultClasses(PlotRecord& record, const NewPlotSettings& settings) {
    record.ClassTable = {};
    record.ClassTable[kBaseRow] = settings.classes[kBaseRow];
    record.ClassTable[kLowestRow] = settings.classes[kLowestRow];
    record.ClassTable[kTopRow][kNumberClasses] = kTopOfDefaultClasses;
    record.ClassTable[kTopRow][kTextNumberClasses] = kTopOfDefaultClasses;
    record.ClassTable[kFlagRow][kNumberClasses] = std::int16_t{1};
}

void SetDefaultRose(PlotRecord& record, const RoseDefaults& settings) {
    record.RoseHistStyle = settings.histStyle;
    record.RoseSegShape = settings.segShape;
    record.RoseSectorFraction = settings.sectorFraction;
    record.RoseZeroCircle = settings.zeroCircle;
    record.RoseScaleType = settings.scaleType;
    record.RoseSectorSize = settings.sectorSize;
    record.RoseDisplay6 = kTrue;
    record.RoseDisplay7 = kTrue;
    record.RoseMinBiasAngle = 5;
}

void SetStandingSmallCircles(PlotRecord& record, const AxisStyle& style) {
    record.PlotSmallCircles = std::make_unique<SmallCircles>();
    for (SmallCircle& circle : *record.PlotSmallCircles) {
        circle.LineColour = style[kStyleColour];
        circle.lineStyle = style[kStyleLine];
        circle.LineWidth = style[kStyleWidth];
    }
}

void SetEmptyAxisItems(PlotRecord& record, const Styles& styles) {
    for (int item = 0; item < kAxisItems; ++item) {
        auto& values = record.AxisItems[static_cast<std::size_t>(item)];
        values = {};
        values[kItemShown] = false;
        values[kItemText] = std::string();
        SetStyleOfItem(values, styles.axes[StyleRowOfItem(item)]);
    }
}

} // namespace

void PlotSlots::Resize(std::size_t count) {
    const std::size_t former = plots_.size();
    plots_.resize(count);
    for (std::size_t slot = former; slot < count; ++slot) {
        plots_[slot] = std::make_unique<Plot>();
    }
}

Plot& PlotOf(int slot) {
    return PlotSlots::At(static_cast<std::size_t>(slot));
}

Plot& ActivePlot() {
    return PlotOf(gActivePlot);
}

PlotRecord& ActiveRecord() {
    return RecordOf(gActivePlot);
}

PlotRecord& RecordOf(int slot) {
    return PlotOf(slot).record;
}

RowTable& TableOf(int slot) {
    return PlotOf(slot).table;
}

PlotForm& FormOf(int slot) {
    std::unique_ptr<PlotForm>& form = PlotOf(slot).form;
    if (form == nullptr) {
        form = gPlatform.makePlotForm(slot);
    }
    return *form;
}

int HighestSlot() {
    return static_cast<int>(PlotSlots::Count()) - 1;
}

bool IsOpenSlot(int slot) {
    return slot >= 1 && slot <= HighestSlot() && RecordOf(slot).SlotFree == 0;
}

int CountOpenPlots() {
    int open = 0;
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        open += IsOpenSlot(slot) ? 1 : 0;
    }
    return open;
}

void MakeStoreTables() {
    PlotSlots::Resize(0);
    PlotSlots::Resize(1);
    StoreState::now = {};
    Selection::now = {};
}

int FindFreePlotSlot() {
    gPlotTableFull = false;
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (RecordOf(slot).SlotFree != 0) {
            RecordOf(slot).SlotFree = 0;
            return slot;
        }
    }
    if (HighestSlot() >= gMaxPlots) {
        gPlotTableFull = true;
        return -1;
    }
    PlotSlots::Resize(PlotSlots::Count() + 1);
    return HighestSlot();
}

void ReleasePlotSlot(int slot) {
    TellOfClosing(slot);
    SetNewFVariables(slot);
    Plot& plot = PlotOf(slot);
    plot.record.PlotAnnotations.reset();
    plot.record.PlotSmallCircles.reset();
    plot.record.SlotFree = kTrue;
    plot.rows = {};
    plot.gridValues.reset();
    plot.gridCount = 0;
    plot.lock = 0;
    ReleaseRowTable(plot.table);
    GiveFreeMemoryBack();
}

PlotRecord NewPlotRecord(const Settings& settings) {
    const NewPlotSettings& newPlots = settings.newPlots;
    PlotRecord record;
    record.AppNumName = settings.format.numericName;
    record.AppNonNumName = settings.format.nonNumericName;
    record.StatsBoxKind = newPlots.statsBoxKind;
    ResetAppendedRange(record);
    record.DataKind = settings.format.plotDataKind;
    record.PrimaryFormat = settings.format.primary;
    record.PlotKind = settings.format.plotKind;
    record.UseDecimals = newPlots.useDecimals ? kTrue : std::int16_t{0};
    SetStyle(record, newPlots.style);
    record.LayerVisible = {0,     kTrue, kTrue,
                           kTrue, kTrue, newPlots.statisticsShown ? kTrue : std::int16_t{0}};
    SetDefaultClasses(record, newPlots);
    SetDefaultRose(record, newPlots.rose);
    PresetByStyle(record, *StyleOfChoice(newPlots.style));
    SetStandingSmallCircles(record, settings.styles.axes[kSmallCircleStyle]);
    SetEmptyAxisItems(record, settings.styles);
    return record;
}

PlotRecord NewPlotRecord() {
    return NewPlotRecord(gSettings);
}

void SetNewFVariables(int slot) {
    Plot& plot = PlotOf(slot == 0 ? gActivePlot : slot);
    plot.record = NewPlotRecord();
    ClearRowTable(plot.table);
    plot.rows.errorLines.clear();
    plot.attachments.Clear();
}

void ResetPlotRecord(int slot) {
    SetNewFVariables(slot);
    PlotRecord& record = RecordOf(slot);
    if (gPrimaryDataType <= kDirections) {
        record.PlotKind = kRose;
    }
    FormOf(slot).SetCaption(std::to_string(slot));
}

void GrowDataColumns(int& withSecondary, std::int32_t newCapacity) {
    Plot& plot = ActivePlot();
    const std::int32_t capacity =
        newCapacity != 0 ? newCapacity : std::max(plot.rows.dip.RowCount(), 1);
    const bool grown = GrowColumns(plot.rows, capacity, withSecondary != 0);
    withSecondary = grown ? 0 : -1;
    if (!grown) {
        plot.record.DataFull = kTrue;
    }
}

bool GrowAppendedColumn(AppendedColumn which) {
    return GrowAppendedColumn(ActivePlot().rows, which);
}

void ResetAppendedRange() {
    ResetAppendedRange(ActiveRecord());
}

void TrackAppendedRange(std::int32_t row) {
    TrackAppendedRange(ActivePlot(), row);
}

} // namespace quandrel
