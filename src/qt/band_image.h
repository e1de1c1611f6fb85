// SPDX-License-Identifier: MIT
//
// A picture too large for memory, drawn in bands.

#pragma once

#include <QImage>
#include <QPainter>

#include <cstddef>
#include <functional>

namespace quandrel {

/// A range of pixel lines, the last one excluded.
struct PixelLines {
    int first = 0;
    int end = 0;

    friend bool operator==(const PixelLines&, const PixelLines&) = default;
};

/// An RGB32 image of which only some lines are in memory at a time. Its addresses are reserved as a
/// whole, so that each line is drawn at its coordinates in the whole picture: shifted ones would be
/// rounded differently, and the joints between bands would be visible.
class BandImage {
public:
    /// An image of a size of at least 1 each way. Image() is null when memory runs out.
    explicit BandImage(QSize size);

    ~BandImage();
    BandImage(const BandImage&) = delete;
    BandImage& operator=(const BandImage&) = delete;

    [[nodiscard]] QImage& Image() { return image_; }

    /// Draws some lines on white; the others are unchanged.
    void Draw(PixelLines lines, const std::function<void(QPainter&)>& draw);

    /// Frees the memory of some lines. Their contents are lost.
    void Release(PixelLines lines);

private:
    void* memory_ = nullptr;
    std::size_t size_ = 0;
    QImage image_;
};

} // namespace quandrel
