// SPDX-License-Identifier: MIT

#include "platform/platform.h"
#include "platform/scripted/quiet_status_line.h"
#include "qt/painter_surface.h"
#include "qt/picture_file.h"
#include "qt/svg_clips.h"

#include <QBuffer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <vector>

namespace quandrel {
namespace {

using Drawing = std::function<void(PainterSurface&)>;

/// Pictures of 220 pixels in the scale of a plot, as the bytes of files.
class VectorFiles : public ::testing::Test {
protected:
    void SetUp() override { gPlatform.status = &status; }

    void TearDown() override { gPlatform = {}; }

    [[nodiscard]] QByteArray Saved(const char* name, const Drawing& draw) const {
        const QString path = folder.filePath(QString::fromLatin1(name));
        const std::string error =
            SavePicture(path.toStdString(), {220, 220}, "clips",
                        [&](QPainter& painter, double factor, Medium medium) {
                            PainterSurface surface(
                                painter, QRectF(0, 0, 220 * factor, 220 * factor), factor, medium);
                            surface.SetUserScale(kPlotScale);
                            draw(surface);
                        });
        EXPECT_EQ(error, "");
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QuietStatusLine status;
    QTemporaryDir folder;
};

DrawState Fine() {
    DrawState state;
    state.drawWidth = 7;
    state.widthInPoints = 0.3;
    state.lineOpacity = 0.25;
    state.fillStyle = kSolidFill;
    state.fillOpacity = 0.5;
    return state;
}

const std::vector<std::vector<Point>> kSquareWithHole = {
    {{-400, -400}, {400, -400}, {400, 400}, {-400, 400}},
    {{-200, -200}, {200, -200}, {200, 200}, {-200, 200}}};

/// The clips around each text of an SVG file, outermost first: "a: clip1 clip2".
QStringList ClipsOfTexts(const QByteArray& svg) {
    QXmlStreamReader xml(svg);
    QStringList clips; // of the open elements, empty without one
    QStringList texts;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            clips.append(xml.attributes().value("clip-path").toString());
        } else if (xml.isEndElement()) {
            clips.removeLast();
        } else if (xml.isCharacters() && !xml.isWhitespace() && clips.size() > 2) {
            QStringList around = clips;
            around.removeAll(QString());
            texts.append(xml.text().toString().trimmed() + ": " + around.join(" "));
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return texts;
}

/// The bounds of the path of a clip.
QRectF BoundsOf(const QByteArray& svg, const QString& id) {
    const QRegularExpression path("<clipPath id=\"" + id + "\"><path d=\"([^\"]*)\"");
    const QString points = path.match(QString::fromUtf8(svg)).captured(1);
    static const QRegularExpression pair("(-?[0-9.]+),(-?[0-9.]+)");
    double left = std::numeric_limits<double>::infinity();
    double top = left;
    double right = -left;
    double bottom = -left;
    for (auto it = pair.globalMatch(points); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const double x = match.captured(1).toDouble();
        const double y = match.captured(2).toDouble();
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    }
    return QRectF(QPointF(left, top), QPointF(right, bottom));
}

TEST_F(VectorFiles, SvgClipsAreGroupsAboutWhatTheyClip) {
    const QByteArray svg = Saved("a.svg", [](PainterSurface& surface) {
        surface.Text({-1000, 1000}, "before");
        {
            const CircleClip outer(surface, {0, 100}, 1000);
            surface.SetState(Fine());
            surface.Path(kSquareWithHole, kBlack);
            surface.Text({-800, 0}, "outer");
            {
                const CircleClip inner(surface, {300, 0}, 500);
                surface.Text({-800, 0}, "both");
            }
            surface.Circle({0, 0}, 300, kBlack);
            surface.Text({-800, 0}, "outer again");
        }
        surface.Text({-1000, -900}, "after");
        const CircleClip third(surface, {0, 0}, 200);
        surface.Text({-1000, -900}, "third");
    });
    EXPECT_EQ(ClipsOfTexts(svg).join("; ").toStdString(),
              "before: ; outer: url(#clip1); both: url(#clip1) url(#clip2); "
              "outer again: url(#clip1); after: ; third: url(#clip3)");
    EXPECT_EQ(BoundsOf(svg, "clip1"), QRectF(10, 0, 200, 200));
    EXPECT_EQ(BoundsOf(svg, "clip2"), QRectF(90, 60, 100, 100));
    EXPECT_EQ(BoundsOf(svg, "clip3"), QRectF(90, 90, 40, 40));
    EXPECT_FALSE(svg.contains("miterlimit=\"700")) << "no mark is left";
}

TEST_F(VectorFiles, SvgClipsLieWhereATransformedPainterPutsThem) {
    const QString path = folder.filePath("a.svg");
    ASSERT_EQ(SavePicture(path.toStdString(), {220, 220}, "",
                          [](QPainter& painter, double factor, Medium medium) {
                              painter.translate(30, 5);
                              painter.scale(0.5, 0.5);
                              PainterSurface surface(painter, QRectF(0, 0, 220, 220), factor,
                                                     medium);
                              surface.SetUserScale(kPlotScale);
                              const CircleClip clip(surface, {0, 0}, 1000);
                              surface.Circle({0, 0}, 300, kBlack);
                          }),
              "");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(BoundsOf(file.readAll(), "clip1"), QRectF(35, 10, 100, 100));
}

TEST_F(VectorFiles, TextsThatLookLikeMarksStayTexts) {
    const QByteArray mark = "<g fill=\"none\" stroke=\"#000000\" stroke-opacity=\"0\" "
                            "stroke-width=\"1\" stroke-linecap=\"butt\" stroke-linejoin=\"miter\" "
                            "stroke-miterlimit=\"7002\"";
    const QByteArray svg = Saved("a.svg", [&](PainterSurface& surface) {
        surface.Text({-800, 0}, mark.toStdString());
    });
    EXPECT_EQ(svg.count("</g>"), svg.count("<g "));
    EXPECT_EQ(ClipsOfTexts(svg).size(), 1);
    QByteArray plain = "<svg><g a=\"b\"></g></svg>";
    WriteSvgClips(plain);
    EXPECT_EQ(plain, "<svg><g a=\"b\"></g></svg>");
}

TEST_F(VectorFiles, SvgHasHolesOpacitiesAndWidthsInPoints) {
    const QByteArray svg = Saved("a.svg", [](PainterSurface& surface) {
        surface.SetState(Fine());
        surface.Path(kSquareWithHole, kBlack);
    });
    // 0.3 points of 4/3 pixels; the opacities are sixteenth-bit numbers.
    EXPECT_TRUE(svg.contains("stroke-width=\"0.4\"")) << svg.toStdString();
    EXPECT_TRUE(svg.contains("stroke-opacity=\"0.25000"));
    EXPECT_TRUE(svg.contains("fill-opacity=\"0.5000"));
    EXPECT_TRUE(svg.contains("fill-rule=\"evenodd\" d=\"M70,150 L150,150 L150,70 L70,70 L70,150 "
                             "M90,130 L130,130 L130,90 L90,90 L90,130\""));
}

/// The drawing commands of a PDF file's page.
QByteArray ContentOf(const QByteArray& pdf) {
    qsizetype start = pdf.indexOf("stream\n");
    while (start >= 0) {
        start += 7;
        // qUncompress wants the length first, of which any guess will do.
        const QByteArray packed = pdf.mid(start, pdf.indexOf("endstream", start) - start);
        const QByteArray text = qUncompress(QByteArray("\0\1\0\0", 4) + packed);
        if (text.contains(" cm\n")) {
            return text;
        }
        start = pdf.indexOf("\nstream\n", start) < 0 ? -1 : pdf.indexOf("\nstream\n", start) + 1;
    }
    return {};
}

TEST_F(VectorFiles, PdfHasHolesOpacitiesAndWidthsInPoints) {
    const QByteArray opaque = Saved("a.pdf", [](PainterSurface& surface) {
        DrawState state;
        state.widthInPoints = 0.3;
        surface.SetState(state);
        surface.Line({-400, 0}, {400, 0}, kBlack);
    });
    // At 1200 dots per inch 0.3 points are 5 dots.
    EXPECT_TRUE(ContentOf(opaque).contains("\n5 w")) << ContentOf(opaque).toStdString();
    const QByteArray faint = Saved("b.pdf", [](PainterSurface& surface) {
        surface.SetState(Fine());
        surface.Path(kSquareWithHole, kBlack);
    });
    const QByteArray content = ContentOf(faint);
    EXPECT_TRUE(content.contains("h\nf*\n")) << "odd-even: " << content.toStdString();
    // The outline is a filled shape; its left side is 5 dots wide about 875.
    EXPECT_TRUE(content.contains("872.500000 1875 l")) << content.toStdString();
    EXPECT_TRUE(content.contains("877.500000 1875 l"));
    EXPECT_TRUE(faint.contains("/ca 0.5")) << faint.toStdString();
    EXPECT_TRUE(faint.contains("/ca 0.25"));
}

TEST_F(VectorFiles, PdfHasClips) {
    const auto clipsOf = [this](const char* name, bool isClipped) {
        const QByteArray content = ContentOf(Saved(name, [=](PainterSurface& surface) {
            if (isClipped) {
                const CircleClip outer(surface, {0, 0}, 500);
                const CircleClip inner(surface, {200, 0}, 500);
                surface.Circle({0, 0}, 300, kBlack);
            } else {
                surface.Circle({0, 0}, 300, kBlack);
            }
        }));
        EXPECT_FALSE(content.isEmpty());
        return content.count("W* n") + content.count("W n");
    };
    EXPECT_GE(clipsOf("a.pdf", true), 2);
    EXPECT_EQ(clipsOf("b.pdf", false), 0);
}

} // namespace
} // namespace quandrel
