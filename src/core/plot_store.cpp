// SPDX-License-Identifier: MIT

#include "core/plot_store.h"

#include "core/data_format.h"
#include "core/letter_case.h"
#include "core/row_links.h"
#include "core/settings.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "platform/platform.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>

namespace quandrel {

std::int16_t gMaxPlots = 10;
std::int32_t gActivePlot = 0;
bool gPlotTableFull = false;
std::deque<PlotRecord> gPlots;
std::vector<std::unique_ptr<PlotForm>> gPlotForm;
std::deque<RowTable> grdData;
std::vector<std::unique_ptr<GridValues>> gGridValues;
std::vector<std::int16_t> gGridCount;
std::vector<std::int16_t> gSlotLock;
DataColumn<std::int32_t> gDataDip;
DataColumn<std::int32_t> gDataAz;
DataColumn<SymbolCode> gDataSymbol;
DataColumn<SymbolCode> gDataSymbolBase;
DataColumn<std::int32_t> gPointDensity;
DataColumn<std::int32_t> gDataOrder;
DataColumn<std::int32_t> gData2Dip;
DataColumn<std::int32_t> gData2Az;
DataColumn<std::int32_t> gAppLineDip;
DataColumn<std::int32_t> gAppLineAz;
DataColumn<float> gAppNumeric;
TextColumn gAppText;
std::vector<std::unordered_map<std::int32_t, std::string>> gErrorLines;
std::vector<std::int32_t> gSelectionRows;
std::int16_t gActiveLayer = kDataLayer;
bool gBusy = false;
std::int32_t gRowLimit = std::numeric_limits<std::int32_t>::max() / 2;

namespace {

/// Gives what the allocator keeps of released rows back to the system, where it can be asked to.
void GiveFreeMemoryBack() {
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}

constexpr double kNoMinimum = 999999999999999.0;
constexpr double kNoMaximum = -999999999999999.0;
constexpr double kTopOfDefaultClasses = 999999;

template <class T>
void GrowSlots(T& table, int highest) {
    table.resize(static_cast<std::size_t>(highest) + 1);
}

void MakeSlots(int highest) {
    GrowSlots(gPlots, highest);
    GrowSlots(gPlotForm, highest);
    GrowSlots(grdData, highest);
    GrowSlots(gGridValues, highest);
    GrowSlots(gGridCount, highest);
    GrowSlots(gSlotLock, highest);
    GrowSlots(gErrorLines, highest);
}

template <class Visitor>
void ForEachColumn(const Visitor& visit) {
    visit(gDataDip);
    visit(gDataAz);
    visit(gDataSymbol);
    visit(gDataSymbolBase);
    visit(gPointDensity);
    visit(gDataOrder);
    visit(gData2Dip);
    visit(gData2Az);
    visit(gAppLineDip);
    visit(gAppLineAz);
    visit(gAppNumeric);
    visit(gAppText);
}

/// Grows a column of the active plot, and the rest; what has grown shrinks back when one of them
/// fails.
template <class Column, class... Rest>
[[nodiscard]] bool GrowTogether(std::int32_t capacity, Column& column, Rest&... rest) {
    const std::int32_t rows = column.RowCount(gActivePlot);
    const std::int32_t formerCapacity = column.Capacity();
    bool grown = capacity <= gRowLimit;
    if (grown) {
        try {
            column.Grow(gActivePlot, capacity);
        } catch (const std::bad_alloc&) {
            grown = false;
        } catch (const std::length_error&) {
            grown = false;
        }
    }
    if constexpr (sizeof...(Rest) > 0) {
        grown = grown && GrowTogether(capacity, rest...);
    }
    if (!grown) {
        column.Shrink(gActivePlot, rows, formerCapacity);
    }
    return grown;
}

void SetDefaultClasses(PlotRecord& record) {
    record.ClassTable = {};
    record.ClassTable[0] = gDefaultClassTable[0];
    record.ClassTable[1] = gDefaultClassTable[1];
    record.ClassTable[11][0] = kTopOfDefaultClasses;
    record.ClassTable[11][1] = kTopOfDefaultClasses;
    record.ClassTable[12][0] = std::int16_t{1};
}

void SetDefaultRose(PlotRecord& record) {
    record.RoseHistStyle = gRoseHistStyle;
    record.RoseSegShape = gRoseSegShape;
    record.RoseSectorFraction = gRoseSectorFraction;
    record.RoseZeroCircle = gRoseZeroCircle;
    record.RoseScaleType = gRoseScaleType;
    record.RoseSectorSize = gRoseSectorSize;
    record.RoseDisplay6 = kTrue;
    record.RoseDisplay7 = kTrue;
    record.RoseMinBiasAngle = 5;
}

void SetStandingSmallCircles(PlotRecord& record) {
    record.PlotSmallCircles = std::make_unique<SmallCircles>();
    const AxisStyle& style = gAxisStyleTable[kSmallCircleStyle];
    for (SmallCircle& circle : *record.PlotSmallCircles) {
        circle.LineColour = style[0];
        circle.lineStyle = style[1];
        circle.LineWidth = style[2];
    }
}

const AxisStyle& StyleOfAxisItem(int item) {
    if (item == 0) {
        return gAxisStyleTable[kMeanGirdleStyle];
    }
    return gAxisStyleTable[item <= 8 ? kUserGirdleStyle : kCalculatedGirdleStyle];
}

void SetEmptyAxisItems(PlotRecord& record) {
    for (int item = 0; item < kAxisItems; ++item) {
        auto& values = record.AxisItems[static_cast<std::size_t>(item)];
        values = {};
        values[0] = false;
        values[1] = std::string();
        const AxisStyle& style = StyleOfAxisItem(item);
        values[4] = style[0];
        values[5] = style[1];
        values[6] = style[2];
    }
}

void TrackNumber(PlotRecord& record, double value) {
    record.AppendedMin[0] = std::min(record.AppendedMin[0], value);
    record.AppendedMax[0] = std::max(record.AppendedMax[0], value);
    if (!IsEmpty(record.DistinctValues.back()[0])) {
        return;
    }
    for (auto& held : record.DistinctValues) {
        if (IsEmpty(held[0])) {
            held[0] = value;
            return;
        }
        if (NumberOf(held[0]) == value) {
            return;
        }
    }
}

void TrackText(PlotRecord& record, std::string_view text) {
    if (const std::optional<double> value = ReadNumber(text)) {
        record.AppendedMin[1] = std::min(record.AppendedMin[1], *value);
        record.AppendedMax[1] = std::max(record.AppendedMax[1], *value);
    }
    if (!IsEmpty(record.DistinctValues.back()[1])) {
        return;
    }
    for (auto& held : record.DistinctValues) {
        if (IsEmpty(held[1])) {
            held[1] = std::string(text);
            return;
        }
        if (EqualWithoutCase(std::get<std::string>(held[1]), text)) {
            return;
        }
    }
}

} // namespace

PlotRecord& ActiveRecord() {
    return RecordOf(gActivePlot);
}

PlotRecord& RecordOf(int slot) {
    return gPlots[static_cast<std::size_t>(slot)];
}

RowTable& TableOf(int slot) {
    return grdData.at(static_cast<std::size_t>(slot));
}

PlotForm& FormOf(int slot) {
    std::unique_ptr<PlotForm>& form = gPlotForm.at(static_cast<std::size_t>(slot));
    if (form == nullptr) {
        form = gPlatform.makePlotForm(slot);
    }
    return *form;
}

int HighestSlot() {
    return static_cast<int>(gPlots.size()) - 1;
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
    MakeSlots(-1);
    MakeSlots(0);
    ForEachColumn([](auto& column) { column.Reset(); });
    gActivePlot = 0;
    gPlotTableFull = false;
    gSelectionRows.clear();
    gBusy = false;
    gActiveLayer = kDataLayer;
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
    MakeSlots(HighestSlot() + 1);
    return HighestSlot();
}

void ReleasePlotSlot(int slot) {
    if (gRowFollower.closed) {
        gRowFollower.closed(slot);
    }
    SetNewFVariables(slot);
    RecordOf(slot).PlotAnnotations.reset();
    RecordOf(slot).PlotSmallCircles.reset();
    RecordOf(slot).SlotFree = kTrue;
    gGridValues[static_cast<std::size_t>(slot)].reset();
    gGridCount[static_cast<std::size_t>(slot)] = 0;
    gSlotLock[static_cast<std::size_t>(slot)] = 0;
    ForEachColumn([slot](auto& column) { column.Release(slot); });
    RowTable& table = TableOf(slot);
    ClearRowTable(table);
    const auto release = [](auto&... columns) { (columns.shrink_to_fit(), ...); };
    release(table.index, table.x, table.y, table.plunge, table.trend);
    if (static_cast<std::size_t>(slot) < gErrorLines.size()) {
        decltype(gErrorLines)::value_type().swap(gErrorLines[static_cast<std::size_t>(slot)]);
    }
    GiveFreeMemoryBack();
}

PlotRecord NewPlotRecord() {
    PlotRecord record;
    record.AppNumName = gFileAppNumName;
    record.AppNonNumName = gFileAppNonNumName;
    record.StatsBoxKind = gStatsBoxKind;
    record.AppendedMin = {kNoMinimum, kNoMinimum};
    record.AppendedMax = {kNoMaximum, kNoMaximum};
    record.DataKind = gPlotDataKind;
    record.PrimaryFormat = gPrimaryDataType;
    record.PlotKind = gPlotKind;
    record.LayerVisible = {0,     kTrue, kTrue,
                           kTrue, kTrue, gStatisticsShown ? kTrue : std::int16_t{0}};
    SetDefaultClasses(record);
    SetDefaultRose(record);
    SetStandingSmallCircles(record);
    SetEmptyAxisItems(record);
    return record;
}

void SetNewFVariables(int slot) {
    const int plot = slot == 0 ? gActivePlot : slot;
    RecordOf(plot) = NewPlotRecord();
    ClearRowTable(TableOf(plot));
    gErrorLines[static_cast<std::size_t>(plot)].clear();
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
    const bool secondaryFollows = withSecondary != 0;
    const std::int32_t held = gDataDip.RowCount(gActivePlot);
    const std::int32_t capacity = newCapacity != 0 ? newCapacity : std::max(held, 1);
    const bool grown = GrowTogether(capacity, gDataDip, gDataAz, gDataSymbol, gDataSymbolBase,
                                    gPointDensity, gDataOrder)
                       && (!secondaryFollows || GrowTogether(capacity, gData2Dip, gData2Az));
    withSecondary = grown ? 0 : -1;
    if (!grown) {
        ActiveRecord().DataFull = kTrue;
    }
}

bool GrowAppendedColumn(AppendedColumn which) {
    const std::int32_t capacity = std::max(gDataDip.RowCount(gActivePlot) - 1, 0);
    switch (which) {
    case AppendedColumn::Line:
        return GrowTogether(capacity, gAppLineDip, gAppLineAz);
    case AppendedColumn::Number:
        return GrowTogether(capacity, gAppNumeric);
    case AppendedColumn::Text:
        return GrowTogether(capacity, gAppText);
    }
    return false;
}

void ResetAppendedRange() {
    PlotRecord& record = ActiveRecord();
    record.AppendedMin = {kNoMinimum, kNoMinimum};
    record.AppendedMax = {kNoMaximum, kNoMaximum};
    record.DistinctValues = {};
}

void TrackAppendedRange(std::int32_t row) {
    PlotRecord& record = ActiveRecord();
    if (record.HasAppendedNumeric != 0) {
        const float number = gAppNumeric(gActivePlot, row);
        if (number != kInvalidNumber) {
            TrackNumber(record, static_cast<double>(number));
        }
    }
    if (record.HasAppendedText != 0) {
        const std::string_view text = gAppText(gActivePlot, row);
        if (!text.empty()) {
            TrackText(record, text);
        }
    }
}

} // namespace quandrel
