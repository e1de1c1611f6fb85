// SPDX-License-Identifier: MIT

#include "mapsession/session_state.h"

#include "mapsession/statement_lexer.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace quandrel {
namespace {

bool MayStandInName(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z')
           || (character >= '0' && character <= '9') || character == '_'
           || static_cast<unsigned char>(character) >= 0x80;
}

/// Collects the rows of each searchable layer for which isMeant(table, row) is true.
template <class IsMeant>
std::vector<SessionObject> SearchLayers(const SessionState& state, const SessionWindow& window,
                                        IsMeant isMeant) {
    std::vector<SessionObject> found;
    for (const SessionLayer& layer : window.layers) {
        const SessionResult<SessionRows> rows = RowsNamed(state, layer.table);
        if (!rows || !layer.visible || !layer.selectable) {
            continue;
        }
        const SessionTable& table = *rows->table;
        for (int i = 1; i <= rows->Count(); ++i) {
            const int row = rows->TableRow(i);
            if (isMeant(table, row)) {
                found.push_back({table.Name(), row});
            }
        }
    }
    return found;
}

} // namespace

bool SessionSelection::Has(std::string_view ofTable, int row) const {
    return EqualNames(table, ofTable) && std::binary_search(rows.begin(), rows.end(), row);
}

void SessionSelection::Add(std::vector<int> more) {
    std::sort(more.begin(), more.end());
    std::vector<int> all;
    all.reserve(rows.size() + more.size());
    std::merge(rows.begin(), rows.end(), more.begin(), more.end(), std::back_inserter(all));
    all.erase(std::unique(all.begin(), all.end()), all.end());
    rows = std::move(all);
}

OpenSessionTable* FindSessionTable(const SessionState& state, std::string_view name) {
    for (const auto& table : state.tables) {
        if (EqualNames(table->data.Name(), name)) {
            return table.get();
        }
    }
    return nullptr;
}

SessionWindow* FindSessionWindow(const SessionState& state, std::int64_t id) {
    for (const auto& window : state.windows) {
        if (window->id == id) {
            return window.get();
        }
    }
    return nullptr;
}

SessionResult<SessionRows> RowsNamed(const SessionState& state, std::string_view name) {
    if (const OpenSessionTable* const table = FindSessionTable(state, name)) {
        return SessionRows{&table->data, nullptr};
    }
    if (EqualNames(name, kSelectionName)) {
        if (const OpenSessionTable* const base = FindSessionTable(state, state.selection.table)) {
            return SessionRows{&base->data, &state.selection.rows};
        }
    }
    return SessionError{kSessionNoSuchTable, "Table " + std::string(name) + " is not open"};
}

SessionCursor& CursorOf(SessionState& state, const SessionRows& rows) {
    return rows.selected ? state.selectionCursor
                         : FindSessionTable(state, rows.table->Name())->cursor;
}

MapBox BoxOf(const SessionRows& rows) {
    MapBox box;
    for (int i = 1; i <= rows.Count(); ++i) {
        box.Include(rows.table->BoxOf(rows.TableRow(i)));
    }
    return box;
}

std::string FreeTableName(const SessionState& state, std::string_view wanted) {
    std::string name(wanted);
    std::replace_if(
        name.begin(), name.end(), [](char character) { return !MayStandInName(character); }, '_');
    if (name.empty() || (name[0] >= '0' && name[0] <= '9')) {
        name.insert(name.begin(), '_');
    }
    const auto isTaken = [&](const std::string& candidate) {
        return EqualNames(candidate, kSelectionName) || FindSessionTable(state, candidate);
    };
    std::string free = name;
    for (int number = 2; isTaken(free); ++number) {
        free = name + "_" + std::to_string(number);
    }
    return free;
}

std::vector<SessionObject> ObjectsAt(const SessionState& state, const SessionWindow& window,
                                     MapPoint point) {
    return ObjectsWithin(state, window, point, kClickTolerance * window.view.UnitsPerPixel());
}

std::vector<SessionObject> ObjectsIn(const SessionState& state, const SessionWindow& window,
                                     const MapBox& box) {
    return SearchLayers(state, window, [&box](const SessionTable& table, int row) {
        return RowTouchesBox(table, row, box);
    });
}

std::vector<SessionObject> ObjectsWithin(const SessionState& state, const SessionWindow& window,
                                         MapPoint middle, double radius) {
    return SearchLayers(state, window, [&](const SessionTable& table, int row) {
        return RowIsNear(table, row, middle, radius);
    });
}

} // namespace quandrel
