// SPDX-License-Identifier: MIT

#include "mapinfo/table_rows.h"

#include "mapinfo/map_link.h"

#include <algorithm>
#include <string_view>

namespace quandrel {

namespace {

/// Number of rows that the format dialog shows.
constexpr std::int64_t kRowsShown = 20;

/// A value as a cell of tab-separated text.
std::string CellOf(std::string value) {
    std::replace_if(
        value.begin(), value.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; },
        ' ');
    return value;
}

bool IsTrue(std::string_view text) {
    return text.starts_with('T') || text.starts_with('t');
}

/// True when the last fetch went past the last row, or the session is gone.
bool IsAtEnd(const std::string& table) {
    const std::optional<std::string> end = MIEval("EOT(" + table + ")");
    return !IsMapInfoLinked() || (end && IsTrue(*end));
}

bool HasFailed() {
    return IsMapInfoLinked() && gMapInfo->MILink->LastErrorCode() != 0;
}

} // namespace

std::optional<TableShape> ReadTableShape(const std::string& table) {
    const auto rows = MIEvalNumber("TableInfo(" + table + ",8)");
    const auto columns = rows ? MIEvalNumber("TableInfo(" + table + ",4)") : std::nullopt;
    if (!columns || *rows < 0 || *columns < 0 || *columns > kMostTableColumns) {
        return std::nullopt;
    }
    return TableShape{*rows, static_cast<int>(*columns), {}};
}

bool ReadColumnNames(const std::string& table, TableShape& shape) {
    for (int column = 1; column <= shape.columns; ++column) {
        std::optional<std::string> name =
            MIEval("ColumnInfo(" + table + ",\"COL" + std::to_string(column) + "\",1)");
        if (!name) {
            return false;
        }
        shape.names.push_back(CellOf(*std::move(name)));
    }
    return true;
}

RowFetch FetchRow(const std::string& table, std::int64_t row) {
    const bool isDone = MIDo("Fetch Rec " + std::to_string(row) + " From " + table);
    if (!isDone || HasFailed()) {
        return IsMapInfoLinked() ? RowFetch::Failed : RowFetch::AtEnd;
    }
    return IsAtEnd(table) ? RowFetch::AtEnd : RowFetch::Fetched;
}

std::string ColumnValue(const std::string& table, int column) {
    return CellOf(MIEval(table + ".Col(" + std::to_string(column) + ")").value_or(""));
}

std::string TableHead(const std::string& table, const TableShape& shape) {
    std::string text;
    for (std::size_t i = 0; i < shape.names.size(); ++i) {
        text += (i == 0 ? "" : "\t") + shape.names[i];
    }
    text += '\n';
    const std::int64_t last = std::min(shape.rows, kRowsShown);
    for (std::int64_t row = 1; row <= last && !IsAtEnd(table); ++row) {
        for (int column = 1; column <= shape.columns; ++column) {
            text += (column == 1 ? "" : "\t") + ColumnValue(table, column);
        }
        text += '\n';
        if (row < last && !MIDo("Fetch Next From " + table)) {
            break;
        }
    }
    return text;
}

} // namespace quandrel
