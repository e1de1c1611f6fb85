// SPDX-License-Identifier: MIT
//
// Measurements of pictures for tests.

#pragma once

#include <QImage>
#include <QRect>

#include <algorithm>
#include <cstdlib>

namespace quandrel {

inline QImage WhiteImage(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

/// How many pixels have another colour.
inline int CountOther(const QImage& image, QRgb colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += (image.pixel(x, y) & 0xffffffU) != (colour & 0xffffffU) ? 1 : 0;
        }
    }
    return count;
}

/// The smallest rectangle with all pixels that are not white.
inline QRect InkedRect(const QImage& image) {
    QRect inked;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if ((image.pixel(x, y) & 0xffffffU) != 0xffffffU) {
                inked |= QRect(x, y, 1, 1);
            }
        }
    }
    return inked;
}

/// The largest difference of a channel between two images of one size, 256 for two sizes.
inline int LargestDifference(const QImage& a, const QImage& b) {
    int largest = a.size() == b.size() ? 0 : 256;
    for (int y = 0; largest < 256 && y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            largest = std::max({largest, std::abs(qRed(p) - qRed(q)),
                                std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return largest;
}

} // namespace quandrel
