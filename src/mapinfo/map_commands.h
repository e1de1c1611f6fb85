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
    Map,        ///< a map stands in front
    LinkedPlot, ///< the active plot is linked
    TargetPlot, ///< a table is open, and a plot to add its rows to
};

/// How a command reaches the session.
enum class MapCommandKind {
    Menu,       ///< by a menu command
    Tool,       ///< as Menu; chooses what the mouse does on maps
    CustomTool, ///< chooses a tool of the program's own
    Own,        ///< by a procedure
};

/// Ids of the program's own tools, as messages name them.
inline constexpr int kPointTool = 2001;
inline constexpr int kMarqueeTool = 2002;

struct MapCommand {
    const char* name;    ///< by which it is run; of its button on the toolbar
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

/// The caption of a menu, with its mnemonic: none of the main window's.
[[nodiscard]] const char* CaptionOf(MapMenu menu);

/// Does what a command does, by its name; failures are told. Does nothing without a link.
void RunMICommand(std::string_view name);

/// Tells the link window which commands can be chosen now.
void UpdateMIMenus();

/// What mnuShowMIToolbar does: the toolbar is shown from now on, or not.
void ShowMIToolbar(bool isShown);

} // namespace quandrel
