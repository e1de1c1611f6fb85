// SPDX-License-Identifier: MIT
//
// The common base of the map session's windows: each is a page of the link window, identified by
// the number of the session's window.

#pragma once

#include "mapsession/embedded_session.h"

#include <QWidget>

#include <cstdint>
#include <functional>

namespace quandrel {

/// The signals of pages to their window.
struct MapDocumentSigns {
    /// The user has acted in a page.
    std::function<void()> done;

    /// The context menu of maps is requested at a screen position.
    std::function<void(const SessionState& state, const QPoint& at)> menuWanted;

    /// The position of the mouse on the map; empty outside.
    std::function<void(const QString& position)> position;
};

class MapDocument : public QWidget {
public:
    /// @param session  the owner of the window; it calls Leave when it ends
    /// @param signs    outlive the page
    MapDocument(EmbeddedMapSession& session, std::int64_t id, const MapDocumentSigns& signs);

    [[nodiscard]] std::int64_t Id() const { return id_; }

    /// Shows the current state of the session.
    virtual void Refresh() = 0;

    virtual void ToolChanged() {}

    /// The session or its window has gone; the page then does nothing.
    void Leave();

    /// Makes the window the session's front window, as a click does.
    void BringToFront();

protected:
    /// The session's window; nullptr after it has gone.
    [[nodiscard]] SessionWindow* Window() const;

    /// The session; nullptr after it has gone.
    [[nodiscard]] EmbeddedMapSession* Session() const { return session_; }

    [[nodiscard]] const MapDocumentSigns& Signs() const { return signs_; }

    /// Reports an action of the user on this page.
    void TellDone() const;

private:
    EmbeddedMapSession* session_;
    std::int64_t id_;
    const MapDocumentSigns& signs_;
};

} // namespace quandrel
