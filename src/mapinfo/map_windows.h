// SPDX-License-Identifier: MIT
//
// The tables of the session and the windows that show them. Called within an action (map_link.h).

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// Kinds of a window of the session.
enum class MapWindowKind { None, Map, Browser, Other };

/// The window in front of the session's others.
struct FrontMapWindow {
    std::int64_t id = 0;
    MapWindowKind kind = MapWindowKind::None;
};

/// The name under which the session's selection is a table.
inline constexpr const char* kSelectionTable = "Selection";

/// Fills gMITables anew. False when the session gives no sense; the tables are empty then.
[[nodiscard]] bool RefreshMITables();

/// The kind of a window by its id.
[[nodiscard]] MapWindowKind KindOfMIWindow(std::int64_t windowId);

/// The window in front; kind None when there is none.
[[nodiscard]] FrontMapWindow FrontMIWindow();

/// The tables that a window shows, each once: those of the layers of a map from the top one on, or
/// that of a browser. Empty for other windows, and when the session gives no sense.
[[nodiscard]] std::vector<std::string> GetWindowTables(std::int64_t windowId);

/// What the caption of the link window says of some tables.
[[nodiscard]] std::string MICaptionOf(const std::vector<std::string>& tables);

/// Gives the link window the caption of the window in front. Called when it gets the focus, and
/// when its windows change.
void CheckMICaptions();

/// Opens a table in a map or in a browser within the link window; the failure is told.
/// @return the id of the new window, or nothing
std::optional<std::int64_t> OpenMIWindow(MapWindowKind kind, const std::string& table);

/// Opens the session's information window within the link window; the failure is told.
void OpenMIInformation();

/// True when the session's selection takes part in a choice of tables: it holds rows.
[[nodiscard]] bool IncludeSelection();

/// The tables to choose from: those of the session, and the selection where it holds rows.
[[nodiscard]] std::vector<std::string> MITableChoices();

/// Asks for one of the tables of MITableChoices, opening with that of the window in front. A single
/// one is not asked for. Nothing on Cancel, and without tables, which is told.
[[nodiscard]] std::optional<std::string> ChooseMITable();

} // namespace quandrel
