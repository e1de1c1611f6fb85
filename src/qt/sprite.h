// SPDX-License-Identifier: MIT
//
// Small antialiased pictures that are stamped into an image many times.

#pragma once

#include "qt/band_image.h"

#include <QImage>
#include <QPainter>
#include <QPoint>

#include <optional>
#include <vector>

namespace quandrel {

/// An image, and the range of its lines that may be drawn on.
struct PlainTarget {
    QImage& image;
    PixelLines lines;
};

/// The image under a painter, when writing its pixels directly is equivalent to painting: RGB32,
/// clipped at most to whole lines, not moved or scaled. Otherwise nothing.
[[nodiscard]] std::optional<PlainTarget> PlainTargetOf(const QPainter& painter);

/// The inked pixels of a picture, as runs.
class Sprite {
public:
    /// @param picture  Format_ARGB32_Premultiplied
    /// @param origin   the pixel of the picture that is put at the position of a stamp
    Sprite(const QImage& picture, QPoint origin);

    /// Draws the picture over an RGB32 image; parts outside its lines are left out.
    void StampOn(const PlainTarget& target, int x, int y) const;

private:
    /// Neighbouring pixels of one line, either all opaque or all partly transparent.
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
    int left_ = 0; ///< bounds of all runs, from the origin; right_ and bottom_ are exclusive
    int top_ = 0;
    int right_ = 0;
    int bottom_ = 0;
};

} // namespace quandrel
