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

/// The front window of the session.
struct FrontMapWindow {
    std::int64_t id = 0;
    MapWindowKind kind = MapWindowKind::None;
};

/// The table name of the session's selection.
inline constexpr const char* kSelectionTable = "Selection";

/// Refills gMITables. False when the session's answers make no sense; the tables are then empty.
[[nodiscard]] bool RefreshMITables();

/// The kind of a window by its id.
[[nodiscard]] MapWindowKind KindOfMIWindow(std::int64_t windowId);

/// The front window; its kind is None when there is none.
[[nodiscard]] FrontMapWindow FrontMIWindow();

/// The tables that a window shows, each once: those of the layers of a map, the topmost first, or
/// that of a browser. Empty for other windows, and when the session's answers make no sense.
[[nodiscard]] std::vector<std::string> GetWindowTables(std::int64_t windowId);

/// The text about some tables in the caption of the link window.
[[nodiscard]] std::string MICaptionOf(const std::vector<std::string>& tables);

/// Sets the caption of the link window for the front window. Called when it gets the focus, and
/// when its windows change.
void CheckMICaptions();

/// Opens a table in a map or in a browser within the link window; reports a failure.
/// @return the id of the new window, or nothing
std::optional<std::int64_t> OpenMIWindow(MapWindowKind kind, const std::string& table);

/// Opens the session's information window within the link window; reports a failure.
void OpenMIInformation();

/// True when the session's selection can be chosen as a table: it holds rows.
[[nodiscard]] bool IncludeSelection();

/// The tables to choose from: those of the session, and the selection when it holds rows.
[[nodiscard]] std::vector<std::string> MITableChoices();

/// Asks for one of the tables of MITableChoices; the default is that of the front window. Does not
/// ask when there is only one. Nothing on Cancel, and, with a message, when there are no tables.
[[nodiscard]] std::optional<std::string> ChooseMITable();

} // namespace quandrel
