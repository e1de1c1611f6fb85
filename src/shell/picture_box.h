// SPDX-License-Identifier: MIT
//
// A box that shows a drawing which stays: what is drawn is kept in an image of the screen's own
// density, and painting the box only copies it.

#pragma once

#include "platform/qt/image_surface.h"

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

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QSize SizeInPixels() const;

    int margin_;
    std::unique_ptr<ImageSurface> drawing_;
};

} // namespace quandrel
