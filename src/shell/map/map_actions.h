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
    /// Creates all actions, disabled until there is a link. An action has the name of its menu
    /// item.
    explicit MapActions(QObject* parent);

    /// The action of a command: "OpenMITable".
    [[nodiscard]] QAction& Of(std::string_view name) const;

    /// The action of a command or tool of the session by its id; nullptr if there is none.
    [[nodiscard]] QAction* OfId(int id) const;

    /// Adds the buttons of the link to a toolbar. They have the names of the commands.
    void AddButtons(QToolBar& toolbar) const;

    void AddItems(MapMenu of, QMenu& menu) const;

    /// Enables or disables a command by its name.
    ///
    /// @param hasMap  a map is shown. A click brings it to the front, so its tools are enabled even
    ///                while another window is in front
    void Enable(std::string_view name, bool isEnabled, bool hasMap);

    void DisableAll();

    /// Shows a tool as the chosen one.
    void ShowTool(int tool);

    /// Shows or hides the toolbar of the link.
    QAction* mnuShowMIToolbar;

    /// Called after a command has finished.
    std::function<void()> onDone;

private:
    QAction* Make(const MapCommand& command);

    std::map<std::string, QAction*, std::less<>> actions_;
};

} // namespace quandrel
