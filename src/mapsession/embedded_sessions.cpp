// SPDX-License-Identifier: MIT

#include "mapsession/embedded_sessions.h"

#include "mapsession/table_plugin.h"

#include <utility>

namespace quandrel {

EmbeddedMapSessions::EmbeddedMapSessions(std::filesystem::path programFolder, SessionHost* host)
    : programFolder_(std::move(programFolder))
    , host_(host) {}

std::unique_ptr<MapSession> EmbeddedMapSessions::FindRunning() {
    return nullptr;
}

std::unique_ptr<MapSession> EmbeddedMapSessions::Start() {
    startError_.clear();
    if (!source_) {
        SessionResult<std::shared_ptr<TableSource>> source =
            LoadTableSource(FindTablePlugin(TablePluginFolders(programFolder_)));
        if (!source) {
            startError_ = source.Error().text;
            return nullptr;
        }
        source_ = std::move(*source);
    }
    return std::make_unique<EmbeddedMapSession>(source_, host_);
}

bool EmbeddedMapSessions::IsRegistered() {
    return source_ || !FindTablePlugin(TablePluginFolders(programFolder_)).empty();
}

} // namespace quandrel
