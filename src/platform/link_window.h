// SPDX-License-Identifier: MIT
//
// What the link to a map program needs from the windows: the window that hosts the session's maps
// and browsers, the main window that it belongs to, and the source of sessions.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

class MapSessions;

/// The window of the link.
class LinkWindow {
public:
    virtual ~LinkWindow() = default;

    /// The handle that identifies the window in statements.
    [[nodiscard]] virtual std::uint64_t Handle() const = 0;

    virtual void SetCaption(const std::string& caption) = 0;
    virtual void SetStatusText(const std::string& text) = 0;

    /// Enables or disables a command of the menus and of the toolbar.
    /// @param name  as in the table of commands
    virtual void SetEnabled(const std::string& name, bool isEnabled) = 0;

    /// The dialog of tables. Nothing on Cancel.
    /// @param tables  at least one
    /// @param chosen  the preselected table; another text preselects none
    [[nodiscard]] virtual std::optional<std::string>
    AskTable(const std::vector<std::string>& tables, const std::string& chosen) = 0;

    /// Closes the window when the link has already ended.
    virtual void Close() = 0;
};

/// The surroundings of the link. An empty function means that the thing is not available.
struct MapLinkPort {
    MapSessions* sessions = nullptr;

    /// The handle of the main window.
    std::function<std::uint64_t()> mainWindow;

    /// Makes the window of the link in the main window; returns nothing when that fails.
    std::function<std::unique_ptr<LinkWindow>(std::uint64_t parent)> openLinkWindow;

    /// Called when the rows of a table have been put into the active plot.
    /// @param command  as of files: "New", "Blank", "Merge"
    std::function<void(const std::string& command)> tablePlotted;

    /// Shows or hides the toolbar of the link.
    std::function<void(bool isShown)> showToolbar;
};

} // namespace quandrel
