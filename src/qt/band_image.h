// SPDX-License-Identifier: MIT
//
// A picture too large to be held, drawn band by band.

#pragma once

#include <QImage>
#include <QPainter>

#include <cstddef>
#include <functional>

namespace quandrel {

/// Neighbouring lines of pixels, the last one excluded.
struct PixelLines {
    int first = 0;
    int end = 0;

    friend bool operator==(const PixelLines&, const PixelLines&) = default;
};

/// An RGB32 image of which only some lines are in memory at a time. Its addresses are reserved as a
/// whole, so that each line is drawn at the very coordinates that it has in the whole picture:
/// moved ones would be rounded otherwise, and the joints of bands be seen.
class BandImage {
public:
    /// An image of a size, at least 1 each way. Image() is null when there is no room for it.
    explicit BandImage(QSize size);

    ~BandImage();
    BandImage(const BandImage&) = delete;
    BandImage& operator=(const BandImage&) = delete;

    [[nodiscard]] QImage& Image() { return image_; }

    /// Draws some lines on white; the others are left alone.
    void Draw(PixelLines lines, const std::function<void(QPainter&)>& draw);

    /// Gives the memory of some lines back. What was drawn there is lost.
    void Release(PixelLines lines);

private:
    void* memory_ = nullptr;
    std::size_t size_ = 0;
    QImage image_;
};

} // namespace quandrel
