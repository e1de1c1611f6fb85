// SPDX-License-Identifier: MIT

#include "platform/qt/picture_file.h"

#include "core/atomic_file.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QString>
#include <QSvgGenerator>

#include <cmath>
#include <string_view>

namespace quandrel {

namespace {

constexpr int kPdfResolution = 1200;
constexpr double kLogicalResolution = 96;
constexpr double kInchesInAMetre = 1 / 0.0254;

/// Wider or higher pictures are refused: they are mistyped, or hold no more than a smaller one.
constexpr double kMostPixels = 30000;

struct Picture {
    PictureSize size;
    QString title;
    const DrawPictureOn& draw;
};

using Encoder = bool (*)(QBuffer& buffer, const Picture& picture);

bool EncodePng(QBuffer& buffer, const Picture& picture) {
    const double scale = picture.size.scale;
    QImage image(static_cast<int>(std::lround(picture.size.width * scale)),
                 static_cast<int>(std::lround(picture.size.height * scale)), QImage::Format_RGB32);
    if (image.isNull()) {
        return false;
    }
    image.fill(Qt::white);
    const int dotsPerMetre =
        static_cast<int>(std::lround(kLogicalResolution * scale * kInchesInAMetre));
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    QPainter painter(&image);
    picture.draw(painter, scale, Medium::Raster);
    painter.end();
    return image.save(&buffer, "PNG");
}

bool EncodeSvg(QBuffer& buffer, const Picture& picture) {
    const QSizeF size(picture.size.width, picture.size.height);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(size.toSize());
    generator.setViewBox(QRectF(QPointF(0, 0), size));
    generator.setResolution(static_cast<int>(kLogicalResolution));
    // The generator writes the title as it stands.
    generator.setTitle(picture.title.toHtmlEscaped());
    generator.setDescription(QString());
    QPainter painter;
    if (!painter.begin(&generator)) {
        return false;
    }
    painter.fillRect(QRectF(QPointF(0, 0), size), Qt::white);
    picture.draw(painter, 1, Medium::Vector);
    return painter.end();
}

bool EncodePdf(QBuffer& buffer, const Picture& picture) {
    const QSizeF size(picture.size.width, picture.size.height);
    QPdfWriter writer(&buffer);
    writer.setResolution(kPdfResolution);
    writer.setPageSize(QPageSize(size * 72 / kLogicalResolution, QPageSize::Point, QString(),
                                 QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    writer.setTitle(picture.title);
    writer.setCreator(QStringLiteral("Quandrel"));
    QPainter painter;
    if (!painter.begin(&writer)) {
        return false;
    }
    picture.draw(painter, kPdfResolution / kLogicalResolution, Medium::Vector);
    const bool isWhole = painter.end();
    ForgetTime(buffer.buffer());
    return isWhole;
}

Encoder EncoderFor(const std::string& path) {
    const QString lower = QString::fromStdString(path).toLower();
    if (lower.endsWith(QLatin1String(".png"))) {
        return EncodePng;
    }
    if (lower.endsWith(QLatin1String(".svg"))) {
        return EncodeSvg;
    }
    return lower.endsWith(QLatin1String(".pdf")) ? EncodePdf : nullptr;
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

std::string SavePicture(const std::string& path, const PictureSize& size, const std::string& title,
                        const DrawPictureOn& draw) {
    const Encoder encode = EncoderFor(path);
    if (encode == nullptr) {
        return "'" + path + "' ends in none of .png, .svg, .pdf";
    }
    if (!IsSensible(size)) {
        return "'" + path + "' could not be written: a picture is 1 to 30000 pixels wide and high";
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!encode(buffer, {size, QString::fromStdString(title), draw})) {
        return "'" + path + "' could not be written: there is no memory for the picture";
    }
    const QByteArray& bytes = buffer.data();
    const std::string error = WriteFileAtomically(
        path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    return error.empty() ? error : "'" + path + "' could not be written: " + error;
}

} // namespace quandrel
