// SPDX-License-Identifier: MIT
//
// The link to a session of a map program: its start and its end, and the calls through it.
//
// There is one link at a time. What begins with the user, or with the session, is one action: all
// calls of it are made within InMapAction, which ends the link when the session has died on the
// way. Callbacks that come while an action is at work are not answered.
//
// This is the chief header of the folder. Enters: rows of map tables and what is selected in them,
// through the port of the session. Leaves: plots of these rows, statements that select the rows of
// a plot in the session, and which row belongs to which (geo_link.h).

#pragma once

#include "platform/link_window.h"
#include "platform/map_session.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// What a failed call says.
inline constexpr const char* kCommandFailed =
    "Sorry - this MapInfo command has not been able to be processed properly";
inline constexpr const char* kToolFailed =
    "Sorry - this tool has not been able to be accessed from MapInfo properly";
inline constexpr const char* kLinkAbandoned = "The MapInfo link will have to be abandoned.";

/// States of a link.
enum LinkState : int {
    kLinkClosed = 0, ///< about to go
    kLinkOpen = 1,
    kLinkDead = 2, ///< the session has ended
};

class MapInfoLink : private MapCallback {
public:
    /// A link over a session; its window comes later.
    explicit MapInfoLink(std::unique_ptr<MapSession> session);

    std::unique_ptr<MapSession> MILink;
    int LinkType = kLinkOpen; ///< a LinkState

    std::unique_ptr<LinkWindow> window; ///< empty until it is opened

    /// From now on the session tells this link what its user does.
    void TakeCallbacks();

private:
    void HandleToolButton(const std::string& message) override;
    void SetStatusText(const std::string& text) override;
    void WindowContentsChanged(std::int64_t windowId) override;
    void SessionEnded() override;
};

/// The link, or nothing.
extern std::unique_ptr<MapInfoLink> gMapInfo;

/// The tables of the session: 1 is the first; element 0 is empty and always there.
extern std::vector<std::string> gMITables;

/// The start command: opens a session, sets it up, opens the link window. All failures are told.
/// @return true when there is a link now that was not there before
bool StartMapInfoLink();

/// A link over a running session or a new one; nothing, with a message, when there is none.
[[nodiscard]] std::unique_ptr<MapInfoLink> OpenMapInfoSession();

/// Ends the link, as its user wishes. The plots stay, and know their rows when the table is linked
/// to again. Called by the link window when its user closes it, and before the program ends; the
/// window must bear to be destroyed at this moment. Does nothing without a link.
void CloseMapInfoLink();

/// True while statements can be sent.
[[nodiscard]] bool IsMapInfoLinked();

/// Does something that needs the session. Does nothing without an open link. When the session dies
/// in it, the link goes, the links of the plots with it, and one message is told: that of the
/// action, if it had any.
void InMapAction(const std::function<void()>& body);

/// True within an action.
[[nodiscard]] bool IsInMapAction();

/// Tells a failure of the action in work: at once, or at its end when the session is dead.
void TellInMapAction(const std::string& text);

/// Lets the captions and menus of the link window be brought up to date at the end of the action.
void RefreshAfterMapAction();

/// Runs a statement. False when it was refused, or there is no session.
[[nodiscard]] bool MIDo(const std::string& command);

/// The value of an expression; nothing when it was refused, or there is no session.
[[nodiscard]] std::optional<std::string> MIEval(const std::string& expression);

/// The value of an expression that is a whole number of 53 bits; otherwise as MIEval.
[[nodiscard]] std::optional<std::int64_t> MIEvalNumber(const std::string& expression);

/// Runs a menu command. False as MIDo.
[[nodiscard]] bool MIRunMenuCommand(int id);

/// Why the session refused the call before, in its own words; empty when it did not, or does not
/// say.
[[nodiscard]] const std::string& MIRefusal();

/// The status line of the link window.
void SetMIStatus(const std::string& text);

} // namespace quandrel
