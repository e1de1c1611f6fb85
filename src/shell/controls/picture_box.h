// SPDX-License-Identifier: MIT
//
// A box that shows a drawing which stays: what is drawn is kept in an image of the screen's own
// density, and painting the box only copies it.

#pragma once

#include "qt/image_surface.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

namespace quandrel {

class PictureBox : public QWidget {
public:
    /// @param margin  white, about the drawing, logical pixels
    explicit PictureBox(QWidget* parent, int margin = 0);

    /// Room for the drawing, logical pixels.
    [[nodiscard]] QSize PictureSize() const;

    /// What to draw on; made anew and empty when the box has got another size or density.
    [[nodiscard]] Surface& Picture();

    /// The drawing as it stands; null before there is one.
    [[nodiscard]] QImage Image() const;

    /// True when the drawing does not fit the box any more.
    [[nodiscard]] bool IsStale() const;

    /// Called before a painting that finds the drawing stale.
    std::function<void()> onStale;

    /// The tip at a position of the drawing, in shares of its width and height from the top left
    /// corner; an empty one is none.
    std::function<QString(QPointF)> onTip;

    /// Draws, in plot scale, over what the box shows. It leaves no trace in the drawing. An empty
    /// one costs nothing; whoever sets or changes it calls update().
    std::function<void(Surface&)> onOverlay;

    /// Called when a button of the mouse goes down, with the position in plot units. False leaves
    /// the press to the widgets behind the box.
    std::function<bool(Point, const QMouseEvent&)> onPress;

    /// Called when the mouse moves over the box, and while a button that went down there is held.
    std::function<void(Point, const QMouseEvent&)> onMove;

    /// Called when a button goes up that went down over the box.
    std::function<void(Point, const QMouseEvent&)> onRelease;

    /// Called when a key goes down or up while the box has the focus. False leaves it to others.
    std::function<bool(const QKeyEvent&)> onKey;

    /// Called when the mouse leaves the box.
    std::function<void()> onLeave;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    [[nodiscard]] QPointF ShareAt(QPointF position) const;
    [[nodiscard]] Point PlotPointAt(QPointF position) const;
    void PaintDrawing(const QImage& drawing);
    [[nodiscard]] QSize SizeInPixels() const;

    int margin_;
    std::unique_ptr<ImageSurface> drawing_;
};

} // namespace quandrel
