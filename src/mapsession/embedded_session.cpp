// SPDX-License-Identifier: MIT

#include "mapsession/embedded_session.h"

#include "mapsession/session_evaluator.h"
#include "mapsession/statement_lexer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <type_traits>
#include <utility>
#include <variant>

namespace quandrel {
namespace {

constexpr std::array<int, 6> kTools = {kToolSelector, kToolGrabber, kToolRadius,
                                       kToolZoomIn,   kToolZoomOut, kToolMarquee};

constexpr double kZoomStep = 2;

bool IsSelectTool(int tool) {
    return tool == kToolSelector || tool == kToolMarquee || tool == kToolRadius;
}

/// True for a drag shorter than the click tolerance.
bool IsClick(const SessionWindow& window, MapPoint from, MapPoint to) {
    return std::hypot(to.x - from.x, to.y - from.y)
           <= kClickTolerance * window.view.UnitsPerPixel();
}

/// The message about a drag, without the tool.
std::string DragMessage(MapPoint from, MapPoint to, SessionKeys keys) {
    std::string message = "MI:" + SessionNumberText(from.x) + "," + SessionNumberText(from.y);
    message += keys.shift ? ",T" : ",F";
    message += keys.control ? ",T," : ",F,";
    return message + SessionNumberText(to.x) + "," + SessionNumberText(to.y);
}

/// The objects in the first object's table: a selection has one table.
SelectedRows RowsOfFirstTable(const std::vector<SessionObject>& objects) {
    SelectedRows rows;
    for (const SessionObject& object : objects) {
        if (rows.rows.empty()) {
            rows.table = object.table;
        }
        if (object.table == rows.table) {
            rows.rows.push_back(object.row);
        }
    }
    return rows;
}

/// The object whose shape is nearest to a point; of several, the one drawn last.
std::vector<SessionObject> NearestOf(const SelectedRows& rows, MapPoint point,
                                     const SessionState& state) {
    std::vector<SessionObject> nearest;
    double least = 0;
    for (const int row : rows.rows) {
        const SessionTable& table = FindSessionTable(state, rows.table)->data;
        const double distance = DistanceToShape(point, table.ShapeOf(row));
        if (nearest.empty() || distance <= least) {
            nearest = {{rows.table, row}};
            least = distance;
        }
    }
    return nearest;
}

} // namespace

EmbeddedMapSession::EmbeddedMapSession(std::shared_ptr<TableSource> source, SessionHost* host)
    : source_(std::move(source))
    , host_(host) {
    if (host_) {
        host_->SessionStarted(*this);
    }
}

EmbeddedMapSession::~EmbeddedMapSession() {
    if (host_) {
        host_->SessionEnded();
    }
}

MapReply EmbeddedMapSession::Do(const std::string& command) {
    const SessionResult<SessionStatement> statement = ParseSessionStatement(command);
    return Reply(statement ? Run(*statement) : SessionVerdict(statement.Error()));
}

MapReply EmbeddedMapSession::Eval(const std::string& expression) {
    const SessionResult<SessionExpression> parsed = ParseSessionExpression(expression);
    const SessionResult<std::string> value =
        parsed ? Evaluate(*parsed, state_) : SessionResult<std::string>(parsed.Error());
    lastErrorCode_ = value ? 0 : value.Error().code;
    return value ? MapReply{MapReplyKind::Done, *value}
                 : MapReply{MapReplyKind::Refused, value.Error().text};
}

MapReply EmbeddedMapSession::RunMenuCommand(int id) {
    return Reply(RunCommandById(id, false));
}

void EmbeddedMapSession::SetCallback(MapCallback* callback) {
    callback_ = callback;
}

int EmbeddedMapSession::LastErrorCode() {
    return lastErrorCode_;
}

void EmbeddedMapSession::BeginSelects() {
    selectsOpen_ = true;
    pending_.reset();
}

void EmbeddedMapSession::EndSelects() {
    selectsOpen_ = false;
    if (pending_) {
        SetSelection(std::move(*pending_), state_, changes_);
        pending_.reset();
    }
    Tell();
}

bool EmbeddedMapSession::UnitesSelects() const {
    return true;
}

MapReply EmbeddedMapSession::Reply(const SessionVerdict& verdict) {
    Tell();
    // After the report, which may cause further calls.
    lastErrorCode_ = verdict ? 0 : verdict.Error().code;
    return verdict ? MapReply{} : MapReply{MapReplyKind::Refused, verdict.Error().text};
}

SessionVerdict EmbeddedMapSession::Run(const SessionStatement& statement) {
    const auto verdictOf = [](const auto& result) {
        return result ? SessionDone() : SessionVerdict(result.Error());
    };
    const auto run = [&](const auto& kind) -> SessionVerdict {
        using Kind = std::decay_t<decltype(kind)>;
        if constexpr (std::is_same_v<Kind, ApplicationWindowStatement>) {
            state_.applicationWindow = kind.handle;
        } else if constexpr (std::is_same_v<Kind, DocumentParentStatement>) {
            state_.nextDocument = {kind.handle, kind.style};
        } else if constexpr (std::is_same_v<Kind, InfoParentStatement>) {
            state_.nextInfo = {kind.handle, 0};
        } else if constexpr (std::is_same_v<Kind, InfoWindowStatement>) {
            OpenInfo(state_, changes_);
        } else if constexpr (std::is_same_v<Kind, ButtonPadStatement>) {
            state_.customTools.insert(state_.customTools.end(), kind.buttons.begin(),
                                      kind.buttons.end());
        } else if constexpr (std::is_same_v<Kind, MenuStatement>) {
            state_.shortcutMenus.push_back(kind);
        } else if constexpr (std::is_same_v<Kind, OpenTableStatement>) {
            return verdictOf(OpenSessionTables(kind.path, state_, *source_));
        } else if constexpr (std::is_same_v<Kind, CloseTableStatement>) {
            return CloseSessionTable(kind.table, state_, changes_);
        } else if constexpr (std::is_same_v<Kind, MapStatement>) {
            return verdictOf(OpenMap(kind.tables, state_, changes_));
        } else if constexpr (std::is_same_v<Kind, BrowseStatement>) {
            return verdictOf(OpenBrowser(kind.table, state_, changes_));
        } else if constexpr (std::is_same_v<Kind, CloseWindowStatement>) {
            return CloseSessionWindow(kind.window, state_, changes_);
        } else if constexpr (std::is_same_v<Kind, FetchStatement>) {
            return Fetch(kind, state_);
        } else if constexpr (std::is_same_v<Kind, SelectStatement>) {
            return Select(kind);
        } else if constexpr (std::is_same_v<Kind, RunCommandStatement>) {
            return RunCommandById(kind.command, kind.isCustom);
        }
        return SessionDone();
    };
    return std::visit(run, statement);
}

SessionVerdict EmbeddedMapSession::Select(const SelectStatement& select) {
    SessionResult<SelectedRows> rows = RowsToSelect(select, state_);
    if (!rows) {
        return rows.Error();
    }
    if (!selectsOpen_) {
        SetSelection(std::move(*rows), state_, changes_);
    } else if (pending_ && EqualNames(pending_->table, rows->table)) {
        pending_->rows.insert(pending_->rows.end(), rows->rows.begin(), rows->rows.end());
    } else {
        pending_ = std::move(*rows);
    }
    return SessionDone();
}

SessionVerdict EmbeddedMapSession::RunCommandById(int command, bool mustBeCustom) {
    if (CustomTool(command)) {
        return ChooseTool(command);
    }
    if (!mustBeCustom) {
        if (std::find(kTools.begin(), kTools.end(), command) != kTools.end()) {
            return ChooseTool(command);
        }
        switch (command) {
        case kCommandOpenTable:
            return AskAndOpenTable();
        case kCommandFindSelection:
            return FindSelection();
        case kCommandLayerControl:
            return LayerControl();
        default:
            break;
        }
    }
    return SessionError{kSessionNoSuchItem, "No such menu command: " + std::to_string(command)};
}

const SessionToolButton* EmbeddedMapSession::CustomTool(int id) const {
    const auto found = std::find_if(state_.customTools.begin(), state_.customTools.end(),
                                    [id](const SessionToolButton& tool) { return tool.id == id; });
    return found == state_.customTools.end() ? nullptr : &*found;
}

SessionVerdict EmbeddedMapSession::ChooseTool(int tool) {
    state_.tool = tool;
    if (host_) {
        host_->ChooseTool(tool);
    }
    return SessionDone();
}

SessionVerdict EmbeddedMapSession::AskAndOpenTable() {
    if (!host_) {
        return SessionError{kSessionNoSuchItem, "There is no screen for the dialog"};
    }
    const std::string path = host_->AskForTable();
    if (path.empty()) {
        return SessionDone();
    }
    const SessionResult<std::vector<std::string>> names = OpenSessionTables(path, state_, *source_);
    if (!names) {
        return names.Error();
    }
    std::vector<std::string> maps;
    for (const std::string& name : *names) {
        if (FindSessionTable(state_, name)->data.IsMappable()) {
            maps.push_back(name);
        } else if (const auto browser = OpenBrowser(name, state_, changes_); !browser) {
            return browser.Error();
        }
    }
    if (!maps.empty()) {
        if (const auto map = OpenMap(maps, state_, changes_); !map) {
            return map.Error();
        }
    }
    SayStatus("Opened: " + names->front());
    return SessionDone();
}

SessionVerdict EmbeddedMapSession::FindSelection() {
    const SessionResult<SessionRows> selected = RowsNamed(state_, kSelectionName);
    const MapBox box = selected ? BoxOf(*selected) : MapBox();
    SessionWindow* const front = FindSessionWindow(state_, state_.frontWindowId);
    for (const auto& window : state_.windows) {
        const bool isMeant = front && front->kind == SessionWindowKind::Map
                                 ? window.get() == front
                                 : window->kind == SessionWindowKind::Map;
        if (!isMeant) {
            continue;
        }
        if (!box.IsEmpty()) {
            window->view.ZoomAbout({(box.left + box.right) / 2, (box.bottom + box.top) / 2}, 1);
            changes_.views = true;
        }
        return SessionDone();
    }
    return SessionError{kSessionNoSuchWindow, "No map is open"};
}

SessionVerdict EmbeddedMapSession::LayerControl() {
    SessionWindow* const window = FindSessionWindow(state_, state_.frontWindowId);
    if (!window || window->kind != SessionWindowKind::Map || !host_) {
        return SessionError{kSessionNoSuchWindow, "The front window is not a map"};
    }
    host_->EditLayers(*window);
    changes_.views = true;
    return SessionDone();
}

void EmbeddedMapSession::UseTool(std::int64_t window, MapPoint from, MapPoint to,
                                 SessionKeys keys) {
    SessionWindow* const map = FindSessionWindow(state_, window);
    if (!map || map->kind != SessionWindowKind::Map) {
        return;
    }
    ActivateWindow(window);
    if (const SessionToolButton* const tool = CustomTool(state_.tool)) {
        if (callback_) {
            const MapPoint end = tool->drawMode == kDragRectangle ? to : from;
            callback_->HandleToolButton(DragMessage(from, end, keys) + ","
                                        + std::to_string(tool->id));
        }
    } else if (IsSelectTool(state_.tool)) {
        UseSelectTool(*map, from, to, keys);
    } else {
        UseViewTool(*map, from, to);
    }
}

SelectedRows EmbeddedMapSession::Taken(const std::vector<SessionObject>& objects,
                                       SessionKeys keys) const {
    SelectedRows rows = RowsOfFirstTable(objects);
    const SessionSelection& former = state_.selection;
    if (keys.shift && (objects.empty() || EqualNames(former.table, rows.table))) {
        rows.table = former.table;
        rows.rows.insert(rows.rows.end(), former.rows.begin(), former.rows.end());
    }
    return rows;
}

void EmbeddedMapSession::UseSelectTool(const SessionWindow& window, MapPoint from, MapPoint to,
                                       SessionKeys keys) {
    std::vector<SessionObject> objects;
    if (state_.tool == kToolMarquee) {
        objects = ObjectsIn(state_, window, MapBox::Of(from, to));
    } else if (state_.tool == kToolRadius) {
        const double radius = std::hypot(to.x - from.x, to.y - from.y);
        objects = ObjectsWithin(state_, window, from, radius);
    } else {
        objects = NearestOf(RowsOfFirstTable(ObjectsAt(state_, window, from)), from, state_);
    }
    SelectByUser(Taken(objects, keys), DragMessage(from, to, keys));
}

void EmbeddedMapSession::SelectByUser(SelectedRows rows, const std::string& message) {
    SetSelection(std::move(rows), state_, changes_);
    Tell();
    SayStatus("Selected rows: " + std::to_string(state_.selection.rows.size()));
    if (callback_) {
        callback_->HandleToolButton(message);
    }
}

void EmbeddedMapSession::UseViewTool(SessionWindow& window, MapPoint from, MapPoint to) {
    if (state_.tool == kToolGrabber) {
        window.view.Pan(from, to);
    } else if (state_.tool == kToolZoomOut) {
        window.view.ZoomAbout(from, 1 / kZoomStep);
    } else if (IsClick(window, from, to)) {
        window.view.ZoomAbout(from, kZoomStep);
    } else {
        window.view.FitTo(MapBox::Of(from, to));
    }
    changes_.views = true;
    Tell();
}

void EmbeddedMapSession::SelectInBrowser(std::int64_t window, const std::vector<int>& rows) {
    const SessionWindow* const browser = FindSessionWindow(state_, window);
    if (!browser || browser->kind != SessionWindowKind::Browser) {
        return;
    }
    if (EqualNames(browser->layers.front().table, kSelectionName)) {
        return;
    }
    ActivateWindow(window);
    SelectStatement select{browser->layers.front().table, {rows.begin(), rows.end()}};
    SessionResult<SelectedRows> chosen = RowsToSelect(select, state_);
    if (chosen) {
        SelectByUser(std::move(*chosen), DragMessage({}, {}, {}));
    }
}

void EmbeddedMapSession::ResizeWindow(std::int64_t window, double widthPixels,
                                      double heightPixels) {
    if (SessionWindow* const found = FindSessionWindow(state_, window)) {
        found->view.Resize(widthPixels, heightPixels);
    }
}

void EmbeddedMapSession::ZoomAt(std::int64_t window, MapPoint fixed, double factor) {
    SessionWindow* const found = FindSessionWindow(state_, window);
    if (!found) {
        return;
    }
    const MapPoint at = found->view.ToPixels(fixed);
    found->view.ZoomAbout(found->view.Middle(), factor);
    found->view.Pan(fixed, found->view.ToMap(at));
    changes_.views = true;
    Tell();
}

void EmbeddedMapSession::ActivateWindow(std::int64_t window) {
    const SessionWindow* const found = FindSessionWindow(state_, window);
    if (found && found->kind != SessionWindowKind::Info) {
        state_.frontWindowId = window;
    }
}

void EmbeddedMapSession::WindowClosedByUser(std::int64_t window) {
    (void)CloseSessionWindow(window, state_, changes_);
    Tell();
}

void EmbeddedMapSession::SayStatus(const std::string& text) {
    if (callback_) {
        callback_->SetStatusText(text);
    }
}

void EmbeddedMapSession::Tell() {
    // A report may cause further statements, which have changes of their own.
    const SessionChanges told = std::exchange(changes_, {});
    if (host_) {
        for (const std::int64_t id : told.opened) {
            if (const SessionWindow* const window = FindSessionWindow(state_, id)) {
                host_->ShowWindow(*window);
            }
        }
        for (const std::int64_t id : told.closed) {
            host_->DropWindow(id);
        }
        if (told.selection || told.views || !told.changed.empty()) {
            host_->RefreshWindows();
        }
    }
    for (const auto* const ids : {&told.opened, &told.closed, &told.changed}) {
        for (const std::int64_t id : *ids) {
            if (callback_) {
                callback_->WindowContentsChanged(id);
            }
        }
    }
}

} // namespace quandrel
