// SPDX-License-Identifier: MIT
//
// The commands of the map link: one action for each, shared by the items of the link window's menus
// and the buttons of the toolbar.

#pragma once

#include "mapinfo/map_commands.h"

#include <QObject>

#include <functional>
#include <map>
#include <string>
#include <string_view>

class QAction;
class QMenu;
class QToolBar;

namespace quandrel {

class MapActions : public QObject {
public:
    /// Makes all actions, disabled until there is a link. The name of an action is that of its menu
    /// item.
    explicit MapActions(QObject* parent);

    /// The action of a command: "OpenMITable".
    [[nodiscard]] QAction& Of(std::string_view name) const;

    /// The action of a command or tool of the session by its id; nullptr when there is none.
    [[nodiscard]] QAction* OfId(int id) const;

    /// Adds the buttons of the link to a toolbar. Their names are those of the commands.
    void AddButtons(QToolBar& toolbar) const;

    /// Adds the items of a menu.
    void AddItems(MapMenu of, QMenu& menu) const;

    /// A command can be chosen now, or not.
    ///
    /// @param hasMap  a map is shown. The mouse brings it to the front, so its tools can be chosen
    ///                while another window is there
    void Enable(std::string_view name, bool isEnabled, bool hasMap);

    void DisableAll();

    /// Shows a tool as the one that is chosen.
    void ShowTool(int tool);

    /// Shows or hides the toolbar of the link.
    QAction* mnuShowMIToolbar;

    /// Called when a command has done its work.
    std::function<void()> onDone;

private:
    QAction* Make(const MapCommand& command);

    std::map<std::string, QAction*, std::less<>> actions_;
};

} // namespace quandrel
