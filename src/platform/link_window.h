// SPDX-License-Identifier: MIT
//
// What the link to a map program needs of the windows: the one that hosts the session's maps and
// browsers, the main window that it belongs to, and where sessions come from.

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

    /// The handle that statements name the window by.
    [[nodiscard]] virtual std::uint64_t Handle() const = 0;

    virtual void SetCaption(const std::string& caption) = 0;
    virtual void SetStatusText(const std::string& text) = 0;

    /// A command of the menus and of the toolbar can be chosen now, or not.
    /// @param name  of the table of commands
    virtual void SetEnabled(const std::string& name, bool isEnabled) = 0;

    /// The dialog of tables. Nothing on Cancel.
    /// @param tables  at least one
    /// @param chosen  the one that it opens with; another text is none of them
    [[nodiscard]] virtual std::optional<std::string>
    AskTable(const std::vector<std::string>& tables, const std::string& chosen) = 0;

    /// Closes the window without ending the link; it has ended.
    virtual void Close() = 0;
};

/// The outside of the link. What is empty is not there.
struct MapLinkPort {
    MapSessions* sessions = nullptr;

    /// The handle of the main window.
    std::function<std::uint64_t()> mainWindow;

    /// Makes the window of the link in the main window; nothing when that fails.
    std::function<std::unique_ptr<LinkWindow>(std::uint64_t parent)> openLinkWindow;

    /// The rows of a table stand in the active plot.
    /// @param command  as of files: "New", "Blank", "Merge"
    std::function<void(const std::string& command)> tablePlotted;

    /// Shows the toolbar of the link, or hides it.
    std::function<void(bool isShown)> showToolbar;
};

/// The outside in use. Set at start, beside gPlatform.
extern MapLinkPort gMapLinkPort;

} // namespace quandrel
