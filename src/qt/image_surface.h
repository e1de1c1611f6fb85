// SPDX-License-Identifier: MIT
//
// A drawing that is kept: an image with the surface that draws on it.

#pragma once

#include "qt/painter_surface.h"

#include <QImage>
#include <QPaintDevice>

#include <memory>

namespace quandrel {

class ImageSurface {
public:
    /// @param pixels      size of the image, at least 1 each way
    /// @param density     image pixels per logical pixel, above 0
    /// @param background  the initial colour
    ImageSurface(QSize pixels, double density, Colour background);

    /// A copy of a drawing, to continue drawing on.
    ImageSurface(const QImage& drawing, double density);

    [[nodiscard]] Surface& Drawing() { return *surface_; }

    /// The drawing so far.
    [[nodiscard]] const QImage& Image() const { return image_; }

private:
    QImage image_;
    std::unique_ptr<QPainter> painter_;
    std::unique_ptr<PainterSurface> surface_;
};

/// The size of a picture in pixels, at least 1 each way.
///
/// @param size     logical pixels
/// @param density  pixels per logical pixel
[[nodiscard]] QSize PixelsOf(QSize size, double density);

/// Copies an image to a device, into a rectangle of its logical pixels.
void PaintImage(QPaintDevice& device, const QRectF& target, const QImage& image);

} // namespace quandrel
