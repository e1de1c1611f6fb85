// SPDX-License-Identifier: MIT

#include "qt/image_surface.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

ImageSurface::ImageSurface(QSize pixels, double density, Colour background)
    : image_(pixels, QImage::Format_RGB32)
    , painter_(std::make_unique<QPainter>(&image_))
    , surface_(std::make_unique<PainterSurface>(*painter_, QRectF(image_.rect()), density,
                                                Medium::Raster)) {
    surface_->Clear(background);
}

ImageSurface::ImageSurface(const QImage& drawing, double density)
    : image_(drawing.copy())
    , painter_(std::make_unique<QPainter>(&image_))
    , surface_(std::make_unique<PainterSurface>(*painter_, QRectF(image_.rect()), density,
                                                Medium::Raster)) {}

QSize PixelsOf(QSize size, double density) {
    const auto pixels = [density](int length) {
        return std::max(1, static_cast<int>(std::lround(length * density)));
    };
    return {pixels(size.width()), pixels(size.height())};
}

void PaintImage(QPaintDevice& device, const QRectF& target, const QImage& image) {
    QPainter painter(&device);
    painter.drawImage(target, image, QRectF(image.rect()));
}

} // namespace quandrel
