// SPDX-License-Identifier: MIT
//
// Reading a table of the map session. Called within an action (map_link.h).

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// The session's description of a table.
struct TableShape {
    std::int64_t rows = 0;
    int columns = 0;
    std::vector<std::string> names; ///< column names
};

/// Largest number of columns of a table.
inline constexpr std::int64_t kMostTableColumns = 4096;

/// Rows and columns of a table, without names. Nothing when the session's answers make no sense.
[[nodiscard]] std::optional<TableShape> ReadTableShape(const std::string& table);

/// The names of the columns of a table; false as above.
[[nodiscard]] bool ReadColumnNames(const std::string& table, TableShape& shape);

/// How the fetch of a row ended.
enum class RowFetch {
    Fetched,
    Failed, ///< this row cannot be fetched
    AtEnd,  ///< there is no such row
};

/// Moves the session's cursor to a row of a table.
[[nodiscard]] RowFetch FetchRow(const std::string& table, std::int64_t row);

/// The value of a column, from 1, in the fetched row; empty when the session refused it.
[[nodiscard]] std::string ColumnValue(const std::string& table, int column);

/// The first rows of a table as tab-separated text whose first line has the column names. The
/// session's cursor must be at the first row.
[[nodiscard]] std::string TableHead(const std::string& table, const TableShape& shape);

} // namespace quandrel
