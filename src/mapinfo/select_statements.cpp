// SPDX-License-Identifier: MIT

#include "mapinfo/select_statements.h"

namespace quandrel {

SelectStatements BuildSelects(const std::string& table, std::span<const std::int32_t> rows) {
    const std::string head = "Select * From " + table + " Where RowID = ";
    SelectStatements statements;
    for (const std::int32_t row : rows) {
        const std::string further = " or RowID = " + std::to_string(row);
        if (!statements.texts.empty()
            && statements.texts.back().size() + further.size() <= kLongestSelect) {
            statements.texts.back() += further;
            ++statements.rowsInLast;
        } else {
            statements.texts.push_back(head + std::to_string(row));
            statements.rowsInLast = 1;
        }
    }
    return statements;
}

} // namespace quandrel
