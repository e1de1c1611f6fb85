// SPDX-License-Identifier: MIT

#include "mapinfo/table_reader.h"

#include "core/letter_case.h"
#include "core/plot_store.h"
#include "core/step_progress.h"
#include "mapinfo/map_link.h"
#include "mapinfo/map_windows.h"
#include "platform/platform.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

/// Rows between two checks of the clock.
constexpr std::int64_t kRowsBetweenLooks = 64;

/// Reads the rows of a table into gActivePlot, after its rows.
class TableReader {
public:
    TableReader(const std::string& table, const TableShape& shape, LineFormat format,
                RowTarget target, MIGeoLink& link)
        : table_(table)
        , shape_(shape)
        , format_(format)
        , target_(target)
        , inUse_(SlotsInUse(format_))
        , link_(link) {
        if (EqualWithoutCase(table, kSelectionTable)) {
            base_ = MIEval("SelectionInfo(1)").value_or("");
        }
        link_ = {};
        link_.MITableName = base_.empty() ? table : base_;
        link_.DataColumns = ColumnsRead();
    }

    [[nodiscard]] PassEnd Run(LoadCounters& counters) {
        StepProgress progress(std::max<std::int64_t>(shape_.rows, 1), gPlatform.timeWithoutProgress,
                              gPlatform.status);
        const std::int64_t last = std::min<std::int64_t>(shape_.rows, gPlatform.mostRows);
        for (std::int64_t row = 1; row <= last; ++row) {
            const RowFetch fetch = FetchRow(table_, row);
            if (fetch == RowFetch::AtEnd) {
                break;
            }
            const auto tableRow = static_cast<std::int32_t>(row);
            const bool goesOn =
                fetch == RowFetch::Failed ? PassOver(tableRow, counters) : Take(tableRow, counters);
            if (!goesOn) {
                break;
            }
            if (row % kRowsBetweenLooks == 0 && progress.Reach(row)
                && gPlatform.status->CancelRequested()) {
                counters.cancelled = true;
                break;
            }
        }
        return end_;
    }

private:
    [[nodiscard]] std::vector<int> ColumnsRead() const {
        std::vector<int> columns;
        for (std::size_t slot = 0; slot < inUse_.size(); ++slot) {
            if (inUse_[slot] && format_.slots[slot] >= 0 && format_.slots[slot] < shape_.columns) {
                columns.push_back(format_.slots[slot] + 1);
            }
        }
        std::sort(columns.begin(), columns.end());
        columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
        return columns;
    }

    /// Stores the row that was fetched. False when reading ends with it.
    [[nodiscard]] bool Take(std::int32_t tableRow, LoadCounters& counters) {
        const std::vector<std::string> values = ReadValues();
        if (!IsMapInfoLinked()) {
            return false;
        }
        const ParsedRow row = ParseValues(InSlots(values), format_);
        const std::string line = row.status == LineStatus::Row ? std::string() : Joined(values);
        RowFaults faults;
        if (!StoreDataRow(plot_, row, target_, faults, line)) {
            counters.outOfMemory = true;
            return false;
        }
        ++counters.rowsRead;
        if (row.status == LineStatus::Row) {
            Count(faults, counters);
            CountUpwardLine(row, format_, target_.overlay, counters);
            Link(plot_.record.NumLoadedData, tableRow);
            return true;
        }
        return TakeBadRow(row.status, line, tableRow, counters);
    }

    /// The values of the columns that are read, in column order.
    [[nodiscard]] std::vector<std::string> ReadValues() const {
        std::vector<std::string> values;
        for (const int column : link_.DataColumns) {
            values.push_back(ColumnValue(table_, column));
        }
        return values;
    }

    [[nodiscard]] std::array<std::string_view, kColumnSlots>
    InSlots(const std::vector<std::string>& values) const {
        std::array<std::string_view, kColumnSlots> inSlots;
        const std::vector<int>& columns = link_.DataColumns;
        for (std::size_t slot = 0; slot < inSlots.size(); ++slot) {
            const auto place = std::find(columns.begin(), columns.end(), format_.slots[slot] + 1);
            if (inUse_[slot] && place != columns.end()) {
                inSlots[slot] = values[static_cast<std::size_t>(place - columns.begin())];
            }
        }
        return inSlots;
    }

    static std::string Joined(const std::vector<std::string>& values) {
        std::string line;
        for (std::size_t i = 0; i < values.size(); ++i) {
            line += (i == 0 ? "" : "\t") + values[i];
        }
        return line;
    }

    /// Links a plot row to its table row; for a row of the selection, to the one it comes from.
    void Link(std::int32_t index, std::int32_t tableRow) {
        if (base_.empty()) {
            link_.AddRow(index, tableRow);
            return;
        }
        const auto row = MIEvalNumber(std::string(kSelectionTable) + ".RowID");
        if (row && *row >= 1 && *row <= std::numeric_limits<std::int32_t>::max()) {
            link_.AddRow(index, static_cast<std::int32_t>(*row));
        }
    }

    void Count(const RowFaults& faults, LoadCounters& counters) {
        ++counters.rowsValid;
        counters.badNumeric += faults.number ? 1 : 0;
        counters.badText += faults.text ? 1 : 0;
        counters.badLine += faults.line ? 1 : 0;
        badInARow_ = 0;
        invalidInARow_ = 0;
    }

    [[nodiscard]] bool TakeBadRow(LineStatus status, const std::string& line, std::int32_t tableRow,
                                  LoadCounters& counters) {
        if (status == LineStatus::Blank || IsEmpty(line)) {
            ++counters.blankLines;
        } else {
            ++counters.invalidLines;
            ++invalidInARow_;
            if (!std::exchange(isAsked_, true)) {
                const LineAnswer answer =
                    ReportBadLine(status, line, counters.rowsRead - 1, format_.neededColumns);
                if (answer != LineAnswer::GoOn) {
                    end_ = answer == LineAnswer::Retry ? PassEnd::Retry : PassEnd::Left;
                    return false;
                }
            }
        }
        return CountInARow(tableRow, counters);
    }

    /// Handles a row that the session cannot fetch.
    [[nodiscard]] bool PassOver(std::int32_t tableRow, LoadCounters& counters) {
        ++counters.invalidLines;
        ++invalidInARow_;
        return CountInARow(tableRow, counters);
    }

    [[nodiscard]] bool CountInARow(std::int32_t tableRow, LoadCounters& counters) {
        if (++badInARow_ < kMostBadLines) {
            return true;
        }
        counters.stoppedAtLine = tableRow;
        counters.invalidInRun = invalidInARow_;
        return false;
    }

    static bool IsEmpty(const std::string& line) {
        return line.find_first_not_of(" \t") == std::string::npos;
    }

    const std::string& table_;
    const TableShape& shape_;
    LineFormat format_;
    RowTarget target_;
    std::array<bool, kColumnSlots> inUse_;
    std::string base_; ///< the table that the selection comes from
    MIGeoLink& link_;
    Plot& plot_ = ActivePlot();
    std::int32_t badInARow_ = 0;
    std::int32_t invalidInARow_ = 0; ///< the number of those
    bool isAsked_ = false;
    PassEnd end_ = PassEnd::Done;
};

} // namespace

PassEnd ReadTableRows(const std::string& table, const TableShape& shape, const LineFormat& format,
                      const RowTarget& target, LoadCounters& counters, MIGeoLink& link) {
    counters = {};
    return TableReader(table, shape, format, target, link).Run(counters);
}

} // namespace quandrel
