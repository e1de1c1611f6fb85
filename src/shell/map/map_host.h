// SPDX-License-Identifier: MIT
//
// The screen of the program's own map session: shows the session's windows in the link window.

#pragma once

#include "mapsession/embedded_session.h"

#include <QPointer>

#include <string>

class QWidget;

namespace quandrel {

class MapActions;
class frmMapinfo;

class MapHost : public SessionHost {
public:
    /// @param parent  the parent of dialogs; both outlive the host
    MapHost(QWidget& parent, MapActions& actions);
    ~MapHost() override;

    MapHost(const MapHost&) = delete;
    MapHost& operator=(const MapHost&) = delete;

    /// Sets the window that shows the session's windows; nullptr for none.
    void UseWindow(frmMapinfo* window);

    /// The session that is shown; nullptr for none.
    [[nodiscard]] EmbeddedMapSession* Session() const { return session_; }

    [[nodiscard]] bool HasMap() const;

    void SessionStarted(EmbeddedMapSession& session) override;
    void SessionEnded() override;
    void ShowWindow(const SessionWindow& window) override;
    void DropWindow(std::int64_t id) override;
    void RefreshWindows() override;
    void ChooseTool(int tool) override;
    [[nodiscard]] std::string AskForTable() override;
    void EditLayers(SessionWindow& window) override;

private:
    QWidget& parent_;
    MapActions& actions_;
    QPointer<frmMapinfo> window_;
    EmbeddedMapSession* session_ = nullptr;
    std::string folder_; ///< of the last table
};

} // namespace quandrel
