// SPDX-License-Identifier: MIT

#include "shell/map/map_host.h"

#include "core/settings.h"
#include "platform/platform.h"
#include "shell/map/frm_layer_control.h"
#include "shell/map/frm_mapinfo.h"
#include "shell/map/map_actions.h"

#include <algorithm>
#include <filesystem>

namespace quandrel {

namespace {

constexpr const char* kTableFilter =
    "Tables and maps (*.tab)|*.tab *.mif *.shp *.gpkg *.geojson *.csv|"
    "MapInfo tables (*.tab)|*.tab|"
    "MapInfo interchange files (*.mif)|*.mif|"
    "Shape files (*.shp)|*.shp|"
    "GeoPackages (*.gpkg)|*.gpkg|"
    "GeoJSON files (*.geojson)|*.geojson|"
    "Text with coordinates (*.csv)|*.csv|"
    "All files (*.*)|*.*";

} // namespace

MapHost::MapHost(QWidget& parent, MapActions& actions)
    : parent_(parent)
    , actions_(actions) {}

MapHost::~MapHost() = default;

void MapHost::UseWindow(frmMapinfo* window) {
    window_ = window;
}

bool MapHost::HasMap() const {
    return session_ != nullptr
           && std::ranges::any_of(session_->State().windows, [](const auto& window) {
                  return window->kind == SessionWindowKind::Map;
              });
}

void MapHost::SessionStarted(EmbeddedMapSession& session) {
    session_ = &session;
    actions_.ShowTool(session.State().tool);
}

void MapHost::SessionEnded() {
    if (window_ != nullptr) {
        window_->DropAllDocuments();
    }
    session_ = nullptr;
}

void MapHost::ShowWindow(const SessionWindow& window) {
    if (window_ != nullptr && session_ != nullptr) {
        window_->ShowDocument(*session_, window);
    }
}

void MapHost::DropWindow(std::int64_t id) {
    if (window_ != nullptr) {
        window_->DropDocument(id);
    }
}

void MapHost::RefreshWindows() {
    if (window_ != nullptr) {
        window_->RefreshDocuments();
    }
}

void MapHost::ChooseTool(int tool) {
    actions_.ShowTool(tool);
    if (window_ != nullptr) {
        window_->ToolChanged();
    }
}

std::string MapHost::AskForTable() {
    PathQuestion question;
    question.title = "Open MapInfo Table";
    question.folder = !folder_.empty()                  ? folder_
                      : !gSettings.files.folder.empty() ? gSettings.files.folder
                                                        : gSettings.files.lastFolder;
    question.filter = kTableFilter;
    const std::string path = gPlatform.prompts->AskOpenPath(question).value_or("");
    if (!path.empty()) {
        const std::u8string bytes(path.begin(), path.end());
        const std::u8string folder = std::filesystem::path(bytes).parent_path().u8string();
        folder_.assign(folder.begin(), folder.end());
    }
    return path;
}

void MapHost::EditLayers(SessionWindow& window) {
    frmLayerControl dialog(window.layers, &parent_);
    if (dialog.exec() == QDialog::Accepted) {
        window.layers = dialog.Layers();
    }
}

} // namespace quandrel
