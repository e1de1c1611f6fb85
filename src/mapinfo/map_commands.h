// SPDX-License-Identifier: MIT
//
// The commands of the link window's menus and of the toolbar of the link.

#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quandrel {

/// The menus of the link window.
enum class MapMenu { File, Map, Query, Select, Window, Quandrel };

/// When a command can be chosen.
enum class MapCommandNeeds {
    Link,
    Tables,     ///< a table is open
    Map,        ///< a map is in front
    LinkedPlot, ///< the active plot is linked
    TargetPlot, ///< a table is open, and a plot to add its rows to
};

/// How a command reaches the session.
enum class MapCommandKind {
    Menu,       ///< by a menu command
    Tool,       ///< as Menu; chooses the mouse tool for maps
    CustomTool, ///< chooses a custom tool of the program
    Own,        ///< by a procedure
};

/// Ids of the program's own tools in messages.
inline constexpr int kPointTool = 2001;
inline constexpr int kMarqueeTool = 2002;

struct MapCommand {
    const char* name;    ///< identifies the command, and its button on the toolbar
    const char* item;    ///< of its menu item
    const char* caption; ///< with its mnemonic
    const char* tip;
    MapMenu menu;
    MapCommandKind kind;
    int id; ///< of the session's command or tool; 0 for Own
    MapCommandNeeds needs;
    bool isOnToolbar;
};

/// The names of Own commands.
inline constexpr const char* kPlotMITable = "PlotMITable";
inline constexpr const char* kAddMITable = "AddMITable";
inline constexpr const char* kNewMapper = "NewMapper";
inline constexpr const char* kNewBrowser = "NewBrowser";
inline constexpr const char* kMIInformation = "MIInformation";
inline constexpr const char* kSelectPlotRows = "SelectPlotRows";
inline constexpr const char* kCloseMILink = "CloseMILink";

/// All commands in the order of menus and toolbar.
[[nodiscard]] std::span<const MapCommand> MapCommands();

/// The name of the menu of the link window: "mnuFile", "mnuMap" and so on.
[[nodiscard]] const char* NameOf(MapMenu menu);

/// The caption of a menu, with a mnemonic that the main window does not use.
[[nodiscard]] const char* CaptionOf(MapMenu menu);

/// Runs a command by its name; failures are reported. Does nothing without a link.
void RunMICommand(std::string_view name);

/// Updates which commands can be chosen in the link window.
void UpdateMIMenus();

/// The action of mnuShowMIToolbar: shows or hides the toolbar.
void ShowMIToolbar(bool isShown);

} // namespace quandrel
