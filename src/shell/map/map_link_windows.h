// SPDX-License-Identifier: MIT
//
// The map link on the screen: the link window among the plots, its toolbar, and the sessions that
// are part of the program.
//
// This room holds the windows of a session (maps, browsers, information) and the dialogs about
// them.
// Input: drawings and lists from the embedded session, and the state of the link.
// Output: clicks and commands to the session and to mapinfo/map_commands.

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

/// What the main window does when the link reports an event.
struct MapLinkSigns {
    /// The rows of a table are now in the active plot; see MapLinkPort.
    std::function<void(const std::string& command)> plotted;

    /// The user has acted in the link. Plots, the selection, or the existence of a link may have
    /// changed.
    std::function<void()> done;
};

class MapLinkWindows {
public:
    /// Sets gPlatform.mapLink. The windows outlive this object.
    ///
    /// @param room     the area that contains the link window
    /// @param toolbar  initially empty; receives the buttons of the link
    MapLinkWindows(QMainWindow& main, QMdiArea& room, QToolBar& toolbar, MapLinkSigns signs);

    ~MapLinkWindows();

    MapLinkWindows(const MapLinkWindows&) = delete;
    MapLinkWindows& operator=(const MapLinkWindows&) = delete;

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
