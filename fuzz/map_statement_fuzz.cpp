// SPDX-License-Identifier: MIT
//
// Arbitrary lines as statements and expressions of the map session: lines that begin with "?" are
// evaluated, the others are run. The state of the session must remain consistent.

#include "mapsession/browser_contents.h"
#include "mapsession/embedded_session.h"
#include "mapsession/map_drawing.h"
#include "platform/scripted/recording_surface.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace quandrel {
namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Every file is a table of ten rows: points, a line and an area.
class AnyTable : public TableSource {
public:
    SessionResult<std::vector<SessionTable>> OpenTables(const std::string& path) override {
        SessionTable table(path, path);
        table.AddColumn("Dip", SessionColumnKind::Number);
        for (int row = 0; row < 10; ++row) {
            const std::string cell = std::to_string(row * 9);
            table.AddRow(std::span(&cell, 1));
            const std::vector<MapPoint> points = {{row * 1.0, 0}, {row * 1.0, 2}, {row + 1.0, 1}};
            table.AddPart(static_cast<MapPartKind>(row % 3), points);
        }
        return std::vector<SessionTable>{table};
    }
};

void CheckSelection(const SessionState& state) {
    int last = 0;
    const OpenSessionTable* const table = FindSessionTable(state, state.selection.table);
    Require(table || state.selection.rows.empty());
    for (const int row : state.selection.rows) {
        Require(row > last && row <= table->data.RowCount());
        last = row;
    }
}

void CheckWindows(const SessionState& state) {
    Require(state.frontWindowId == 0 || FindSessionWindow(state, state.frontWindowId));
    for (const auto& window : state.windows) {
        const double scale = window->view.UnitsPerPixel();
        Require(std::isfinite(scale) && scale > 0);
        RecordingSurface surface(100, 100);
        DrawMapWindow(state, *window, DefaultMapColours(), surface);
        const BrowserContents contents(state, window->id);
        Require(contents.RowCount() == 0 || !contents.Cell(1, 1).empty());
    }
}

void RunLine(EmbeddedMapSession& session, std::string_view line) {
    const bool isQuestion = line.starts_with('?');
    const std::string text(line.substr(isQuestion ? 1 : 0));
    const MapReply reply = isQuestion ? session.Eval(text) : session.Do(text);
    Require(reply.IsDone() == (session.LastErrorCode() == 0));
    Require(reply.IsDone() || !reply.text.empty());
}

} // namespace
} // namespace quandrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    quandrel::EmbeddedMapSession session(std::make_shared<quandrel::AnyTable>(), nullptr);
    for (int count = 0; !text.empty() && count < 50; ++count) {
        const std::size_t end = text.find('\n');
        quandrel::RunLine(session, text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    quandrel::CheckSelection(session.State());
    quandrel::CheckWindows(session.State());
    return 0;
}
