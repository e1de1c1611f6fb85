// SPDX-License-Identifier: MIT

#include "qt/sprite.h"

#include <QPaintDevice>
#include <QRegion>
#include <QTransform>

#include <algorithm>
#include <cstdint>

namespace quandrel {

namespace {

/// Blends a premultiplied pixel over an opaque one. The quotient by 255 is exact after rounding.
QRgb Over(QRgb ink, QRgb ground) {
    const std::uint32_t rest = 255 - (ink >> 24);
    const auto scaled = [rest](std::uint32_t twoChannels) {
        const std::uint32_t product = twoChannels * rest;
        return ((product + (product >> 8 & 0xff00ffU) + 0x800080U) >> 8) & 0xff00ffU;
    };
    const std::uint32_t left = scaled(ground & 0xff00ffU) | scaled(ground >> 8 & 0xff00ffU) << 8;
    return (ink + left) | 0xff000000U;
}

} // namespace

std::optional<PlainTarget> PlainTargetOf(const QPainter& painter) {
    QPaintDevice* const device = painter.isActive() ? painter.device() : nullptr;
    if (device == nullptr || device->devType() != QInternal::Image
        || !painter.deviceTransform().isIdentity()) {
        return std::nullopt;
    }
    auto& image = *static_cast<QImage*>(device);
    PixelLines lines{0, image.height()};
    if (painter.hasClipping()) {
        const QRegion clip = painter.clipRegion();
        const QRect box = clip.boundingRect();
        if (clip.rectCount() != 1 || box.left() > 0 || box.right() < image.width() - 1) {
            return std::nullopt;
        }
        lines = {std::max(box.top(), 0), std::min(box.bottom() + 1, image.height())};
    }
    if (image.format() != QImage::Format_RGB32) {
        return std::nullopt;
    }
    return PlainTarget{image, lines};
}

Sprite::Sprite(const QImage& picture, QPoint origin) {
    for (int y = 0; y < picture.height(); ++y) {
        AddRuns(reinterpret_cast<const QRgb*>(picture.constScanLine(y)), picture.width(),
                y - origin.y(), origin.x());
    }
    if (runs_.empty()) {
        return;
    }
    left_ = right_ = runs_.front().left;
    top_ = runs_.front().line;
    bottom_ = runs_.back().line + 1;
    for (const Run& run : runs_) {
        left_ = std::min(left_, run.left);
        right_ = std::max(right_, run.left + run.length);
    }
}

void Sprite::AddRuns(const QRgb* pixels, int width, int line, int originX) {
    for (int x = 0; x < width;) {
        const int alpha = qAlpha(pixels[x]);
        if (alpha == 0) {
            ++x;
            continue;
        }
        Run run{x - originX, line, 0, alpha == 255, inks_.size()};
        while (x < width && qAlpha(pixels[x]) != 0 && (qAlpha(pixels[x]) == 255) == run.solid) {
            inks_.push_back(pixels[x]);
            ++run.length;
            ++x;
        }
        runs_.push_back(run);
    }
}

void Sprite::StampOn(const PlainTarget& target, int x, int y) const {
    const QImage& image = target.image;
    // constBits, as bits would check for sharing at each stamp.
    auto* const bits = reinterpret_cast<QRgb*>(const_cast<uchar*>(image.constBits()));
    const qsizetype stride = image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    const int imageWidth = image.width();
    const auto [firstLine, endLine] = target.lines;
    const bool isInside = x + left_ >= 0 && y + top_ >= firstLine && x + right_ <= imageWidth
                          && y + bottom_ <= endLine;
    for (const Run& run : runs_) {
        int from = x + run.left;
        int to = from + run.length;
        const QRgb* ink = &inks_[run.first];
        const int line = y + run.line;
        if (!isInside) {
            if (line < firstLine || line >= endLine || to <= 0 || from >= imageWidth) {
                continue;
            }
            ink += std::max(-from, 0);
            from = std::max(from, 0);
            to = std::min(to, imageWidth);
        }
        QRgb* pixel = bits + line * stride + from;
        if (run.solid) {
            std::copy_n(ink, to - from, pixel);
        } else {
            for (; from < to; ++from, ++pixel) {
                *pixel = Over(*ink++, *pixel);
            }
        }
    }
}

} // namespace quandrel
