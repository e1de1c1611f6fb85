// SPDX-License-Identifier: MIT
//
// A box that shows a stored drawing. The drawing is an image in the screen's pixel density;
// painting the box only copies it. In dark themes it is painted in dark colours (qt/dark_image.h);
// the drawing itself is always that for light ones, which is copied and exported.

#pragma once

#include "qt/image_surface.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

namespace quandrel {

class PictureBox : public QWidget {
public:
    /// @param margin  in the colour of paper, around the drawing, logical pixels
    explicit PictureBox(QWidget* parent, int margin = 0);

    /// The space for the drawing, logical pixels.
    [[nodiscard]] QSize PictureSize() const;

    /// The surface to draw on. It is created again, empty, after the size or density of the box
    /// changes.
    [[nodiscard]] Surface& Picture();

    /// The current drawing; null before the first one.
    [[nodiscard]] QImage Image() const;

    /// True if the drawing no longer fits the box.
    [[nodiscard]] bool IsStale() const;

    /// Called before the box is painted with an outdated drawing.
    std::function<void()> onStale;

    /// The tip at a position of the drawing, given as fractions of its width and height from the
    /// top left corner. An empty text means that there is no tip.
    std::function<QString(QPointF)> onTip;

    /// Draws, in plot scale, over what the box shows, without changing the drawing. An empty
    /// function costs nothing. After setting or changing it, call update().
    std::function<void(Surface&)> onOverlay;

    /// Called when a mouse button is pressed, with the position in plot units. False passes the
    /// press on to the widgets behind the box.
    std::function<bool(Point, const QMouseEvent&)> onPress;

    /// Called when the mouse moves over the box, and while a button that was pressed there is held.
    std::function<void(Point, const QMouseEvent&)> onMove;

    /// Called when a button that was pressed over the box is released.
    std::function<void(Point, const QMouseEvent&)> onRelease;

    /// Called when a key is pressed or released while the box has the focus. False passes the key
    /// on.
    std::function<bool(const QKeyEvent&)> onKey;

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
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] QPointF ShareAt(QPointF position) const;
    [[nodiscard]] Point PlotPointAt(QPointF position) const;
    void PaintDrawing(const QImage& drawing);
    void SetPaper();
    [[nodiscard]] QSize SizeInPixels() const;

    int margin_;
    std::unique_ptr<ImageSurface> drawing_;
};

} // namespace quandrel
