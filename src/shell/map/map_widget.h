// SPDX-License-Identifier: MIT
//
// A map window of the map session on the screen.

#pragma once

#include "qt/image_surface.h"
#include "shell/map/map_document.h"

#include <QPointF>

#include <memory>
#include <optional>

namespace quandrel {

/// The tools use the left button; the middle button moves the map, the wheel zooms. Keys: arrows
/// move the map, + and - zoom, Home shows the whole map, Esc cancels a drag.
class MapWidget : public MapDocument {
public:
    MapWidget(EmbeddedMapSession& session, std::int64_t id, const MapDocumentSigns& signs);

    void Refresh() override;
    void ToolChanged() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    /// A button is held.
    struct Drag {
        Qt::MouseButton button = Qt::LeftButton;
        QPointF from;
        QPointF to;
    };

    [[nodiscard]] MapPoint MapPointAt(QPointF position) const;
    [[nodiscard]] bool MovesMap() const;
    [[nodiscard]] bool ShowsShape() const;
    [[nodiscard]] const QImage& Picture(const SessionWindow& window);
    void ShowCursor();
    void ShowPosition(QPointF position) const;
    void UseDrag(const Drag& drag, Qt::KeyboardModifiers keys);
    void MoveBy(QPointF pixels);
    void ShowAll();
    bool UseKey(int key);

    std::unique_ptr<ImageSurface> picture_;
    std::optional<Drag> drag_;
};

} // namespace quandrel
