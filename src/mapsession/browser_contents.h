// SPDX-License-Identifier: MIT
//
// The contents of a browser window and of an info window of the map session.

#pragma once

#include "mapsession/session_state.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quandrel {

/// A browser's rows and columns, numbered from 1, as they are at each call. When the window or its
/// table no longer exists, there are no rows.
class BrowserContents {
public:
    /// @param state  must outlive the contents
    BrowserContents(const SessionState& state, std::int64_t window)
        : state_(state)
        , window_(window) {}

    /// The name of the table; empty when there is none.
    [[nodiscard]] std::string_view TableName() const;
    [[nodiscard]] int ColumnCount() const;
    [[nodiscard]] int RowCount() const;

    /// @param column  1 to ColumnCount()
    [[nodiscard]] const SessionColumn& Column(int column) const;

    /// The number of a row in its table, which differs in a browser of the selection.
    /// @param row  1 to RowCount()
    [[nodiscard]] int TableRow(int row) const;

    /// @param row     1 to RowCount()
    /// @param column  1 to ColumnCount()
    [[nodiscard]] std::string_view Cell(int row, int column) const;
    [[nodiscard]] bool IsSelected(int row) const;

private:
    [[nodiscard]] std::optional<SessionRows> Rows() const;

    const SessionState& state_;
    std::int64_t window_;
};

/// The columns of the first selected row with their values, in order; empty without a selection.
[[nodiscard]] std::vector<std::pair<std::string, std::string>>
InfoContents(const SessionState& state);

} // namespace quandrel
