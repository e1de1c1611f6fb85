// SPDX-License-Identifier: MIT

#include "mapinfo/map_link.h"

#include "core/messages.h"
#include "core/settings.h"
#include "mapinfo/geo_link.h"
#include "mapinfo/map_commands.h"
#include "mapinfo/map_windows.h"
#include "mapinfo/selection_link.h"
#include "orientation/number_text.h"
#include "platform/platform.h"

#include <cmath>
#include <utility>

namespace quandrel {

MapLinkState MapLinkState::now;

namespace {

/// Whole numbers above this are not exact.
constexpr double kMostWhole = 9007199254740992.0;

constexpr const char* kCustomTools =
    "Create ButtonPad \"Custom Tools\" As "
    "ToolButton ID 2001 DrawMode 34 Calling OLE \"HandleToolButton\" "
    "ToolButton ID 2002 DrawMode 32 Calling OLE \"HandleToolButton\"";

constexpr const char* kShortcutMenu = "Create Menu \"MapperShortcut\" ID 17 As "
                                      "\"Selector\" Calling 1701, "
                                      "\"Marquee Select\" Calling 1722, "
                                      "\"Zoom-in\" Calling 1705, "
                                      "\"Zoom-out\" Calling 1706, "
                                      "\"Grabber\" Calling 1702, "
                                      "\"Find Selection\" Calling 306, "
                                      "\"Layer Control...\" Calling 801 ";

void DropSession(std::unique_ptr<MapSession> session) {
    if (session == nullptr) {
        return;
    }
    session->SetCallback(nullptr);
    if (MapLinkState::now.action.callbacks > 0) {
        MapLinkState::now.endedSession = std::move(session);
    }
}

/// Removes the link and its window.
void DropLink() {
    std::unique_ptr<MapInfoLink> link = std::exchange(gMapInfo, nullptr);
    gMITables = {""};
    ForgetMapSelection();
    MapLinkState::now.action.refreshes = false;
    if (link == nullptr) {
        return;
    }
    link->LinkType = kLinkClosed;
    if (link->window != nullptr) {
        link->window->Close();
        link->window.reset();
    }
    DropSession(std::move(link->MILink));
    if (gPlatform.mapLink.showToolbar) {
        gPlatform.mapLink.showToolbar(false);
    }
}

/// Ends the last action: does what had to wait for it.
void EndAction() {
    if (gMapInfo != nullptr && gMapInfo->LinkType == kLinkOpen
        && std::exchange(MapLinkState::now.action.refreshes, false)) {
        CheckMICaptions();
        UpdateMIMenus();
    }
    if (gMapInfo == nullptr || gMapInfo->LinkType == kLinkOpen) {
        return;
    }
    const bool hasDied = gMapInfo->LinkType == kLinkDead;
    std::string lastWords = std::exchange(MapLinkState::now.action.lastWords, {});
    if (hasDied && lastWords.empty()) {
        lastWords = kLinkAbandoned;
    }
    DropLink();
    if (hasDied) {
        RemoveAllGeoLinks();
    }
    if (!lastWords.empty()) {
        Tell(lastWords);
    }
}

/// Records how a call ended. True when it succeeded.
[[nodiscard]] bool TakeReply(const MapReply& reply) {
    if (reply.kind == MapReplyKind::Dead && gMapInfo != nullptr
        && gMapInfo->LinkType == kLinkOpen) {
        gMapInfo->LinkType = kLinkDead;
    }
    MapLinkState::now.action.refusal =
        reply.kind == MapReplyKind::Refused ? reply.text : std::string();
    return reply.IsDone() && IsMapInfoLinked();
}

void TellOfNoSession(const char* reason) {
    std::string text = std::string(reason) + "\nThe link will have to be abandoned.";
    if (gPlatform.mapLink.sessions != nullptr) {
        const std::string help = gPlatform.mapLink.sessions->Help();
        text += help.empty() ? "" : "\n\n" + help;
    }
    (void)gPlatform.prompts->Ask({"MapInfo Linking...", text, Icon::Stop, Buttons::Ok});
}

std::uint64_t MainWindowHandle() {
    return gPlatform.mapLink.mainWindow ? gPlatform.mapLink.mainWindow() : 0;
}

/// Tells the session its windows, the custom tools and the shortcut menu.
void SetUpSession() {
    if (!MIDo("Set Application Window " + std::to_string(MainWindowHandle())) || !MIDo(kCustomTools)
        || !MIDo(kShortcutMenu)) {
        TellInMapAction(kCommandFailed);
    }
}

[[nodiscard]] bool OpenLinkWindow() {
    if (gPlatform.mapLink.openLinkWindow) {
        gMapInfo->window = gPlatform.mapLink.openLinkWindow(MainWindowHandle());
    }
    return gMapInfo->window != nullptr;
}

void GreetUser() {
    SetMIStatus(gMITables.size() > 1
                    ? "Either use 'Window_Open New Mapper/Browser' or 'File_Open' menu to select a "
                      "MapInfo Table for linking"
                    : "Use 'File_Open' to select a MapInfo Table for linking");
    if (gSettings.windows.mapToolbar && gPlatform.mapLink.showToolbar) {
        gPlatform.mapLink.showToolbar(true);
    }
}

/// An action is in progress while one of these lives.
class ActionInWork {
public:
    ActionInWork() { ++MapLinkState::now.action.depth; }

    ~ActionInWork() { --MapLinkState::now.action.depth; }

    ActionInWork(const ActionInWork&) = delete;
    ActionInWork& operator=(const ActionInWork&) = delete;
};

/// A callback of the session is handled while one of these lives.
class CallbackInWork {
public:
    CallbackInWork() { ++MapLinkState::now.action.callbacks; }

    ~CallbackInWork() { --MapLinkState::now.action.callbacks; }

    CallbackInWork(const CallbackInWork&) = delete;
    CallbackInWork& operator=(const CallbackInWork&) = delete;
};

} // namespace

MapInfoLink::MapInfoLink(std::unique_ptr<MapSession> session)
    : MILink(std::move(session)) {}

void MapInfoLink::TakeCallbacks() {
    MILink->SetCallback(this);
}

void MapInfoLink::HandleToolButton(const std::string& message) {
    const CallbackInWork work;
    if (!IsInMapAction()) {
        quandrel::HandleToolButton(message);
    }
}

void MapInfoLink::SetStatusText(const std::string& text) {
    const CallbackInWork work;
    SetMIStatus(text);
}

void MapInfoLink::WindowContentsChanged(std::int64_t /*windowId*/) {
    const CallbackInWork work;
    RefreshAfterMapAction();
    InMapAction([] {});
}

void MapInfoLink::SessionEnded() {
    const CallbackInWork work;
    if (LinkType == kLinkOpen) {
        LinkType = kLinkDead;
    }
    if (!IsInMapAction()) {
        EndAction(); // removes this link, so nothing of it may be used afterwards
    }
}

bool StartMapInfoLink() {
    if (gMapInfo != nullptr) {
        Tell("You already are linked to a MapInfo session");
        return false;
    }
    CloseMapInfoLink(); // removes the rest of a previous link
    gMapInfo = OpenMapInfoSession();
    if (gMapInfo == nullptr) {
        return false;
    }
    InMapAction([] {
        SetUpSession();
        gMapInfo->TakeCallbacks();
        if (!IsMapInfoLinked()) {
            return;
        }
        if (!OpenLinkWindow()) {
            gMapInfo->LinkType = kLinkClosed;
            TellInMapAction(std::string("An error has occurred trying to open a new MapInfo "
                                        "Window.\n")
                            + kLinkAbandoned + "\nThe new window will not be opened.");
            return;
        }
        if (!RefreshMITables()) {
            TellInMapAction(kCommandFailed);
        }
        GreetUser();
        RefreshAfterMapAction();
    });
    return gMapInfo != nullptr;
}

std::unique_ptr<MapInfoLink> OpenMapInfoSession() {
    MapSessions* sessions = gPlatform.mapLink.sessions;
    std::unique_ptr<MapSession> session;
    if (sessions != nullptr) {
        session = sessions->FindRunning();
        if (session == nullptr) {
            session = sessions->Start();
        }
    }
    if (session != nullptr) {
        return std::make_unique<MapInfoLink>(std::move(session));
    }
    TellOfNoSession(sessions == nullptr || !sessions->IsRegistered()
                        ? "Could not find a Registered MapInfo Application"
                        : "Could not open or link to a MapInfo session.");
    return nullptr;
}

void CloseMapInfoLink() {
    if (IsInMapAction()) {
        if (gMapInfo != nullptr) {
            gMapInfo->LinkType = kLinkClosed; // ends with the action
        }
        return;
    }
    if (gMapInfo != nullptr) {
        DropLink();
    }
    if (MapLinkState::now.action.callbacks == 0) {
        MapLinkState::now.endedSession.reset();
    }
}

bool IsMapInfoLinked() {
    return gMapInfo != nullptr && gMapInfo->LinkType == kLinkOpen;
}

void InMapAction(const std::function<void()>& body) {
    if (!IsMapInfoLinked()) {
        return;
    }
    if (MapLinkState::now.action.depth == 0) {
        MapLinkState::now.action.lastWords.clear();
    }
    const ActionInWork work;
    body();
    if (MapLinkState::now.action.depth == 1) {
        EndAction();
    }
}

bool IsInMapAction() {
    return MapLinkState::now.action.depth > 0;
}

void TellInMapAction(const std::string& text) {
    if (IsMapInfoLinked()) {
        Tell(text);
    } else if (MapLinkState::now.action.lastWords.empty()) {
        MapLinkState::now.action.lastWords = text;
    }
}

void RefreshAfterMapAction() {
    MapLinkState::now.action.refreshes = true;
}

bool MIDo(const std::string& command) {
    return IsMapInfoLinked() && TakeReply(gMapInfo->MILink->Do(command));
}

std::optional<std::string> MIEval(const std::string& expression) {
    if (!IsMapInfoLinked()) {
        return std::nullopt;
    }
    MapReply reply = gMapInfo->MILink->Eval(expression);
    return TakeReply(reply) ? std::optional(std::move(reply.text)) : std::nullopt;
}

std::optional<std::int64_t> MIEvalNumber(const std::string& expression) {
    const std::optional<std::string> text = MIEval(expression);
    const std::optional<double> number = text ? ReadNumber(*text) : std::nullopt;
    if (!number || !IsWholeNumber(*number) || std::abs(*number) > kMostWhole) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(*number);
}

bool MIRunMenuCommand(int id) {
    return IsMapInfoLinked() && TakeReply(gMapInfo->MILink->RunMenuCommand(id));
}

const std::string& MIRefusal() {
    return MapLinkState::now.action.refusal;
}

void SetMIStatus(const std::string& text) {
    if (gMapInfo != nullptr && gMapInfo->window != nullptr) {
        gMapInfo->window->SetStatusText(text);
    }
}

} // namespace quandrel
