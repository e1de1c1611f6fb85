// SPDX-License-Identifier: MIT

#include "mapsession/browser_contents.h"

namespace quandrel {

std::optional<SessionRows> BrowserContents::Rows() const {
    const SessionWindow* const window = FindSessionWindow(state_, window_);
    if (!window || window->kind != SessionWindowKind::Browser) {
        return std::nullopt;
    }
    const SessionResult<SessionRows> rows = RowsNamed(state_, window->layers.front().table);
    return rows ? std::optional(*rows) : std::nullopt;
}

std::string_view BrowserContents::TableName() const {
    const std::optional<SessionRows> rows = Rows();
    return rows ? rows->Name() : std::string_view();
}

int BrowserContents::ColumnCount() const {
    const std::optional<SessionRows> rows = Rows();
    return rows ? rows->table->ColumnCount() : 0;
}

int BrowserContents::RowCount() const {
    const std::optional<SessionRows> rows = Rows();
    return rows ? rows->Count() : 0;
}

const SessionColumn& BrowserContents::Column(int column) const {
    return Rows()->table->Column(column);
}

int BrowserContents::TableRow(int row) const {
    return Rows()->TableRow(row);
}

std::string_view BrowserContents::Cell(int row, int column) const {
    const std::optional<SessionRows> rows = Rows();
    return rows->table->Cell(rows->TableRow(row), column);
}

bool BrowserContents::IsSelected(int row) const {
    const std::optional<SessionRows> rows = Rows();
    return rows && state_.selection.Has(rows->table->Name(), rows->TableRow(row));
}

std::vector<std::pair<std::string, std::string>> InfoContents(const SessionState& state) {
    std::vector<std::pair<std::string, std::string>> lines;
    const OpenSessionTable* const table = FindSessionTable(state, state.selection.table);
    if (!table || state.selection.rows.empty()) {
        return lines;
    }
    for (int column = 1; column <= table->data.ColumnCount(); ++column) {
        lines.emplace_back(table->data.Column(column).name,
                           table->data.Cell(state.selection.rows.front(), column));
    }
    return lines;
}

} // namespace quandrel
