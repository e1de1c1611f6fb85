// SPDX-License-Identifier: MIT
//
// The statements that select rows of a table by their numbers.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// Longest statement, in bytes, unless a statement with a single row is longer.
inline constexpr std::size_t kLongestSelect = 240;

struct SelectStatements {
    std::vector<std::string> texts;
    std::size_t rowsInLast = 0; ///< rows of the last statement
};

/// "Select * From ", the table, " Where RowID = ", a row, and " or RowID = " with each further row,
/// in as many statements as needed. Without rows there is no statement. Pure. O(rows).
[[nodiscard]] SelectStatements BuildSelects(const std::string& table,
                                            std::span<const std::int32_t> rows);

} // namespace quandrel
