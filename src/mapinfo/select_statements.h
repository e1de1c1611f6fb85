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

/// No statement is longer, in bytes, unless the head with a single row is.
inline constexpr std::size_t kLongestSelect = 240;

struct SelectStatements {
    std::vector<std::string> texts;
    std::size_t rowsInLast = 0; ///< rows of the last statement
};

/// "Select * From ", the table, " Where RowID = ", a row, and " or RowID = " with each further one,
/// in as many statements as it takes. No row gives no statement. Pure. O(rows).
[[nodiscard]] SelectStatements BuildSelects(const std::string& table,
                                            std::span<const std::int32_t> rows);

} // namespace quandrel
