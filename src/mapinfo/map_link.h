// SPDX-License-Identifier: MIT
//
// The link to a session of a map program: its start, its end, and the calls through it.
//
// There is one link at a time. Each event from the user or from the session is one action: all its
// calls are made within InMapAction, which ends the link when the session has died meanwhile.
// Callbacks that arrive during an action are ignored.
//
// This is the chief header of the folder.
// Input: rows of map tables and the selection in them, through the port of the session.
// Output: plots of these rows, statements that select the rows of a plot in the session, and the
// correspondence between rows (geo_link.h).

#pragma once

#include "mapinfo/geo_link.h"
#include "mapinfo/selection_link.h"
#include "platform/link_window.h"
#include "platform/map_session.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// The messages of failed calls.
inline constexpr const char* kCommandFailed =
    "Sorry - this MapInfo command has not been able to be processed properly";
inline constexpr const char* kToolFailed =
    "Sorry - this tool has not been able to be accessed from MapInfo properly";
inline constexpr const char* kLinkAbandoned = "The MapInfo link will have to be abandoned.";

/// States of a link.
enum LinkState : int {
    kLinkClosed = 0, ///< about to be removed
    kLinkOpen = 1,
    kLinkDead = 2, ///< the session has ended
};

class MapInfoLink : private MapCallback {
public:
    /// A link to a session; its window is opened later.
    explicit MapInfoLink(std::unique_ptr<MapSession> session);

    std::unique_ptr<MapSession> MILink;
    int LinkType = kLinkOpen; ///< a LinkState

    std::unique_ptr<LinkWindow> window; ///< empty until it is opened

    /// Makes the session report its user's actions to this link.
    void TakeCallbacks();

private:
    void HandleToolButton(const std::string& message) override;
    void SetStatusText(const std::string& text) override;
    void WindowContentsChanged(std::int64_t windowId) override;
    void SessionEnded() override;
};

/// The action in progress.
struct MapAction {
    int depth = 0;          ///< of nested calls of InMapAction
    bool refreshes = false; ///< update captions and menus at its end
    std::string lastWords;  ///< message to show after the link of a dead session is gone
    std::string refusal;    ///< reason why the last call was refused
    int callbacks = 0;      ///< callbacks of the session that have not returned
};

/// The link, and the known state of the session.
struct MapLinkState {
    std::unique_ptr<MapInfoLink> link;      ///< or nothing
    std::vector<std::string> tables = {""}; ///< from 1; element 0 always exists and is empty
    std::vector<std::string> rowList;       ///< the statements that were sent last, in order
    MapRows sent;                           ///< the rows that they selected in the session
    bool failureIsTold = false;             ///< the last selection failed, and was reported
    MapAction action;
    std::unique_ptr<MapSession> endedSession; ///< ended in a callback, which may still be running

    static MapLinkState now;
};

// Given names.
inline constinit auto& gMapInfo = MapLinkState::now.link;
inline constinit auto& gMITables = MapLinkState::now.tables;
inline constinit auto& gMIRowList = MapLinkState::now.rowList;
inline constexpr MIGeoLinks gMIGeoLinks;

/// The start command: opens a session, sets it up, opens the link window. Reports all failures.
/// @return true when a new link has been made
bool StartMapInfoLink();

/// A link to a running session or a new one; nothing, with a message, when there is none.
[[nodiscard]] std::unique_ptr<MapInfoLink> OpenMapInfoSession();

/// Ends the link at the user's request. The plots stay, and recognise their rows when the table is
/// linked again. Called by the link window when its user closes it, and before the program ends;
/// the window may be destroyed during this call. Does nothing without a link.
void CloseMapInfoLink();

/// True while statements can be sent.
[[nodiscard]] bool IsMapInfoLinked();

/// Runs code that needs the session. Does nothing without an open link. When the session dies
/// meanwhile, the link and the links of the plots are removed, and one message is shown: that of
/// the action, if it has one.
void InMapAction(const std::function<void()>& body);

/// True within an action.
[[nodiscard]] bool IsInMapAction();

/// Reports a failure of the current action: at once, or at its end when the session is dead.
void TellInMapAction(const std::string& text);

/// Requests an update of the link window's captions and menus at the end of the action.
void RefreshAfterMapAction();

/// Runs a statement. False when it was refused, or there is no session.
[[nodiscard]] bool MIDo(const std::string& command);

/// The value of an expression; nothing when it was refused, or there is no session.
[[nodiscard]] std::optional<std::string> MIEval(const std::string& expression);

/// The value of an expression that is a whole number within 53 bits; otherwise as MIEval.
[[nodiscard]] std::optional<std::int64_t> MIEvalNumber(const std::string& expression);

/// Runs a menu command. False as MIDo.
[[nodiscard]] bool MIRunMenuCommand(int id);

/// The reason that the session gave for refusing the last call; empty when it accepted the call or
/// gave no reason.
[[nodiscard]] const std::string& MIRefusal();

/// Sets the status line of the link window.
void SetMIStatus(const std::string& text);

} // namespace quandrel
