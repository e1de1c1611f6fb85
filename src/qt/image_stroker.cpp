// SPDX-License-Identifier: MIT

#include "qt/image_stroker.h"

#include "qt/sprite.h"

#include <QImage>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

/// The pixels of an image; each is one number with red, green and blue.
class Pixels {
public:
    explicit Pixels(const PlainTarget& target)
        // constBits, as bits would check for sharing on each call.
        : bits_(reinterpret_cast<QRgb*>(const_cast<uchar*>(target.image.constBits())))
        , stride_(target.image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb)))
        , width_(target.image.width())
        , lines_(target.lines) {}

    [[nodiscard]] PixelLines Columns() const { return {0, width_}; }

    [[nodiscard]] PixelLines Lines() const { return lines_; }

    /// Blends ink over a pixel of the image. `cover` is 0 to 256.
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
    PixelLines lines_;
};

/// One segment; its first coordinate is the one along which it is longer.
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

/// A length in pixels as a whole number of 65536ths: adding these is exact and fast.
using Fixed = std::int64_t;

constexpr Fixed kOnePixel = 65536;

Fixed ToFixed(double pixels) {
    return static_cast<Fixed>(std::lround(pixels * static_cast<double>(kOnePixel)));
}

/// Inks the pixels from `low` to `high` across a segment, in the pixel line `along` it, each by its
/// coverage.
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

/// Inks, in each pixel line across the segment, what the stroke covers. A pixel line belongs to the
/// segment that contains its middle, so that joints are not inked twice.
template <bool Steep>
void Stroke(const Pixels& pixels, const Segment& segment, QRgb ink, double width) {
    const PixelLines along = Steep ? pixels.Lines() : pixels.Columns();
    const PixelLines across = Steep ? pixels.Columns() : pixels.Lines();
    const double length = segment.along1 - segment.along0;
    // Steps are counted from the image's edge, whichever lines are drawn, so that the sums are the
    // same.
    const int start = std::max(0, static_cast<int>(std::ceil(segment.along0 - 0.5)));
    const int first = std::max(along.first, start);
    const int last = std::min(along.end, static_cast<int>(std::ceil(segment.along1 - 0.5)));
    if (length <= 0 || first >= last) {
        return;
    }
    const double slope = (segment.across1 - segment.across0) / length;
    const Fixed half = ToFixed(width / 2 * std::sqrt(1 + slope * slope));
    const Fixed step = ToFixed(slope);
    Fixed middle = ToFixed(segment.across0 + (start + 0.5 - segment.along0) * slope);
    middle += (first - start) * step;
    for (int place = first; place < last; ++place, middle += step) {
        InkAcross<Steep>(pixels, place, std::max(middle - half, across.first * kOnePixel),
                         std::min(middle + half, across.end * kOnePixel), ink);
    }
}

bool IsSteep(const QPolygonF& line, qsizetype i) {
    const QPointF step = line[i] - line[i - 1];
    return std::abs(step.y()) > std::abs(step.x());
}

/// The start of segment i of a line. After a segment of the other steepness it is moved back by a
/// pixel, because neither of the two inks the corner between them.
QPointF StartOf(const QPolygonF& line, qsizetype i) {
    const QPointF from = line[i - 1];
    const QPointF step = line[i] - from;
    const double length = std::hypot(step.x(), step.y());
    if (i < 2 || length == 0 || IsSteep(line, i) == IsSteep(line, i - 1)) {
        return from;
    }
    return from - step / length;
}

} // namespace

bool StrokeOnImage(QPainter& painter, const QPolygonF& line, const QColor& colour, double width) {
    const std::optional<PlainTarget> target = PlainTargetOf(painter);
    if (!target) {
        return false;
    }
    const Pixels pixels(*target);
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
