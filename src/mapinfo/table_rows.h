// SPDX-License-Identifier: MIT
//
// Reading a table of the map session. Called within an action (map_link.h).

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// What the session says of a table.
struct TableShape {
    std::int64_t rows = 0;
    int columns = 0;
    std::vector<std::string> names; ///< of the columns
};

/// A table has no more columns than this.
inline constexpr std::int64_t kMostTableColumns = 4096;

/// Rows and columns of a table; without the names. Nothing when the session gives no sense.
[[nodiscard]] std::optional<TableShape> ReadTableShape(const std::string& table);

/// The names of the columns of a table; false as above.
[[nodiscard]] bool ReadColumnNames(const std::string& table, TableShape& shape);

/// How the fetch of a row ended.
enum class RowFetch {
    Fetched,
    Failed, ///< this row cannot be had
    AtEnd,  ///< there is no such row
};

/// Lets the session stand at a row of a table.
[[nodiscard]] RowFetch FetchRow(const std::string& table, std::int64_t row);

/// The value of a column, from 1, in the row that was fetched; empty when it was refused.
[[nodiscard]] std::string ColumnValue(const std::string& table, int column);

/// The first rows of a table as a text with tabs, its first line the names of the columns. The
/// session must stand at the first row.
[[nodiscard]] std::string TableHead(const std::string& table, const TableShape& shape);

} // namespace quandrel
