// SPDX-License-Identifier: MIT

#include "platform/qt/image_stroker.h"

#include <QImage>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace quandrel {

namespace {

/// The pixels of an image, as red, green and blue in one number each.
class Pixels {
public:
    explicit Pixels(QImage& image)
        // constBits, for bits would look for other users of the image on each call.
        : bits_(reinterpret_cast<QRgb*>(const_cast<uchar*>(image.constBits())))
        , stride_(image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb)))
        , width_(image.width())
        , height_(image.height()) {}

    [[nodiscard]] int Width() const { return width_; }

    [[nodiscard]] int Height() const { return height_; }

    /// Lays ink over a pixel of the image. `cover` is 0 to 256.
    void Blend(int x, int y, QRgb ink, std::uint32_t cover) const {
        QRgb& pixel = bits_[y * stride_ + x];
        const std::uint32_t rest = 256 - cover;
        const std::uint32_t redBlue =
            ((ink & 0xff00ffU) * cover + (pixel & 0xff00ffU) * rest) >> 8 & 0xff00ffU;
        const std::uint32_t green =
            ((ink & 0x00ff00U) * cover + (pixel & 0x00ff00U) * rest) >> 8 & 0x00ff00U;
        pixel = 0xff000000U | redBlue | green;
    }

private:
    QRgb* bits_;
    qsizetype stride_;
    int width_;
    int height_;
};

/// One segment, its first coordinate the one along which it is longer.
struct Segment {
    double along0, across0, along1, across1;
    bool steep; ///< the first coordinate is y
};

Segment SegmentOf(QPointF from, QPointF to) {
    const bool steep = std::abs(to.y() - from.y()) > std::abs(to.x() - from.x());
    Segment segment = steep ? Segment{from.y(), from.x(), to.y(), to.x(), true}
                            : Segment{from.x(), from.y(), to.x(), to.y(), false};
    if (segment.along0 > segment.along1) {
        std::swap(segment.along0, segment.along1);
        std::swap(segment.across0, segment.across1);
    }
    return segment;
}

/// A length in pixels as a whole number of 65536ths: sums of these are exact, and cheap.
using Fixed = std::int64_t;

constexpr Fixed kOnePixel = 65536;

Fixed ToFixed(double pixels) {
    return static_cast<Fixed>(std::lround(pixels * static_cast<double>(kOnePixel)));
}

/// Inks the pixels from `low` to `high` across a segment, in the line of pixels `along` it, each as
/// far as it is covered.
template <bool Steep>
void InkAcross(const Pixels& pixels, int along, Fixed low, Fixed high, QRgb ink) {
    for (Fixed start = low; start < high;) {
        const Fixed pixel = start / kOnePixel;
        const Fixed end = std::min(high, (pixel + 1) * kOnePixel);
        const auto cover = static_cast<std::uint32_t>((end - start) * 256 / kOnePixel);
        const int across = static_cast<int>(pixel);
        if constexpr (Steep) {
            pixels.Blend(across, along, ink, cover);
        } else {
            pixels.Blend(along, across, ink, cover);
        }
        start = end;
    }
}

/// Covers, in each line of pixels across the segment, what the stroke covers of them. A line of
/// pixels belongs to the segment that its middle lies in, so that joints are not inked twice.
template <bool Steep>
void Stroke(const Pixels& pixels, const Segment& segment, QRgb ink, double width) {
    const int alongEnd = Steep ? pixels.Height() : pixels.Width();
    const Fixed acrossEnd = (Steep ? pixels.Width() : pixels.Height()) * kOnePixel;
    const double length = segment.along1 - segment.along0;
    const int first = std::max(0, static_cast<int>(std::ceil(segment.along0 - 0.5)));
    const int last = std::min(alongEnd, static_cast<int>(std::ceil(segment.along1 - 0.5)));
    if (length <= 0 || first >= last) {
        return;
    }
    const double slope = (segment.across1 - segment.across0) / length;
    const Fixed half = ToFixed(width / 2 * std::sqrt(1 + slope * slope));
    const Fixed step = ToFixed(slope);
    Fixed middle = ToFixed(segment.across0 + (first + 0.5 - segment.along0) * slope);
    for (int along = first; along < last; ++along, middle += step) {
        InkAcross<Steep>(pixels, along, std::max<Fixed>(middle - half, 0),
                         std::min(middle + half, acrossEnd), ink);
    }
}

bool IsSteep(const QPolygonF& line, qsizetype i) {
    const QPointF step = line[i] - line[i - 1];
    return std::abs(step.y()) > std::abs(step.x());
}

/// Where segment i of a line begins. Behind one of the other steepness it reaches back a pixel, for
/// neither of the two inks the corner of pixels between them.
QPointF StartOf(const QPolygonF& line, qsizetype i) {
    const QPointF from = line[i - 1];
    const QPointF step = line[i] - from;
    const double length = std::hypot(step.x(), step.y());
    if (i < 2 || length == 0 || IsSteep(line, i) == IsSteep(line, i - 1)) {
        return from;
    }
    return from - step / length;
}

bool CanStroke(const QPainter& painter) {
    return painter.device() != nullptr && painter.device()->devType() == QInternal::Image
           && !painter.hasClipping() && painter.transform().isIdentity();
}

} // namespace

bool StrokeOnImage(QPainter& painter, const QPolygonF& line, const QColor& colour, double width) {
    if (!CanStroke(painter)) {
        return false;
    }
    auto& image = *static_cast<QImage*>(painter.device());
    if (image.format() != QImage::Format_RGB32) {
        return false;
    }
    const Pixels pixels(image);
    for (qsizetype i = 1; i < line.size(); ++i) {
        const Segment segment = SegmentOf(StartOf(line, i), line[i]);
        if (segment.steep) {
            Stroke<true>(pixels, segment, colour.rgb(), width);
        } else {
            Stroke<false>(pixels, segment, colour.rgb(), width);
        }
    }
    return true;
}

} // namespace quandrel
