// SPDX-License-Identifier: MIT
//
// A map session over tables that are made in memory, with a screen and a program that record what
// they are told.

#pragma once

#include "mapsession/embedded_session.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quandrel {

/// A grid of points at (1, 0), (2, 0) ... (width, 0), (1, 1) ..., row by row from the south; the
/// columns are Dip, the number of the row, and Kind, "even" or "odd".
inline SessionTable PointGrid(const std::string& name, int width, int height) {
    SessionTable table(name, name + ".tab");
    table.AddColumn("Dip", SessionColumnKind::Number);
    table.AddColumn("Kind", SessionColumnKind::Text);
    for (int i = 0; i < width * height; ++i) {
        const std::vector<std::string> cells = {std::to_string(i + 1), i % 2 == 0 ? "odd" : "even"};
        table.AddRow(cells);
        const MapPoint point{static_cast<double>(i % width + 1), static_cast<double>(i / width)};
        table.AddPart(MapPartKind::Points, std::span(&point, 1));
    }
    return table;
}

/// Files that are tables in memory.
class MemoryTables : public TableSource {
public:
    std::map<std::string, std::vector<SessionTable>> files;
    int opened = 0;

    SessionResult<std::vector<SessionTable>> OpenTables(const std::string& path) override {
        ++opened;
        const auto file = files.find(path);
        if (file == files.end()) {
            return SessionError{kSessionFileError, "There is no file " + path};
        }
        return file->second;
    }
};

class RecordingHost : public SessionHost {
public:
    std::vector<std::string> told;
    std::string nextTable; ///< what the user answers
    int refreshed = 0;

    void SessionStarted(EmbeddedMapSession&) override { told.emplace_back("started"); }

    void SessionEnded() override { told.emplace_back("ended"); }

    void ShowWindow(const SessionWindow& window) override {
        told.push_back("show " + std::to_string(window.id) + " in "
                       + std::to_string(window.parent));
    }

    void DropWindow(std::int64_t id) override { told.push_back("drop " + std::to_string(id)); }

    void RefreshWindows() override { ++refreshed; }

    void ChooseTool(int tool) override { told.push_back("tool " + std::to_string(tool)); }

    std::string AskForTable() override { return nextTable; }

    void EditLayers(SessionWindow& window) override { window.layers.front().selectable = false; }
};

class RecordingCallback : public MapCallback {
public:
    std::vector<std::string> messages;
    std::vector<std::string> status;
    std::vector<std::int64_t> changedWindows;

    void HandleToolButton(const std::string& message) override { messages.push_back(message); }

    void SetStatusText(const std::string& text) override { status.push_back(text); }

    void WindowContentsChanged(std::int64_t windowId) override {
        changedWindows.push_back(windowId);
    }

    void SessionEnded() override {}
};

/// A session with the files "dips.tab", a grid of 10 by 10 points, "faults.tab", one of 3 by 1, and
/// "empty.tab", a table without rows.
struct SampleSession {
    std::shared_ptr<MemoryTables> tables = std::make_shared<MemoryTables>();
    RecordingHost host;
    RecordingCallback callback;
    std::unique_ptr<EmbeddedMapSession> session;

    SampleSession() {
        tables->files["dips.tab"] = {PointGrid("dips", 10, 10)};
        tables->files["faults.tab"] = {PointGrid("faults", 3, 1)};
        tables->files["empty.tab"] = {PointGrid("empty", 0, 0)};
        session = std::make_unique<EmbeddedMapSession>(tables, &host);
        session->SetCallback(&callback);
    }

    /// The id of a map of dips.tab, 1000 by 1000 pixels large.
    std::int64_t OpenMapOfDips() {
        (void)session->Do("Open Table \"dips.tab\"");
        (void)session->Do("Map From dips");
        const std::int64_t id = std::stoll(session->Eval("WindowID(0)").text);
        session->ResizeWindow(id, 1000, 1000);
        return id;
    }

    /// The reply's text, or "Refused" and the code of the error.
    std::string Eval(const std::string& expression) {
        const MapReply reply = session->Eval(expression);
        return reply.IsDone() ? reply.text : "Refused " + std::to_string(session->LastErrorCode());
    }

    /// "Done", or "Refused" and the code of the error.
    std::string Do(const std::string& statement) {
        const MapReply reply = session->Do(statement);
        return reply.IsDone() ? "Done" : "Refused " + std::to_string(session->LastErrorCode());
    }

    [[nodiscard]] const std::vector<int>& SelectedRows() const {
        return session->State().selection.rows;
    }
};

} // namespace quandrel
