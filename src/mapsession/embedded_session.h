// SPDX-License-Identifier: MIT
//
// The program's own map session: tables from files, maps and browsers of them, one selection.
//
// It accepts the statements and expressions listed in platform/map_session.h and Open Table "path",
// and refuses everything else. A SessionHost provides its windows on the screen: it shows a window
// for each SessionWindow, paints maps by map_drawing.h and browsers by browser_contents.h, and
// passes mouse events on.
//
// This is the chief header of the folder.
// Input: statements and expressions as text, tables from the plug-in in mapsession/gdal, clicks of
// the mouse.
// Output: answers as text, windows and their drawings for a host, and callbacks when the selection
// changes. It knows nothing of plots.

#pragma once

#include "mapsession/session_commands.h"
#include "mapsession/session_state.h"
#include "mapsession/statement.h"
#include "mapsession/table_source.h"
#include "platform/map_session.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// Ids of the menu commands.
enum SessionCommand : int {
    kCommandOpenTable = 102,
    kCommandFindSelection = 306,
    kCommandLayerControl = 801,
    kToolSelector = 1701,
    kToolGrabber = 1702,
    kToolRadius = 1703,
    kToolZoomIn = 1705,
    kToolZoomOut = 1706,
    kToolMarquee = 1722,
};

class EmbeddedMapSession;

/// The screen of a session.
class SessionHost {
public:
    virtual ~SessionHost() = default;

    /// Makes this the screen of a session, which reports its own end.
    virtual void SessionStarted(EmbeddedMapSession& session) = 0;

    /// The session ends, and its windows with it.
    virtual void SessionEnded() = 0;

    /// Shows a window, within the window of its parent's handle if that is not 0.
    virtual void ShowWindow(const SessionWindow& window) = 0;

    /// Removes a window that was closed by a statement or by its user; its SessionWindow is gone.
    virtual void DropWindow(std::int64_t id) = 0;

    /// Repaints all windows: the selection, a view or a layer has changed.
    virtual void RefreshWindows() = 0;

    /// A tool was chosen: a SessionCommand or the id of a custom tool.
    virtual void ChooseTool(int tool) = 0;

    /// Asks the user for a file with tables. UTF-8, empty when the user cancels.
    [[nodiscard]] virtual std::string AskForTable() = 0;

    /// Lets the user change which layers of a map are visible and selectable.
    virtual void EditLayers(SessionWindow& window) = 0;
};

/// The keys that are held while a tool is used.
struct SessionKeys {
    bool shift = false;
    bool control = false;
};

class EmbeddedMapSession : public MapSession {
public:
    /// @param source  not nullptr
    /// @param host    must outlive the session; nullptr for a session without a screen
    EmbeddedMapSession(std::shared_ptr<TableSource> source, SessionHost* host);
    ~EmbeddedMapSession() override;

    EmbeddedMapSession(const EmbeddedMapSession&) = delete;
    EmbeddedMapSession& operator=(const EmbeddedMapSession&) = delete;

    [[nodiscard]] MapReply Do(const std::string& command) override;
    [[nodiscard]] MapReply Eval(const std::string& expression) override;
    [[nodiscard]] MapReply RunMenuCommand(int id) override;
    void SetCallback(MapCallback* callback) override;
    [[nodiscard]] int LastErrorCode() override;
    void BeginSelects() override;
    void EndSelects() override;
    [[nodiscard]] bool UnitesSelects() const override;

    [[nodiscard]] const SessionState& State() const { return state_; }

    /// Uses the current tool, which was dragged between two points of a map or clicked on one.
    ///
    /// On a click the selector takes the nearest object of the topmost layer that has one there.
    /// The marquee and the radius tool take the objects of the topmost layer that has any there.
    /// With the shift key these are added to the selection, otherwise they replace it. Zooming in
    /// fits the dragged box, or doubles the scale about a click; zooming out halves it; the grabber
    /// moves the map. A change of the selection and a custom tool are reported to the callback, the
    /// former without a tool id.
    void UseTool(std::int64_t window, MapPoint from, MapPoint to, SessionKeys keys);

    /// Selects rows of a browser that its user chose; reported as by UseTool. Does nothing in a
    /// browser of the selection, whose rows are selected already.
    void SelectInBrowser(std::int64_t window, const std::vector<int>& rows);

    /// Sets the size of a window, in logical pixels.
    void ResizeWindow(std::int64_t window, double widthPixels, double heightPixels);

    /// Enlarges a map by the factor about a fixed point, as a mouse wheel does.
    void ZoomAt(std::int64_t window, MapPoint fixed, double factor);

    /// Called when a window has come to the front.
    void ActivateWindow(std::int64_t window);

    /// Called when a window has been closed by the user.
    void WindowClosedByUser(std::int64_t window);

private:
    [[nodiscard]] SessionVerdict Run(const SessionStatement& statement);
    [[nodiscard]] SessionVerdict RunCommandById(int command, bool mustBeCustom);
    [[nodiscard]] SessionVerdict Select(const SelectStatement& select);
    [[nodiscard]] SessionVerdict AskAndOpenTable();
    [[nodiscard]] SessionVerdict FindSelection();
    [[nodiscard]] SessionVerdict LayerControl();
    [[nodiscard]] SessionVerdict ChooseTool(int tool);
    [[nodiscard]] const SessionToolButton* CustomTool(int id) const;
    [[nodiscard]] MapReply Reply(const SessionVerdict& verdict);
    [[nodiscard]] SelectedRows Taken(const std::vector<SessionObject>& objects,
                                     SessionKeys keys) const;
    void UseSelectTool(const SessionWindow& window, MapPoint from, MapPoint to, SessionKeys keys);
    void UseViewTool(SessionWindow& window, MapPoint from, MapPoint to);
    void SelectByUser(SelectedRows rows, const std::string& message);
    void SayStatus(const std::string& text);
    void Tell();

    std::shared_ptr<TableSource> source_;
    SessionHost* host_;
    MapCallback* callback_ = nullptr;
    SessionState state_;
    SessionChanges changes_; ///< of the statement or command in progress
    int lastErrorCode_ = 0;
    bool selectsOpen_ = false;            ///< between BeginSelects and EndSelects
    std::optional<SelectedRows> pending_; ///< rows of the Selects since BeginSelects
};

} // namespace quandrel
