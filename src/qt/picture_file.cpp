// SPDX-License-Identifier: MIT

#include "qt/picture_file.h"

#include "core/atomic_file.h"
#include "core/step_progress.h"
#include "platform/platform.h"
#include "qt/band_image.h"
#include "qt/png_writer.h"
#include "stereo/drawable_text.h"
#include "svg/svg_writer.h"

#include <QBuffer>
#include <QByteArray>
#include <QPageSize>
#include <QPdfWriter>
#include <QString>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <string_view>

namespace quandrel {

namespace {

constexpr int kPdfResolution = 1200;
constexpr double kLogicalResolution = 96;
constexpr double kPointsInAPixel = 72 / kLogicalResolution;
constexpr double kInchesInAMetre = 1 / 0.0254;

/// Wider or higher pictures are refused: such a size is a typing error, or shows no more detail.
constexpr double kMostPixels = 30000;

struct Picture {
    PictureSize size;
    std::string title;
    const DrawPictureOn& draw;
};

constexpr const char* kNoMemory = "there is not enough memory for the picture";
constexpr std::chrono::milliseconds kBetweenQuestions{150};

/// Shows how many lines have been written, and polls from time to time whether to continue.
class LineProgress {
public:
    /// @param isLong  false for a picture too small for either
    LineProgress(int lines, bool isLong)
        : isLong_(isLong)
        , progress_(lines, kDrawingWithoutProgress, gPlatform.status) {}

    /// False after the user has stopped it.
    [[nodiscard]] bool Reach(int line) {
        const Clock::time_point now = isLong_ ? Clock::now() : lastAsked_;
        if (now - lastAsked_ < kBetweenQuestions) {
            return true;
        }
        lastAsked_ = now;
        return !progress_.Reach(line) || !gPlatform.status->CancelRequested();
    }

private:
    using Clock = std::chrono::steady_clock;

    bool isLong_;
    StepProgress progress_;
    Clock::time_point lastAsked_ = Clock::now();
};

/// Writes the lines of a band until the user stops it. Returns the error, or an empty text.
std::string WriteLines(const QImage& image, PixelLines lines, PngWriter& writer,
                       LineProgress& progress) {
    for (int line = lines.first; line < lines.end; ++line) {
        if (!writer.WriteLine(reinterpret_cast<const QRgb*>(image.constScanLine(line)))) {
            return kNoMemory;
        }
        if (!progress.Reach(line)) {
            return kPictureStopped;
        }
    }
    return {};
}

std::string WritePng(const Picture& picture, const PutBytes& put) {
    const double scale = picture.size.scale;
    const QSize size(static_cast<int>(std::lround(picture.size.width * scale)),
                     static_cast<int>(std::lround(picture.size.height * scale)));
    const int dotsPerMetre =
        static_cast<int>(std::lround(kLogicalResolution * scale * kInchesInAMetre));
    BandImage band(size);
    PngWriter writer(put);
    if (band.Image().isNull() || !writer.Begin(size.width(), size.height(), dotsPerMetre)) {
        return kNoMemory;
    }
    const auto lineBytes = static_cast<std::size_t>(band.Image().bytesPerLine());
    const int step = std::max(1, static_cast<int>(picture.size.bandBytes / lineBytes));
    LineProgress progress(size.height(), step < size.height());
    for (int first = 0; first < size.height(); first += step) {
        const PixelLines lines{first, std::min(first + step, size.height())};
        band.Draw(lines, [&](QPainter& painter) {
            PainterPage page(painter, scale, Medium::Raster);
            picture.draw(page);
        });
        if (std::string error = WriteLines(band.Image(), lines, writer, progress); !error.empty()) {
            return error;
        }
        band.Release(lines);
    }
    return writer.End() ? "" : kNoMemory;
}

/// A document in points, so that sizes of fonts and widths of lines are those that users know.
std::string WriteSvg(const Picture& picture, const PutBytes& put) {
    const double width = picture.size.width * kPointsInAPixel;
    const double height = picture.size.height * kPointsInAPixel;
    SvgWriter writer(width, height, kPointsInAPixel);
    writer.SetTitle(picture.title);
    if (!picture.size.isTransparent) {
        writer.Add(BoxShape({0, 0}, {width, height}), kNoSvgPen, {kSolidFill, kWhite, 1, {}});
    }
    SvgPage page(writer);
    picture.draw(page);
    put(writer.Document());
    return {};
}

std::string WritePdf(const Picture& picture, const PutBytes& put) {
    const QSizeF size(picture.size.width, picture.size.height);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kPdfResolution);
    // The library rounds the sides of a page to whole points, so that a page of 84 mm has 83.96 mm.
    // What is drawn keeps its size.
    writer.setPageSize(
        QPageSize(size * kPointsInAPixel, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    writer.setTitle(QString::fromStdString(picture.title));
    writer.setCreator(QStringLiteral("Quandrel"));
    QPainter painter;
    if (!painter.begin(&writer)) {
        return kNoMemory;
    }
    PainterPage page(painter, kPdfResolution / kLogicalResolution, Medium::Vector);
    picture.draw(page);
    if (!painter.end()) {
        return kNoMemory;
    }
    QByteArray& bytes = buffer.buffer();
    ForgetTime(bytes);
    put(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    return {};
}

using PictureWriter = std::string (*)(const Picture& picture, const PutBytes& put);

PictureWriter WriterFor(const std::string& path) {
    const QString lower = QString::fromStdString(path).toLower();
    if (lower.endsWith(QLatin1String(".png"))) {
        return WritePng;
    }
    if (lower.endsWith(QLatin1String(".svg"))) {
        return WriteSvg;
    }
    return lower.endsWith(QLatin1String(".pdf")) ? WritePdf : nullptr;
}

bool IsSensible(const PictureSize& size) {
    const auto isLength = [](double pixels) { return pixels >= 1 && pixels <= kMostPixels; };
    return isLength(size.width) && isLength(size.height) && isLength(size.width * size.scale)
           && isLength(size.height * size.scale);
}

} // namespace

void ForgetTime(QByteArray& pdf) {
    const qsizetype start = pdf.indexOf("/CreationDate (D:");
    const qsizetype end = start < 0 ? -1 : pdf.indexOf(')', start);
    for (qsizetype i = start; i >= 0 && i <= end; ++i) {
        pdf[i] = ' ';
    }
}

bool IsSvgFile(const std::string& path) {
    return WriterFor(path) == WriteSvg;
}

std::string SavePicture(const std::string& path, const PictureSize& size, const std::string& title,
                        const DrawPictureOn& draw) {
    const PictureWriter write = WriterFor(path);
    if (write == nullptr) {
        return "'" + path + "' does not end in .png, .svg or .pdf";
    }
    if (!IsSensible(size)) {
        return "'" + path + "' could not be written: a picture is 1 to 30000 pixels wide and high";
    }
    if (size.isTransparent && write == WritePng) {
        return "'" + path
               + "' could not be written: a PNG has a white ground; SVG and PDF can be "
                 "transparent";
    }
    const Picture picture{size, DrawableText(title), draw};
    const std::string error =
        WriteFileAtomically(path, [&](const PutBytes& put) { return write(picture, put); });
    if (error.empty() || error == kPictureStopped) {
        return error;
    }
    return "'" + path + "' could not be written: " + error;
}

} // namespace quandrel
