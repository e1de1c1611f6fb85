// SPDX-License-Identifier: MIT
//
// What the windows of the map session have in common on the screen: each is a page of the link
// window, by the number that the session has given it.

#pragma once

#include "mapsession/embedded_session.h"

#include <QWidget>

#include <cstdint>
#include <functional>

namespace quandrel {

/// What pages tell the window that they stand in.
struct MapDocumentSigns {
    /// The user has done something in a page.
    std::function<void()> done;

    /// The shortcut menu of maps is wanted at a place of the screen.
    std::function<void(const SessionState& state, const QPoint& at)> menuWanted;

    /// Where on the map the mouse is; empty for nowhere.
    std::function<void(const QString& position)> position;
};

class MapDocument : public QWidget {
public:
    /// @param session  that the window belongs to; it says when it goes, by Leave
    /// @param signs    outlive the page
    MapDocument(EmbeddedMapSession& session, std::int64_t id, const MapDocumentSigns& signs);

    [[nodiscard]] std::int64_t Id() const { return id_; }

    /// Shows what the session has now.
    virtual void Refresh() = 0;

    /// Another tool was chosen.
    virtual void ToolChanged() {}

    /// The session or its window has gone; from now on the page does nothing.
    void Leave();

    /// Makes the window the session's front one, as its user does by a click.
    void BringToFront();

protected:
    /// The session's window; nullptr when it has gone.
    [[nodiscard]] SessionWindow* Window() const;

    /// The session; nullptr when it has gone.
    [[nodiscard]] EmbeddedMapSession* Session() const { return session_; }

    [[nodiscard]] const MapDocumentSigns& Signs() const { return signs_; }

    /// Tells that the user has done something here.
    void TellDone() const;

private:
    EmbeddedMapSession* session_;
    std::int64_t id_;
    const MapDocumentSigns& signs_;
};

} // namespace quandrel
