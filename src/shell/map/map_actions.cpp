// SPDX-License-Identifier: MIT

#include "shell/map/map_actions.h"

#include "core/settings.h"
#include "shell/controls/icons.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <optional>

namespace quandrel {

namespace {

struct CommandIcon {
    std::string_view command;
    const char* icon;
};

constexpr CommandIcon kIcons[] = {
    {"OpenMITable", "map_open"},     {kPlotMITable, "map_plot"},
    {kAddMITable, "merge"},          {"SelectTool", "map_select"},
    {"RectTool", "map_marquee"},     {"RadiusSelect", "map_radius"},
    {"PointLink", "map_point_link"}, {"MarqueeLink", "map_marquee_link"},
    {"ZoomIn", "map_zoom_in"},       {"ZoomOut", "map_zoom_out"},
    {"Grabber", "map_grab"},         {kNewMapper, "map_link"},
    {kNewBrowser, "plot_data"},      {kMIInformation, "about"},
    {kCloseMILink, "close"},
};

QIcon IconOfCommand(std::string_view command) {
    const auto* const found = std::ranges::find(kIcons, command, &CommandIcon::command);
    return found == std::end(kIcons) ? QIcon() : IconOf(found->icon);
}

bool IsTool(const MapCommand& command) {
    return command.kind == MapCommandKind::Tool || command.kind == MapCommandKind::CustomTool;
}

} // namespace

MapActions::MapActions(QObject* parent)
    : QObject(parent)
    , mnuShowMIToolbar(new QAction("Show MapInfo &Toolbar", this)) {
    for (const MapCommand& command : MapCommands()) {
        actions_[command.name] = Make(command);
    }
    mnuShowMIToolbar->setObjectName("mnuShowMIToolbar");
    mnuShowMIToolbar->setToolTip("Show the buttons of the map link in the main window");
    mnuShowMIToolbar->setIcon(IconOf("toolbar"));
    mnuShowMIToolbar->setCheckable(true);
    mnuShowMIToolbar->setChecked(gSettings.windows.mapToolbar);
    connect(mnuShowMIToolbar, &QAction::triggered, this, [this](bool isShown) {
        ShowMIToolbar(isShown);
        if (onDone) {
            onDone();
        }
    });
}

QAction* MapActions::Make(const MapCommand& command) {
    auto* action = new QAction(command.caption, this);
    action->setObjectName(command.item);
    action->setToolTip(command.tip);
    action->setWhatsThis(command.tip);
    action->setIcon(IconOfCommand(command.name));
    action->setCheckable(IsTool(command));
    action->setEnabled(false);
    connect(action, &QAction::triggered, this, [this, name = command.name] {
        RunMICommand(name);
        if (onDone) {
            onDone();
        }
    });
    return action;
}

QAction& MapActions::Of(std::string_view name) const {
    return *actions_.find(name)->second;
}

QAction* MapActions::OfId(int id) const {
    for (const MapCommand& command : MapCommands()) {
        if (command.kind != MapCommandKind::Own && command.id == id) {
            return &Of(command.name);
        }
    }
    return nullptr;
}

void MapActions::AddButtons(QToolBar& toolbar) const {
    std::optional<MapMenu> former;
    for (const MapCommand& command : MapCommands()) {
        if (!command.isOnToolbar) {
            continue;
        }
        if (former && *former != command.menu) {
            toolbar.addSeparator();
        }
        former = command.menu;
        auto* button = new QToolButton;
        button->setObjectName(command.name);
        button->setDefaultAction(&Of(command.name));
        button->setAccessibleName(command.tip);
        button->setAutoRaise(true);
        toolbar.addWidget(button);
    }
}

void MapActions::AddItems(MapMenu of, QMenu& menu) const {
    for (const MapCommand& command : MapCommands()) {
        if (command.menu == of) {
            menu.addAction(&Of(command.name));
        }
    }
}

void MapActions::Enable(std::string_view name, bool isEnabled, bool hasMap) {
    QAction& action = Of(name);
    action.setEnabled(isEnabled || (hasMap && action.isCheckable()));
}

void MapActions::DisableAll() {
    for (const auto& [name, action] : actions_) {
        action->setEnabled(false);
    }
}

void MapActions::ShowTool(int tool) {
    for (const MapCommand& command : MapCommands()) {
        if (IsTool(command)) {
            Of(command.name).setChecked(command.id == tool);
        }
    }
}

} // namespace quandrel
