// SPDX-License-Identifier: MIT

#include "platform/qt/plot_picture.h"

#include "core/atomic_file.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "platform/qt/painter_surface.h"
#include "stereo/plot_driver.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <functional>

namespace quandrel {

namespace {

constexpr int kPdfResolution = 1200;
constexpr double kLogicalResolution = 96;

/// The places of a picture's parts, in logical pixels.
struct PictureLayout {
    QSizeF size;
    QRectF net;
    QRectF legend;
    QRectF description;
    QRectF statistics;
    QRectF fabric;
    QRectF number;
};

PictureLayout LayOut(PicturePart part) {
    constexpr double kSide = kPictureHeight;
    constexpr double kColumn = 290;
    constexpr double kMargin = 10;
    constexpr double kLine = 24;
    PictureLayout layout;
    layout.net = QRectF(0, 0, kSide, kSide);
    layout.size = QSizeF(kSide, kSide);
    if (part == PicturePart::NetAlone) {
        return layout;
    }
    layout.size.setWidth(kSide + kColumn);
    const double left = kSide + kMargin;
    const double width = kColumn - 2 * kMargin;
    layout.legend = QRectF(left, 2 * kMargin, width, 300);
    layout.description = QRectF(left, 330, width, 4 * kLine);
    layout.statistics = QRectF(left, 330 + 4 * kLine, width, kSide - 340 - 4 * kLine);
    layout.fabric = QRectF(kMargin, kMargin, 150, kLine);
    layout.number = QRectF(kMargin, kSide - kMargin - kLine, 150, kLine);
    return layout;
}

/// Lines of text from the top of a box down; what does not fit is left out.
void DrawTextBox(QPainter& painter, const QRectF& box, double factor, Medium medium,
                 const PlotFont& font, const std::string& text) {
    const QRectF area(box.topLeft() * factor, box.size() * factor);
    PainterSurface surface(painter, area, factor, medium);
    DrawState state;
    state.font = font.font;
    state.foreColour = ColourFromValue(static_cast<std::uint32_t>(font.colour));
    surface.SetState(state);
    double top = 0;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        if (top + surface.TextHeight() > box.height()) {
            return;
        }
        surface.Text({0, -top}, std::string_view(text).substr(start, end - start));
        top += surface.TextHeight();
        start = end + 1;
    }
}

/// Everything about the net: what the plot's window shows in its boxes.
void DrawBoxes(QPainter& painter, const PictureLayout& layout, double factor, Medium medium) {
    const PlotRecord& record = ActiveRecord();
    const PlotForm& form = FormOf(gActivePlot);
    const auto draw = [&](const QRectF& box, PlotFontPlace font, const std::string& text) {
        DrawTextBox(painter, box, factor, medium, gPlotFonts[font], text);
    };
    if (record.LayerVisible[1] != 0) {
        draw(layout.fabric, kFabricFont, record.FabricText);
    }
    if (record.LayerVisible[2] != 0) {
        draw(layout.description, kGeneralFont, record.DescriptionText);
    }
    if (record.LayerVisible[4] != 0) {
        draw(layout.number, kGeneralFont, "n = " + NumberBoxText());
    }
    if (record.LayerVisible[5] != 0) {
        const PlotBox box =
            record.StatsBoxKind != 0 ? PlotBox::StatsAdvanced : PlotBox::StatsNormal;
        draw(layout.statistics, kStatsFont, form.BoxText(box));
    }
}

/// Draws the whole picture with `factor` painter units to the logical pixel.
void DrawPicture(QPainter& painter, PicturePart part, double factor, Medium medium) {
    const PictureLayout layout = LayOut(part);
    const auto scaled = [factor](const QRectF& box) {
        return QRectF(box.topLeft() * factor, box.size() * factor);
    };
    PainterSurface net(painter, scaled(layout.net), factor, medium);
    if (part == PicturePart::NetAlone || ActiveRecord().LayerVisible[3] == 0) {
        // The legend is drawn all the same, where nobody sees it.
        QImage unseen(8, 8, QImage::Format_RGB32);
        QPainter unseenPainter(&unseen);
        PainterSurface legend(unseenPainter, QRectF(0, 0, 8, 8), factor, Medium::Raster);
        DrawActivePlotOn(net, legend);
    } else {
        PainterSurface legend(painter, scaled(layout.legend), factor, medium);
        DrawActivePlotOn(net, legend);
    }
    if (part == PicturePart::WholePlot) {
        DrawBoxes(painter, layout, factor, medium);
    }
}

using Encoder = std::function<bool(QBuffer&, const PictureOptions&)>;

bool EncodePng(QBuffer& buffer, const PictureOptions& options) {
    const double factor = static_cast<double>(options.size) / kPictureHeight;
    const QSizeF size = LayOut(options.part).size * factor;
    QImage image(size.toSize(), QImage::Format_RGB32);
    if (image.isNull()) {
        return false;
    }
    image.fill(Qt::white);
    image.setDotsPerMeterX(static_cast<int>(kLogicalResolution * factor / 0.0254));
    image.setDotsPerMeterY(static_cast<int>(kLogicalResolution * factor / 0.0254));
    QPainter painter(&image);
    DrawPicture(painter, options.part, factor, Medium::Raster);
    painter.end();
    return image.save(&buffer, "PNG");
}

bool EncodeSvg(QBuffer& buffer, const PictureOptions& options) {
    const QSizeF size = LayOut(options.part).size;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(size.toSize());
    generator.setViewBox(QRectF(QPointF(0, 0), size));
    generator.setResolution(static_cast<int>(kLogicalResolution));
    generator.setTitle(QString::fromStdString(ActiveRecord().PlotTitle));
    QPainter painter;
    if (!painter.begin(&generator)) {
        return false;
    }
    painter.fillRect(QRectF(QPointF(0, 0), size), Qt::white);
    DrawPicture(painter, options.part, 1, Medium::Vector);
    return painter.end();
}

bool EncodePdf(QBuffer& buffer, const PictureOptions& options) {
    const QSizeF size = LayOut(options.part).size;
    QPdfWriter writer(&buffer);
    writer.setResolution(kPdfResolution);
    writer.setPageSize(QPageSize(size * 72 / kLogicalResolution, QPageSize::Point, QString(),
                                 QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    writer.setTitle(QString::fromStdString(ActiveRecord().PlotTitle));
    writer.setCreator(QStringLiteral("Quandrel"));
    QPainter painter;
    if (!painter.begin(&writer)) {
        return false;
    }
    DrawPicture(painter, options.part, kPdfResolution / kLogicalResolution, Medium::Vector);
    return painter.end();
}

Encoder EncoderFor(const std::string& path) {
    const QString lower = QString::fromStdString(path).toLower();
    if (lower.endsWith(QLatin1String(".png"))) {
        return EncodePng;
    }
    if (lower.endsWith(QLatin1String(".svg"))) {
        return EncodeSvg;
    }
    return lower.endsWith(QLatin1String(".pdf")) ? EncodePdf : Encoder();
}

} // namespace

std::string SavePlotPicture(const std::string& path, const PictureOptions& options) {
    const Encoder encode = EncoderFor(path);
    if (!encode) {
        return "'" + path + "' ends in none of .png, .svg, .pdf";
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!encode(buffer, options)) {
        return "the picture could not be made";
    }
    const QByteArray& bytes = buffer.data();
    const std::string error = WriteFileAtomically(
        path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    return error.empty() ? error : "'" + path + "' could not be written: " + error;
}

} // namespace quandrel
