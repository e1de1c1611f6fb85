// SPDX-License-Identifier: MIT

#include "mapinfo/map_commands.h"

#include "core/plot_store.h"
#include "core/settings.h"
#include "input/file_loading.h"
#include "mapinfo/geo_link.h"
#include "mapinfo/map_link.h"
#include "mapinfo/map_windows.h"
#include "mapinfo/selection_link.h"
#include "mapinfo/table_paste.h"
#include "platform/platform.h"

#include <algorithm>
#include <array>

namespace quandrel {

namespace {

using Kind = MapCommandKind;
using Needs = MapCommandNeeds;

constexpr auto kCommands = std::to_array<MapCommand>({
    {"OpenMITable", "mnuOpenMITable", "&Open Table...", "Open a MapInfo table", MapMenu::File,
     Kind::Menu, 102, Needs::Link, true},
    {kCloseMILink, "mnuCloseMILink", "Clos&e MapInfo Link", "End the link; the plots stay",
     MapMenu::File, Kind::Own, 0, Needs::Link, false},
    {kPlotMITable, "mnuPlotMITable", "&Plot MapInfo Table...", "Plot the rows of a table",
     MapMenu::Quandrel, Kind::Own, 0, Needs::Tables, true},
    {kAddMITable, "mnuAddMITable", "&Add MapInfo Table to Plot...",
     "Add the rows of a table to the active plot", MapMenu::Quandrel, Kind::Own, 0,
     Needs::TargetPlot, false},
    {kSelectPlotRows, "mnuSelectPlotRows", "&Select Plot Data in Map",
     "Select on the map what is selected in the plot", MapMenu::Quandrel, Kind::Own, 0,
     Needs::LinkedPlot, false},
    {"SelectTool", "mnuSelectTool", "&Selector", "Select objects on the map", MapMenu::Select,
     Kind::Tool, 1701, Needs::Map, true},
    {"RectTool", "mnuRectTool", "&Marquee Select", "Select objects in a rectangle", MapMenu::Select,
     Kind::Tool, 1722, Needs::Map, true},
    {"RadiusSelect", "mnuRadiusSelect", "&Radius Select", "Select objects in a circle",
     MapMenu::Select, Kind::Tool, 1703, Needs::Map, true},
    {"PointLink", "mnuPointSelect", "&Point Select and Link",
     "Select an object on the map and in the plot", MapMenu::Select, Kind::CustomTool, kPointTool,
     Needs::Map, true},
    {"MarqueeLink", "mnuMarqueeSelect", "Marquee Select and &Link",
     "Select objects in a rectangle, on the map and in the plot", MapMenu::Select, Kind::CustomTool,
     kMarqueeTool, Needs::Map, true},
    {"ZoomIn", "mnuZoomIn", "Zoom-&in", "Enlarge the map", MapMenu::Map, Kind::Tool, 1705,
     Needs::Map, true},
    {"ZoomOut", "mnuZoomOut", "Zoom-&out", "Show more of the map", MapMenu::Map, Kind::Tool, 1706,
     Needs::Map, true},
    {"Grabber", "mnuGrabber", "&Grabber", "Move the map", MapMenu::Map, Kind::Tool, 1702,
     Needs::Map, true},
    {"LayerControl", "mnuLayerControl", "&Layer Control...", "Choose the layers of the map",
     MapMenu::Map, Kind::Menu, 801, Needs::Map, false},
    {"FindSelection", "mnuFindSelection", "&Find Selection", "Show the selected objects",
     MapMenu::Query, Kind::Menu, 306, Needs::Map, false},
    {kNewMapper, "mnuNewMapper", "New &Mapper...", "Show a table as a map", MapMenu::Window,
     Kind::Own, 0, Needs::Tables, false},
    {kNewBrowser, "mnuNewBrowser", "New &Browser...", "Show a table as rows", MapMenu::Window,
     Kind::Own, 0, Needs::Tables, false},
    {kMIInformation, "mnuMIInformation", "&Information", "Show the values of an object",
     MapMenu::Window, Kind::Own, 0, Needs::Tables, false},
});

/// The facts that decide which commands can be chosen.
struct MapSituation {
    bool hasTables = false;
    bool hasMap = false;
};

bool IsMet(Needs needs, const MapSituation& situation) {
    switch (needs) {
    case Needs::Link:
        return true;
    case Needs::Tables:
        return situation.hasTables;
    case Needs::Map:
        return situation.hasMap;
    case Needs::LinkedPlot:
        return gMIGeoLinks.Item(gActivePlot) != nullptr;
    case Needs::TargetPlot:
        return situation.hasTables && IsOpenSlot(gActivePlot);
    }
    return false;
}

void Paste(const char* command) {
    if (const std::optional<std::string> table = ChooseMITable()) {
        (void)PasteMITable(*table, command);
    }
}

void OpenWindow(MapWindowKind kind) {
    if (const std::optional<std::string> table = ChooseMITable()) {
        (void)OpenMIWindow(kind, *table);
    }
}

void RunOwn(std::string_view name) {
    if (name == kPlotMITable) {
        Paste(kNewCommand);
    } else if (name == kAddMITable) {
        Paste(kMergeCommand);
    } else if (name == kSelectPlotRows) {
        SelectPlotRowsInMap();
    } else if (name == kNewMapper) {
        OpenWindow(MapWindowKind::Map);
    } else if (name == kNewBrowser) {
        OpenWindow(MapWindowKind::Browser);
    } else if (name == kMIInformation) {
        OpenMIInformation();
    } else if (name == kCloseMILink) {
        CloseMapInfoLink();
    }
}

void RunInSession(const MapCommand& command) {
    const bool isDone = command.kind == Kind::CustomTool
                            ? MIDo("Run Menu Command ID " + std::to_string(command.id))
                            : MIRunMenuCommand(command.id);
    if (!isDone) {
        const std::string failure = command.kind == Kind::Menu ? kCommandFailed : kToolFailed;
        const std::string& reason = MIRefusal();
        TellInMapAction(reason.empty() ? failure : failure + "\n\n" + reason);
    }
    if (command.kind == Kind::Menu) {
        RefreshAfterMapAction();
    }
}

} // namespace

std::span<const MapCommand> MapCommands() {
    return kCommands;
}

const char* NameOf(MapMenu menu) {
    constexpr std::array kNames = {"mnuFile",   "mnuMap",    "mnuQuery",
                                   "mnuSelect", "mnuWindow", "mnuQuandrel"};
    return kNames[static_cast<std::size_t>(menu)];
}

const char* CaptionOf(MapMenu menu) {
    constexpr std::array kCaptions = {"F&ile", "M&ap", "&Query", "&Select", "Win&dow", "Qua&ndrel"};
    return kCaptions[static_cast<std::size_t>(menu)];
}

void RunMICommand(std::string_view name) {
    const auto command = std::find_if(kCommands.begin(), kCommands.end(),
                                      [name](const MapCommand& held) { return held.name == name; });
    if (command == kCommands.end() || IsInMapAction() || gBusy) {
        return;
    }
    InMapAction([&] {
        if (command->kind == Kind::Own) {
            RunOwn(name);
        } else {
            RunInSession(*command);
        }
    });
}

void UpdateMIMenus() {
    InMapAction([] {
        if (gMapInfo->window == nullptr) {
            return;
        }
        MapSituation situation;
        situation.hasTables = MIEvalNumber("NumTables()").value_or(0) > 0;
        situation.hasMap = FrontMIWindow().kind == MapWindowKind::Map;
        for (const MapCommand& command : kCommands) {
            if (IsMapInfoLinked()) {
                gMapInfo->window->SetEnabled(command.name, IsMet(command.needs, situation));
            }
        }
    });
}

void ShowMIToolbar(bool isShown) {
    gSettings.windows.mapToolbar = isShown;
    if (gPlatform.mapLink.showToolbar) {
        gPlatform.mapLink.showToolbar(isShown && gMapInfo != nullptr);
    }
}

} // namespace quandrel
