// SPDX-License-Identifier: MIT

#include "qt/picture_file.h"

#include "core/atomic_file.h"
#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/step_progress.h"
#include "pdf/pdf_file.h"
#include "persistence/picture_data.h"
#include "platform/platform.h"
#include "qt/band_image.h"
#include "qt/png_writer.h"
#include "stereo/drawable_text.h"
#include "svg/svg_writer.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageWriter>
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
constexpr double kMostTiffPixels = 300e6;

constexpr const char* kTiffFormat = "tiff";
constexpr const char* kNoTiff =
    "a TIFF needs a plug-in of Qt that is not installed (on Debian the package "
    "qt6-image-formats-plugins); PNG has the same pixels";

std::string_view ViewOf(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

struct Picture {
    PictureSize size;
    PictureFacts facts;
    const DrawPictureOn& draw;
};

/// "Quandrel 9.5.1"
std::string ProgramAndVersion() {
    const std::string caption = gCaption;
    return "Quandrel " + caption.substr(caption.rfind(' ') + 1);
}

/// "Drawn by Quandrel 9.5.1 in the style Journal"
std::string OriginOf(const PictureFacts& facts) {
    return "Drawn by " + ProgramAndVersion()
           + (facts.style.empty() ? "" : " in the style " + DrawableText(facts.style));
}

QSize PixelsOf(const PictureSize& size) {
    return {static_cast<int>(std::lround(size.width * size.scale)),
            static_cast<int>(std::lround(size.height * size.scale))};
}

int DotsPerMetre(const PictureSize& size) {
    return static_cast<int>(std::lround(kLogicalResolution * size.scale * kInchesInAMetre));
}

Ground GroundOf(const PictureSize& size) {
    return size.isTransparent ? Ground::Transparent : Ground::White;
}

std::vector<PngText> TextsOf(const PictureFacts& facts) {
    std::vector<PngText> texts = {{"Software", ProgramAndVersion()},
                                  {"Description", OriginOf(facts)}};
    if (!facts.plotText.empty()) {
        texts.push_back({kPlotOfPng, facts.plotText, true});
    }
    return texts;
}

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
    const QSize size = PixelsOf(picture.size);
    BandImage band(size, GroundOf(picture.size));
    PngWriter writer(put);
    const PngHead head{size.width(), size.height(), DotsPerMetre(picture.size),
                       picture.size.isTransparent, TextsOf(picture.facts)};
    if (band.Image().isNull() || !writer.Begin(head)) {
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

std::string WriteTiff(const Picture& picture, const PutBytes& put) {
    const QSize size = PixelsOf(picture.size);
    if (!CanWriteTiff()) {
        return kNoTiff;
    }
    if (static_cast<double>(size.width()) * size.height() > kMostTiffPixels) {
        return "a TIFF has 300 million pixels at most";
    }
    BandImage whole(size, GroundOf(picture.size));
    if (whole.Image().isNull()) {
        return kNoMemory;
    }
    whole.Draw({0, size.height()}, [&](QPainter& painter) {
        PainterPage page(painter, picture.size.scale, Medium::Raster);
        picture.draw(page);
    });
    whole.Image().setDotsPerMeterX(DotsPerMetre(picture.size));
    whole.Image().setDotsPerMeterY(DotsPerMetre(picture.size));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, kTiffFormat);
    writer.setCompression(1); // LZW, without loss
    if (!writer.write(whole.Image())) {
        return kNoMemory;
    }
    put(ViewOf(buffer.data()));
    return {};
}

/// A document in points, so that sizes of fonts and widths of lines are those that users know.
std::string WriteSvg(const Picture& picture, const PutBytes& put) {
    const double width = picture.size.width * kPointsInAPixel;
    const double height = picture.size.height * kPointsInAPixel;
    SvgWriter writer(width, height, kPointsInAPixel);
    writer.SetTitle(DrawableText(picture.facts.title));
    writer.SetDescription(OriginOf(picture.facts));
    writer.SetData(picture.facts.plotText);
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
    // What is drawn keeps its size, and the page gets its own below.
    writer.setPageSize(
        QPageSize(size * kPointsInAPixel, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    writer.setTitle(QString::fromStdString(DrawableText(picture.facts.title)));
    writer.setCreator(QString::fromStdString(ProgramAndVersion()));
    if (const std::string& plot = picture.facts.plotFile; !plot.empty()) {
        const bool isSheet = IsSheetText(plot);
        writer.addFileAttachment(isSheet ? kSheetOfPdf : kPlotOfPdf,
                                 QByteArray(plot.data(), static_cast<qsizetype>(plot.size())),
                                 isSheet ? QStringLiteral("application/json")
                                         : QStringLiteral("application/x-quandrel-plot"));
    }
    QPainter painter;
    if (!painter.begin(&writer)) {
        return kNoMemory;
    }
    PainterPage page(painter, kPdfResolution / kLogicalResolution, Medium::Vector);
    picture.draw(page);
    if (!painter.end()) {
        return kNoMemory;
    }
    ForgetTime(buffer.buffer());
    const QSizeF points = size * kPointsInAPixel;
    const Result<std::string> exact = WithPageSize(
        ViewOf(buffer.data()), {points.width(), points.height()}, OriginOf(picture.facts));
    if (!exact) {
        return exact.Error();
    }
    put(*exact);
    return {};
}

using PictureWriter = std::string (*)(const Picture& picture, const PutBytes& put);

PictureWriter WriterFor(PictureType type) {
    switch (type) {
    case PictureType::Svg:
        return WriteSvg;
    case PictureType::Pdf:
        return WritePdf;
    case PictureType::Tiff:
        return WriteTiff;
    case PictureType::Png:
        break;
    }
    return WritePng;
}

bool IsSensible(const PictureSize& size) {
    const auto isLength = [](double pixels) { return pixels >= 1 && pixels <= kMostPixels; };
    return isLength(size.width) && isLength(size.height) && isLength(size.width * size.scale)
           && isLength(size.height * size.scale);
}

constexpr const char* kNoDataInTiff =
    "a TIFF cannot hold the data of the plot: choose SVG, PDF or PNG";

/// Puts a file into the facts of a picture.
///
/// @return empty, or why it is left out
std::string HoldFile(const Result<std::string>& held, PictureType type, PictureFacts& facts) {
    Result<std::string> text = held ? TextOfPlotFile(*held) : held;
    if (!text) {
        return text.Error();
    }
    if (type == PictureType::Pdf) {
        facts.plotFile = *held;
    } else if (type == PictureType::Png && text->size() > kLongestPngText) {
        return "A PNG has room for 6 MB, and they are larger. SVG and PDF hold them.";
    } else {
        facts.plotText = std::move(*text);
    }
    return {};
}

} // namespace

void ForgetTime(QByteArray& pdf) {
    const qsizetype start = pdf.indexOf("/CreationDate (D:");
    const qsizetype end = start < 0 ? -1 : pdf.indexOf(')', start);
    for (qsizetype i = start; i >= 0 && i <= end; ++i) {
        pdf[i] = ' ';
    }
}

std::optional<PictureType> PictureTypeOf(const std::string& path) {
    if (HasEnding(path, ".png")) {
        return PictureType::Png;
    }
    if (HasEnding(path, ".svg")) {
        return PictureType::Svg;
    }
    if (HasEnding(path, ".pdf")) {
        return PictureType::Pdf;
    }
    const bool isTiff = HasEnding(path, ".tif") || HasEnding(path, ".tiff");
    return isTiff ? std::optional(PictureType::Tiff) : std::nullopt;
}

PictureAbilities AbilitiesOf(PictureType type) {
    const bool isTiff = type == PictureType::Tiff;
    return {isTiff || type == PictureType::Png, !isTiff, !isTiff};
}

bool CanWriteTiff() {
    return QImageWriter::supportedImageFormats().contains(kTiffFormat);
}

bool IsSvgFile(const std::string& path) {
    return PictureTypeOf(path) == PictureType::Svg;
}

std::string SavePicture(const std::string& path, const PictureSize& size, const PictureFacts& facts,
                        const DrawPictureOn& draw) {
    const std::optional<PictureType> type = PictureTypeOf(path);
    if (!type) {
        return "'" + path + "' does not end in .png, .svg, .pdf or .tif";
    }
    if (!IsSensible(size)) {
        return "'" + path + "' could not be written: a picture is 1 to 30000 pixels wide and high";
    }
    const PictureWriter write = WriterFor(*type);
    const Picture picture{size, facts, draw};
    const std::string error =
        WriteFileAtomically(path, [&](const PutBytes& put) { return write(picture, put); });
    if (error.empty() || error == kPictureStopped) {
        return error;
    }
    return "'" + path + "' could not be written: " + error;
}

std::string SavePictureWithFile(const std::string& path, const PictureSize& size,
                                PictureFacts facts, const Result<std::string>& held,
                                const DrawPictureOn& draw) {
    const std::optional<PictureType> type = PictureTypeOf(path);
    if (type && !AbilitiesOf(*type).holdsPlot) {
        return "'" + path + "' could not be written: " + kNoDataInTiff;
    }
    const std::string leftOut = type ? HoldFile(held, *type, facts) : std::string();
    const std::string error = SavePicture(path, size, facts, draw);
    if (error.empty() && !leftOut.empty()) {
        Tell("The picture was saved without the data of the plot.\n" + leftOut, Icon::Information);
    }
    return error;
}

std::string SavePicture(const std::string& path, const PictureSize& size, const std::string& title,
                        const DrawPictureOn& draw) {
    return SavePicture(path, size, PictureFacts{title, {}, {}, {}}, draw);
}

} // namespace quandrel
