// SPDX-License-Identifier: MIT
//
// Starting the program's own map session.

#pragma once

#include "mapsession/embedded_session.h"
#include "platform/map_session.h"

#include <filesystem>
#include <memory>

namespace quandrel {

/// The program's own sessions. No running session is ever found. A new one is available when the
/// library with the file readers is installed; it is loaded with the first session and stays
/// loaded.
class EmbeddedMapSessions : public MapSessions {
public:
    /// @param programFolder  folder of the program's file
    /// @param host           the screen of the sessions, of which one exists at a time; must
    ///                       outlive them. nullptr for none
    EmbeddedMapSessions(std::filesystem::path programFolder, SessionHost* host);

    [[nodiscard]] std::unique_ptr<MapSession> FindRunning() override;
    [[nodiscard]] std::unique_ptr<MapSession> Start() override;
    [[nodiscard]] bool IsRegistered() override;

    /// Why the last Start gave nothing; empty when it gave a session.
    [[nodiscard]] const std::string& StartError() const { return startError_; }

private:
    std::filesystem::path programFolder_;
    SessionHost* host_;
    std::shared_ptr<TableSource> source_;
    std::string startError_;
};

} // namespace quandrel
