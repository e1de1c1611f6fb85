// SPDX-License-Identifier: MIT
//
// The map link on the screen: the window of the link among the plots, its toolbar, and the sessions
// that the program brings along.
//
// Inside the room: the windows of a session (maps, browsers, information) and the dialogs about
// them.
// Enters: what the embedded session draws and lists, the state of the link.
// Leaves: clicks and commands to the session and to mapinfo/map_commands.

#pragma once

#include "shell/map/map_host.h"

#include <functional>
#include <memory>
#include <string>

class QMainWindow;
class QMdiArea;
class QToolBar;

namespace quandrel {

class MapActions;
class MapSessions;
class frmMapinfo;

/// What the main window does with what the link tells.
struct MapLinkSigns {
    /// The rows of a table stand in the active plot; as of MapLinkPort.
    std::function<void(const std::string& command)> plotted;

    /// The user has done something in the link that may have changed plots, the selection, or
    /// whether there is a link.
    std::function<void()> done;
};

class MapLinkWindows {
public:
    /// Sets gPlatform.mapLink. The windows outlive this object.
    ///
    /// @param room     where the window of the link stands
    /// @param toolbar  empty; takes the buttons of the link
    MapLinkWindows(QMainWindow& main, QMdiArea& room, QToolBar& toolbar, MapLinkSigns signs);

    /// Ends the link.
    ~MapLinkWindows();

    MapLinkWindows(const MapLinkWindows&) = delete;
    MapLinkWindows& operator=(const MapLinkWindows&) = delete;

    /// The screen of embedded sessions.
    [[nodiscard]] MapHost& Host() { return host_; }

    [[nodiscard]] MapActions& Actions() const { return *actions_; }

private:
    void MakePort();
    [[nodiscard]] frmMapinfo* OpenWindow();
    void Done();

    QMainWindow& main_;
    QMdiArea& room_;
    QToolBar& toolbar_;
    MapLinkSigns signs_;
    std::unique_ptr<MapActions> actions_;
    MapHost host_;
    std::unique_ptr<MapSessions> sessions_;
};

} // namespace quandrel
