// SPDX-License-Identifier: MIT
//
// The plot store: the program's central memory. Every open plot is a value (plot.h) in a slot; the
// tables in plot_slots.h give its parts by the slot. Procedures with given names work on the plot
// in focus, gActivePlot; others take the plot that they work on.
//
// Orientations in the columns are whole degrees. Rows of a plot run from 1: the main rows, then
// those of its overlays in order.
//
// This folder holds the plot store and its parts: columns, the row table, the record, the settings
// and their file, the styles, the data format, messages, file names and atomic writing.
// Input: rows, records and settings, from loading, edits and files.
// Output: the same data, for all code that computes or draws.

#pragma once

#include "core/plot_rows.h"
#include "core/plot_slots.h"
#include "core/selection.h"
#include "core/settings_value.h"

#include <cstdint>

namespace quandrel {

/// The layer that the mouse edits.
enum LayerCode : std::int16_t { kAnnotationLayer = 1, kDataLayer = 2 };

/// What the store holds besides the plots.
struct StoreState {
    std::int32_t activePlot = 0;           ///< the plot in focus, 0 when none is open
    bool isFull = false;                   ///< the last request for a slot found no free one
    std::int16_t activeLayer = kDataLayer; ///< LayerCode
    bool isBusy = false;                   ///< button events are ignored while a long loop runs

    static StoreState now;
};

// Given names. All are constants or views on values of this folder, without state of their own.

/// The title of every message box.
inline constexpr const char* gCaption = "Quandrel, ver 9.5.1";

inline constexpr const char* gFileFilter =
    "All files (*.*)|*.*|Text files (*.txt)|*.txt|Quandrel binary files(*.qpx)|*.qpx|Quandrel "
    "Workspace files (.qwo)|*.qwo";
inline constexpr const char* gWorkspaceFilter =
    "Quandrel Workspace files (.qwo)|*.qwo|All files (*.*)|*.*|";
inline constexpr const char* gDataFileFilter =
    "All files (*.*)|*.*|Text files (*.txt)|*.txt|Quandrel binary files(*.qpx)|*.qpx";
inline constexpr const char* gHintText =
    "<Alt> plus Left mouse button to add points; marquee-select to edit";

// The store.
inline constinit auto& gMaxPlots = gSettings.newPlots.maxPlots;
inline constinit auto& gActivePlot = StoreState::now.activePlot;
inline constinit auto& gPlotTableFull = StoreState::now.isFull;
inline constinit auto& gActiveLayer = StoreState::now.activeLayer;
inline constinit auto& gBusy = StoreState::now.isBusy;
inline constinit auto& gSelectionRows = Selection::now.rows;

// The parts of the plots by their slots.
inline constexpr SlotView<&Plot::record> gPlots;  ///< slot 0 is never a plot
inline constexpr SlotView<&Plot::form> gPlotForm; ///< empty where no window was made
inline constexpr SlotView<&Plot::table> grdData;  ///< the plotted rows of each slot
inline constexpr SlotView<&Plot::gridValues> gGridValues;
inline constexpr SlotView<&Plot::gridCount> gGridCount; ///< non-zero where gGridValues holds data
inline constexpr SlotView<&Plot::lock> gSlotLock;

inline constexpr DataColumn gDataDip(&ColumnAt<&PlotRows::dip>);
inline constexpr DataColumn gDataAz(&ColumnAt<&PlotRows::azimuth>);
inline constexpr DataColumn gDataSymbol(&ColumnAt<&PlotRows::symbol>);
inline constexpr DataColumn gDataSymbolBase(&ColumnAt<&PlotRows::symbolBase>);
inline constexpr DataColumn gPointDensity(&ColumnAt<&PlotRows::pointDensity>);
inline constexpr DataColumn gDataOrder(&ColumnAt<&PlotRows::order>);
inline constexpr DataColumn gData2Dip(&ColumnAt<&PlotRows::dip2>);
inline constexpr DataColumn gData2Az(&ColumnAt<&PlotRows::azimuth2>);
inline constexpr DataColumn gAppLineDip(&ColumnAt<&PlotRows::lineDip>);
inline constexpr DataColumn gAppLineAz(&ColumnAt<&PlotRows::lineAzimuth>);
inline constexpr DataColumn gAppNumeric(&ColumnAt<&PlotRows::number>);
inline constexpr TextColumn gAppText;

// The styles.
inline constinit auto& gColourTable = gSettings.styles.colours;
inline constinit auto& gSymbolTable = gSettings.styles.symbols;
inline constinit auto& gAxisStyleTable = gSettings.styles.axes;
inline constinit auto& gPlotAxesStyle = gSettings.styles.plotAxesStyle;
inline constinit auto& gRoseAxesStyle = gSettings.styles.roseAxesStyle;
inline constinit auto& gRoseOuterCircle = gSettings.styles.roseOuterCircle;
inline constinit auto& gShowIsolatedPts = gSettings.styles.showIsolatedPts;

// The data format (data_format.h).
inline constinit auto& gConventions = gSettings.format.conventions;
inline constinit auto& gFileDelimiter = gSettings.format.delimiter;
inline constinit auto& gPlaneSeparator = gSettings.format.planeSeparator;
inline constinit auto& gLineSeparator = gSettings.format.lineSeparator;
inline constinit auto& gPrimaryDataType = gSettings.format.primary;
inline constinit auto& gSecondaryDataType = gSettings.format.secondary;
inline constinit auto& gFileLineAppended = gSettings.format.lineAppended;
inline constinit auto& gFileNumericAppended = gSettings.format.numericAppended;
inline constinit auto& gFileNonNumericAppended = gSettings.format.nonNumericAppended;
inline constinit auto& gFileAppNumName = gSettings.format.numericName;
inline constinit auto& gFileAppNonNumName = gSettings.format.nonNumericName;
inline constinit auto& gFileColumnSettings = gSettings.format.columns;
inline constinit auto& gPlotDataKind = gSettings.format.plotDataKind;
inline constinit auto& gPlotKind = gSettings.format.plotKind;

// The other settings.
inline constinit auto& gDecimalIsComma = gSettings.notation.decimalIsComma;
inline constinit auto& gConvertDecimals = gSettings.notation.convertDecimals;
inline constinit auto& gPlotWinLast = gSettings.windows.plotWinLast;
inline constinit auto& gPlotWidthPercent = gSettings.windows.plotWidthPercent;
inline constinit auto& gPlotAspect = gSettings.windows.plotAspect;
inline constinit auto& gRoseSectorSize = gSettings.newPlots.rose.sectorSize;
inline constinit auto& gRoseSectorFraction = gSettings.newPlots.rose.sectorFraction;

/// Makes another plot the active one for the scope of a block.
class PlotInWork {
public:
    explicit PlotInWork(int slot)
        : former_(gActivePlot) {
        gActivePlot = slot;
    }

    ~PlotInWork() { gActivePlot = former_; }

    PlotInWork(const PlotInWork&) = delete;
    PlotInWork& operator=(const PlotInWork&) = delete;

private:
    std::int32_t former_;
};

/// The plot of a slot. The slot must have been made.
[[nodiscard]] Plot& PlotOf(int slot);

/// The plot in focus. gActivePlot must be a slot.
[[nodiscard]] Plot& ActivePlot();

/// The record of the plot in focus. gActivePlot must be a slot.
[[nodiscard]] PlotRecord& ActiveRecord();

/// The record of a slot.
[[nodiscard]] PlotRecord& RecordOf(int slot);

/// The plotted rows of a slot.
[[nodiscard]] RowTable& TableOf(int slot);

/// The window of a slot; made on demand.
[[nodiscard]] PlotForm& FormOf(int slot);

/// The highest slot made so far, 0 at the start.
[[nodiscard]] int HighestSlot();

/// Whether a slot holds an open plot.
[[nodiscard]] bool IsOpenSlot(int slot);

/// The slot of an open plot that has a value of a type attached; 0 when none has. O(slots).
template <class T>
[[nodiscard]] int SlotWith() {
    int slot = HighestSlot();
    while (slot > 0 && (!IsOpenSlot(slot) || PlotOf(slot).attachments.Find<T>() == nullptr)) {
        --slot;
    }
    return slot;
}

/// Number of open plots.
[[nodiscard]] int CountOpenPlots();

/// Empties all tables, as at start-up.
void MakeStoreTables();

/// A slot for a new plot: the lowest free one, else a new one up to gMaxPlots, else -1 with
/// gPlotTableFull set.
[[nodiscard]] int FindFreePlotSlot();

/// Frees a slot, its rows and their memory.
void ReleasePlotSlot(int slot);

/// The record of an empty plot, from the current settings.
[[nodiscard]] PlotRecord NewPlotRecord();

/// Resets a slot to an empty plot: every field of the record. Nothing of the slot's former plot is
/// inherited. `slot` 0 means gActivePlot.
void SetNewFVariables(int slot = 0);

/// As SetNewFVariables, when a plot window loads. Also sets the caption and what follows the
/// current defaults: data kind, primary format and kind of plot.
void ResetPlotRecord(int slot);

/// Grows the columns of gActivePlot by one row, or to `newCapacity` rows when that is not 0.
///
/// @param[in,out] withSecondary  in: non-zero when the secondary columns must grow too; out: 0 on
///     success, -1 when memory ran out: DataFull of the plot is then set and no column has grown
void GrowDataColumns(int& withSecondary, std::int32_t newCapacity = 0);

/// Grows an appended column of gActivePlot to as many rows as gDataDip. False when memory ran out.
[[nodiscard]] bool GrowAppendedColumn(AppendedColumn which);

/// Clears the range and the distinct values of the appended data of gActivePlot.
void ResetAppendedRange();

/// Extends the range and the distinct values of gActivePlot by the appended values of a row. Texts
/// are stored as first typed and compared without case.
void TrackAppendedRange(std::int32_t row);

} // namespace quandrel
