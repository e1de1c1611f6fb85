// SPDX-License-Identifier: MIT
//
// The map session that the program brings along: tables from files, maps and browsers of them, one
// selection.
//
// It understands the statements and expressions that platform/map_session.h lists and   Open Table
// "path" and refuses everything else. How its windows look on the screen is the matter of a
// SessionHost: it shows a window for each SessionWindow, paints maps by map_drawing.h and browsers
// by browser_contents.h, and passes on what the mouse does.
//
// This is the chief header of the folder. Enters: statements and expressions as text, tables from
// the plug-in in mapsession/gdal, clicks of the mouse. Leaves: answers as text, windows and their
// drawings for a host, and calls back when the selection changes. It knows nothing of plots.

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

    /// A session shows its windows here from now on. It tells of its own end.
    virtual void SessionStarted(EmbeddedMapSession& session) = 0;

    /// The session goes, its windows with it.
    virtual void SessionEnded() = 0;

    /// A window is to be shown, in the window of its parent's handle if that is not 0.
    virtual void ShowWindow(const SessionWindow& window) = 0;

    /// A window has been closed, by a statement or by its user; its SessionWindow is gone.
    virtual void DropWindow(std::int64_t id) = 0;

    /// All windows are to be painted anew: the selection, a view or a layer has changed.
    virtual void RefreshWindows() = 0;

    /// A tool was chosen: a SessionCommand or the id of a custom tool.
    virtual void ChooseTool(int tool) = 0;

    /// Asks the user for a file with tables. UTF-8, empty when there is to be none.
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
    /// @param host    outlives the session; nullptr for a session without a screen
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

    /// The current tool was dragged from one point of a map to another one, or clicked on one.
    ///
    /// The selector takes the nearest object at a click, of the topmost layer that has any, the
    /// marquee and the radius tool the objects of the topmost layer that has any there; with the
    /// shift key these come to the selection, else they replace it. Zooming in fits the dragged box
    /// or doubles the scale about a click, zooming out halves it, the grabber moves the map. A
    /// change of the selection and a custom tool are told to the callback, the former without the
    /// id of a tool.
    void UseTool(std::int64_t window, MapPoint from, MapPoint to, SessionKeys keys);

    /// Rows of a browser were chosen by its user; told as UseTool tells it. Those of a browser of
    /// the selection are selected as it is.
    void SelectInBrowser(std::int64_t window, const std::vector<int>& rows);

    /// A window has another size, in logical pixels.
    void ResizeWindow(std::int64_t window, double widthPixels, double heightPixels);

    /// Shows a map larger by the factor, a point of it staying where it is, as a wheel does.
    void ZoomAt(std::int64_t window, MapPoint fixed, double factor);

    /// A window came to the front.
    void ActivateWindow(std::int64_t window);

    /// A window was closed by the user.
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
    SessionChanges changes_; ///< of the statement or command that is being carried out
    int lastErrorCode_ = 0;
    bool selectsOpen_ = false;            ///< between BeginSelects and EndSelects
    std::optional<SelectedRows> pending_; ///< what the Selects of the bracket have brought so far
};

} // namespace quandrel
