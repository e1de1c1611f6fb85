// SPDX-License-Identifier: MIT
//
// The plot store: the program's central memory. Every open plot is one slot; the slot indexes the
// records, the plot windows, the row tables and the data columns. Everything reads and writes them
// through the slot, mostly through gActivePlot.
//
// Orientations in the columns are whole degrees. Rows of a plot run from 1: the main rows, then
// those of its overlays in order.
//
// This is the chief header of the folder. Enters: rows, records and settings, from loading, edits
// and files. Leaves: the same to all who work them out or draw them. The rest of the folder is what
// the store is made of: columns, row table, record, settings and their file, the styles, the data
// format, messages, names of files and their safe writing.

#pragma once

#include "core/data_columns.h"
#include "core/plot_record.h"
#include "core/row_table.h"
#include "core/style_tables.h"
#include "platform/plot_form.h"

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace quandrel {

extern std::int16_t gMaxPlots;   ///< largest slot allowed
extern std::int32_t gActivePlot; ///< the plot in focus, 0 when none is open
extern bool gPlotTableFull;      ///< the last request for a slot found none

extern std::deque<PlotRecord> gPlots;                    ///< slot 0 is never a plot
extern std::vector<std::unique_ptr<PlotForm>> gPlotForm; ///< empty where no window was made
extern std::deque<RowTable> grdData;                     ///< the plotted rows of each slot

/// Layers of gGridValues.
enum GridLayer : std::size_t { kMeanLayer = 0, kCumulativeLayer = 1 };

/// Grids of appended numbers over the net: mean and sum at each node, [layer][column][row].
using GridValues = std::array<Table<double, kGridNodes, kGridNodes>, 2>;
extern std::vector<std::unique_ptr<GridValues>> gGridValues; ///< made on first use
extern std::vector<std::int16_t> gGridCount; ///< non-zero where gGridValues of the slot holds data
extern std::vector<std::int16_t> gSlotLock;

extern DataColumn<std::int32_t> gDataDip;      ///< dip or plunge; kErrorRow marks an error row
extern DataColumn<std::int32_t> gDataAz;       ///< dip direction, trend, or direction
extern DataColumn<SymbolCode> gDataSymbol;     ///< what is drawn
extern DataColumn<SymbolCode> gDataSymbolBase; ///< what it goes back to
extern DataColumn<std::int32_t> gPointDensity; ///< density band of the row, 0 until counted
extern DataColumn<std::int32_t> gDataOrder;    ///< index of the row as it was loaded
extern DataColumn<std::int32_t> gData2Dip;     ///< secondary orientation, made on demand
extern DataColumn<std::int32_t> gData2Az;
extern DataColumn<std::int32_t> gAppLineDip; ///< appended line; kInvalidAppendedLine is invalid
extern DataColumn<std::int32_t> gAppLineAz;
extern DataColumn<float> gAppNumeric; ///< appended number; kInvalidNumber is invalid
extern TextColumn gAppText;           ///< appended text; empty is invalid

/// The line of text behind each error row of a slot, as it stood in the file.
extern std::vector<std::unordered_map<std::int32_t, std::string>> gErrorLines;

/// The list of selected data rows: point indices of gActivePlot.
extern std::vector<std::int32_t> gSelectionRows;

/// The layer that the mouse edits.
enum LayerCode : std::int16_t { kAnnotationLayer = 1, kDataLayer = 2 };

extern std::int16_t gActiveLayer; ///< LayerCode

/// A set flag makes button events do nothing while a long loop runs.
extern bool gBusy;

/// Another plot as the active one for the length of a block.
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

/// The record of the plot in focus. gActivePlot must be a slot.
[[nodiscard]] PlotRecord& ActiveRecord();

/// The record of a slot.
[[nodiscard]] PlotRecord& RecordOf(int slot);

/// The plotted rows of a slot.
[[nodiscard]] RowTable& TableOf(int slot);

/// The window of a slot; made at this moment if there is none.
[[nodiscard]] PlotForm& FormOf(int slot);

/// The highest slot made so far, 0 at the start.
[[nodiscard]] int HighestSlot();

/// True for a slot that holds an open plot.
[[nodiscard]] bool IsOpenSlot(int slot);

/// Number of open plots.
[[nodiscard]] int CountOpenPlots();

/// Empties all tables, as at start-up.
void MakeStoreTables();

/// A slot for a new plot: the lowest free one, else a new one up to gMaxPlots, else -1 with
/// gPlotTableFull set.
[[nodiscard]] int FindFreePlotSlot();

/// Marks a slot free and takes its rows out of use. The rows' memory is given back.
void ReleasePlotSlot(int slot);

/// The record of an empty plot, by the settings of the moment.
[[nodiscard]] PlotRecord NewPlotRecord();

/// Gives a slot the values of an empty plot: every field of the record. An old number of the slot's
/// settings is never inherited. `slot` 0 is gActivePlot.
void SetNewFVariables(int slot = 0);

/// As SetNewFVariables, on the load of a plot window: also what follows the defaults of the moment
/// (data kind, primary format, kind of plot) and the caption.
void ResetPlotRecord(int slot);

/// Lets the columns of gActivePlot hold a row more, or `newCapacity` rows when that is not 0.
/// @param[in,out] withSecondary  in: non-zero when the secondary columns must follow; out: 0 on
///     success, -1 when memory ran out: then DataFull of the plot is set and no column has
///     grown
void GrowDataColumns(int& withSecondary, std::int32_t newCapacity = 0);

enum class AppendedColumn { Line = 0, Number = 1, Text = 2 };

/// Lets an appended column of gActivePlot hold as many rows as gDataDip. False when memory ran out.
[[nodiscard]] bool GrowAppendedColumn(AppendedColumn which);

/// The most rows that a column may hold; growing beyond counts as out of memory.
extern std::int32_t gRowLimit;

/// Forgets range and distinct values of the appended data of gActivePlot.
void ResetAppendedRange();

/// Takes the appended values of a row of gActivePlot into its range and distinct values. Texts are
/// kept as first typed and compared without case.
void TrackAppendedRange(std::int32_t row);

} // namespace quandrel
