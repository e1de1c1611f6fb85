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

enum class Ground { White, Transparent };

/// An image of which only some lines are in memory at a time. Its addresses are reserved as a
/// whole, so that each line is drawn at its coordinates in the whole picture: shifted ones would be
/// rounded differently, and the joints between bands would be visible.
class BandImage {
public:
    /// An image of a size of at least 1 each way: RGB32 on white, or ARGB32_Premultiplied. Image()
    /// is null when memory runs out.
    explicit BandImage(QSize size, Ground ground = Ground::White);

    ~BandImage();
    BandImage(const BandImage&) = delete;
    BandImage& operator=(const BandImage&) = delete;

    [[nodiscard]] QImage& Image() { return image_; }

    /// Draws some lines on the ground; the others are unchanged.
    void Draw(PixelLines lines, const std::function<void(QPainter&)>& draw);

    /// Frees the memory of some lines. Their contents are lost.
    void Release(PixelLines lines);

private:
    void* memory_ = nullptr;
    std::size_t size_ = 0;
    QImage image_;
};

} // namespace quandrel
