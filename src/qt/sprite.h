// SPDX-License-Identifier: MIT
//
// Small pictures with soft edges that are stamped into an image many times.

#pragma once

#include "qt/band_image.h"

#include <QImage>
#include <QPainter>
#include <QPoint>

#include <optional>
#include <vector>

namespace quandrel {

/// An image with the lines of it that may be drawn on.
struct PlainTarget {
    QImage& image;
    PixelLines lines;
};

/// The image under a painter when pixels may be written to it as the painter would: RGB32, clipped
/// to whole lines at most, nothing moved or scaled. Else nothing.
[[nodiscard]] std::optional<PlainTarget> PlainTargetOf(const QPainter& painter);

/// The inked pixels of a picture, as runs.
class Sprite {
public:
    /// @param picture  Format_ARGB32_Premultiplied
    /// @param origin   the pixel of the picture that falls on the place of a stamp
    Sprite(const QImage& picture, QPoint origin);

    /// Lays the picture over an RGB32 image; what falls outside its lines is left out.
    void StampOn(const PlainTarget& target, int x, int y) const;

private:
    /// Neighbouring pixels of one line that are all solid, or all between solid and clear.
    struct Run {
        int left = 0; ///< from the origin
        int line = 0; ///< from the origin
        int length = 0;
        bool solid = false;
        std::size_t first = 0; ///< in inks_
    };

    void AddRuns(const QRgb* pixels, int width, int line, int originX);

    std::vector<Run> runs_;
    std::vector<QRgb> inks_;
    int left_ = 0; ///< the box about all runs, from the origin; right_ and bottom_ lie outside
    int top_ = 0;
    int right_ = 0;
    int bottom_ = 0;
};

} // namespace quandrel
