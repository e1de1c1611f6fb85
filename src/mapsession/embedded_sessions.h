// SPDX-License-Identifier: MIT
//
// Starting the map session that the program brings along.

#pragma once

#include "mapsession/embedded_session.h"
#include "platform/map_session.h"

#include <filesystem>
#include <memory>

namespace quandrel {

/// Sessions of our own. There is never a running one to be found; a new one can be had when the
/// library with the readers of files is there. It is loaded with the first session and stays.
class EmbeddedMapSessions : public MapSessions {
public:
    /// @param programFolder  where the program's file stands
    /// @param host           the screen of the sessions, of which one is there at a time; outlives
    ///                       them. nullptr for none
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
